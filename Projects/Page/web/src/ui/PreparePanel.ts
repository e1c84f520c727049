import type { Result, Step } from 'fretline';
import { byId, make, makeButton } from './elements';

export interface PrepareEvents {
    /** Other steps are wanted. */
    changed(): void;
    /** The tidied text is to take the place of the text. */
    takeOver(text: Uint8Array): void;
}

const classOfLine: Record<string, string> = { '+': 'added', '-': 'removed', '@': 'where' };

/** The preparation steps as switches, and what they change. */
export class PreparePanel {
    private readonly root = byId('prepare');
    private readonly opener = byId<HTMLButtonElement>('prepare-open');
    private readonly switches = new Map<string, HTMLInputElement>();
    private readonly hints = new Map<string, HTMLElement>();
    private readonly outcome = make('div', { className: 'outcome' });

    constructor(private readonly events: PrepareEvents) {
        this.opener.addEventListener('click', () => this.setOpen(this.root.hidden));
        this.root.addEventListener('keydown', ({ key }) => {
            if (key !== 'Escape') return;
            this.setOpen(false);
            this.opener.focus();
        });
    }

    setSteps(steps: readonly Step[], chosen: readonly string[]): void {
        const all = makeButton('All', () =>
            this.choose(steps.filter((step) => step.isOnByDefault).map((step) => step.name)),
        );
        const none = makeButton('None', () => this.choose([]));
        const list = make('ul', { className: 'steps' }, ...steps.map((step) => this.switchFor(step)));
        this.root.replaceChildren(
            make(
                'div',
                { className: 'prepare-head' },
                make('p', {}, 'Tidy the text up before it is read. Your text stays as it is.'),
                all,
                none,
            ),
            list,
            this.outcome,
        );
        for (const [name, input] of this.switches) input.checked = chosen.includes(name);
        this.showCount();
    }

    get chosen(): string[] {
        return [...this.switches].filter(([, input]) => input.checked).map(([name]) => name);
    }

    choose(names: readonly string[]): void {
        for (const [name, input] of this.switches) input.checked = names.includes(name);
        this.showCount();
        this.events.changed();
    }

    setOpen(isOpen: boolean): void {
        this.root.hidden = !isOpen;
        this.opener.setAttribute('aria-expanded', String(isOpen));
    }

    /** Says which steps would change something, or what they changed. */
    show({ helpful, prepared }: Result): void {
        for (const [name, hint] of this.hints) hint.hidden = !helpful.includes(name);
        this.outcome.replaceChildren();
        if (!prepared) return;
        const count = prepared.changedLines;
        const words =
            count === 0
                ? 'Nothing had to be tidied up.'
                : `${count} ${count === 1 ? 'line' : 'lines'} tidied up.`;
        this.outcome.append(make('p', {}, words));
        if (count === 0) return;
        this.outcome.append(
            make(
                'pre',
                { className: 'diff', tabIndex: 0, ariaLabel: 'What was changed' },
                ...linesOf(prepared.changes),
            ),
            makeButton('Put the tidied text into the editor', () => this.events.takeOver(prepared.text)),
        );
    }

    private switchFor({ name, does }: Step): HTMLLIElement {
        const input = make('input', { type: 'checkbox' });
        input.setAttribute('role', 'switch');
        input.addEventListener('change', () => {
            this.showCount();
            this.events.changed();
        });
        const hint = make('span', { className: 'helps', hidden: true }, 'would change something');
        this.switches.set(name, input);
        this.hints.set(name, hint);
        return make(
            'li',
            {},
            make('label', {}, input, make('span', {}, make('b', {}, name), ` ${does} `, hint)),
        );
    }

    private showCount(): void {
        const count = this.chosen.length;
        this.opener.textContent = count === 0 ? 'Tidy up' : `Tidy up (${count})`;
    }
}

const linesOf = (changes: string): Node[] =>
    changes
        .trimEnd()
        .split('\n')
        .map((line) => make('span', { className: classOfLine[line.charAt(0)] ?? '' }, `${line}\n`));
