import { byId, make, makeButton } from './elements';

/** Something to do about a problem. */
export interface Offer {
    text: string;
    action(): void;
}

/** Shorter waits are not worth a word. */
const quietMilliseconds = 500;

/** Says what became of the text: how it goes, what was read, or why nothing was. */
export class Status {
    private readonly summary = byId('summary');
    private readonly instrument = byId('instrument');
    private readonly problem = byId('problem');
    private readonly pane = byId('music-pane');
    private readonly cancelButton = byId<HTMLButtonElement>('cancel');
    private waitTimer: ReturnType<typeof setTimeout> | undefined;

    constructor(cancel: () => void) {
        this.cancelButton.addEventListener('click', cancel);
    }

    /** The text or how it is to be read has changed: what is shown is that of before. */
    changed(): void {
        this.pane.dataset.state = 'reading';
    }

    begin(): void {
        clearTimeout(this.waitTimer);

        this.waitTimer = setTimeout(() => {
            this.summary.textContent = 'Reading …';
            this.cancelButton.hidden = false;
        }, quietMilliseconds);
    }

    progress(percent: number): void {
        if (!this.cancelButton.hidden) this.summary.textContent = `Reading … ${percent} %`;
    }

    taken(summary: string, details: string): void {
        this.end();
        this.setSummary(summary);
        this.instrument.textContent = details;
        this.problem.hidden = true;
        this.pane.dataset.state = 'drawing';
    }

    /** The engraved score shows what was taken. */
    drawn(): void {
        if (this.pane.dataset.state === 'drawing') this.pane.dataset.state = 'drawn';
    }

    /** Nothing is shown, for a reason, and maybe with something to do about it. */
    refuse(sentence: string, offer?: Offer): void {
        this.end();
        this.setSummary('');
        this.instrument.textContent = '';
        this.showProblem(sentence, offer);
        this.pane.dataset.state = 'empty';
    }

    /** The text was taken, and its score is drawn only when somebody wants it. */
    hold(sentence: string, offer: Offer): void {
        this.showProblem(sentence, offer);
        this.pane.dataset.state = 'held';
    }

    /** Something else went wrong; text and score stay. */
    complain(sentence: string): void {
        this.showProblem(sentence);
    }

    cancelled(): void {
        const wasShown = !this.cancelButton.hidden;
        this.end();
        this.pane.dataset.state = 'cancelled';

        if (wasShown) this.setSummary('Cancelled. Change the text to read it again.');
    }

    /** A word in passing; the score stays. */
    say(words: string): void {
        this.setSummary(words);
    }

    private showProblem(sentence: string, offer?: Offer): void {
        this.problem.replaceChildren(make('p', {}, sentence));
        if (offer) this.problem.append(makeButton(offer.text, offer.action));
        this.problem.hidden = false;
    }

    // Said again only when it is something else: a screen reader would repeat it at every key.
    private setSummary(words: string): void {
        if (this.summary.textContent !== words) this.summary.textContent = words;
    }

    private end(): void {
        clearTimeout(this.waitTimer);
        this.cancelButton.hidden = true;
    }
}
