import type { FormatName, Options, Result } from 'fretline';
import { Editor } from '../editor/Editor';
import type { Doubt } from '../editor/doubts';
import { MusicView } from '../music/MusicView';
import { Player } from '../music/Player';
import type { Staves } from '../music/score';
import { fromFragment, longestFragment, toFragment } from '../text/address';
import { whyNotOpened, whyNotRead } from '../text/checkInput';
import type { Measure } from '../text/widths';
import { DoubtList } from '../ui/DoubtList';
import { download, nameWith } from '../ui/download';
import { byId, make, radioGroup } from '../ui/elements';
import { showLegend } from '../ui/legend';
import { PreparePanel } from '../ui/PreparePanel';
import { Status } from '../ui/Status';
import type { Abilities } from '../worker/protocol';
import { Cancelled, type Reader } from '../worker/Reader';
import { firstExample, type Example } from './examples';
import { OpenTab } from './OpenTab';
import { instrumentOf, refusalOf, summaryOf } from './words';

type Rhythms = NonNullable<Options['rhythms']>;

/** So long after the last key the text is read. */
const typingPauseMilliseconds = 120;
const addressPauseMilliseconds = 500;
/** Scores with more bars take the page seconds to draw. */
const mostBarsDrawn = 2000;
/** Longer texts give no link that could be used. */
const longestShared = 400_000;

const messageOf = (error: unknown): string => (error instanceof Error ? error.message : String(error));

/** The text for paper; what stands together is not cut by the end of a page. */
const paragraphsOf = (text: string): HTMLElement[] =>
    text.split(/(?<=\n[ \t]*\n)/).map((paragraph) => make('pre', {}, paragraph));

/** The whole page: takes a text, has it read, and shows what comes of it. */
export class Page {
    private readonly status = new Status(() => this.reader.cancel());
    private readonly editor: Editor;
    private readonly music: MusicView;
    private readonly player: Player;
    private readonly doubts: DoubtList;
    private readonly prepare: PreparePanel;
    private readonly rhythms = radioGroup<Rhythms>('rhythms', () => this.readSoon(0));
    private readonly tab: OpenTab;
    private abilities: Abilities | null = null;
    private readTimer: ReturnType<typeof setTimeout> | undefined;
    private addressTimer: ReturnType<typeof setTimeout> | undefined;
    /** Counts what the text was; an answer to an older one is not shown. */
    private revision = 0;
    private shown: Result | null = null;
    private waitsForMusic: Result | null = null;
    /** The music shows a score of the text, or of the text before the last keys. */
    private isDrawn = false;
    /** More only after somebody has said so, for this text. */
    private barsDrawnUnasked = mostBarsDrawn;

    constructor(private readonly reader: Reader) {
        this.editor = new Editor(byId('editor'), 'Tab text', {
            changed: () => this.readSoon(typingPauseMilliseconds),
            moved: () => this.cursorMoved(),
        });
        this.music = new MusicView(byId('score'), byId('score-scroller'), {
            noteChosen: (place) => {
                if (!place) return;
                this.editor.select(place, false);
                this.cursorMoved();
            },
            notesPlayed: (places) => this.editor.showPlayed(places),
            drawn: () => this.status.drawn(),
        });
        this.player = new Player({
            started: () => {},
            stopped: () => this.editor.showPlayed([]),
            selectedRange: () => this.music.rangeOfMarks(),
        });
        this.doubts = new DoubtList((doubt) => this.goTo(doubt));
        this.prepare = new PreparePanel({
            changed: () => this.readSoon(0),
            takeOver: (text) => this.takeOver(text),
        });
        radioGroup<Staves>('staves', (staves) => this.music.showStaves(staves));
        const name = byId<HTMLInputElement>('name');
        name.addEventListener('change', () => this.readSoon(0));
        this.tab = new OpenTab(this.editor, name);
        addEventListener('hashchange', () => void this.openAddress());
    }

    /** Shows the tab of the address, or the first example; music and module are loaded beside it. */
    async start(colours: Parameters<MusicView['start']>[0]): Promise<void> {
        this.reader.abilities.then(
            (abilities) => this.takeAbilities(abilities),
            (error: unknown) => this.status.refuse(messageOf(error)),
        );
        const musicStarts = this.music.start(colours).then(
            (api) => {
                this.player.connect(api);
                if (this.waitsForMusic) this.showMusic(this.waitsForMusic);
            },
            (error: unknown) => this.status.refuse(`The notation could not be loaded: ${messageOf(error)}`),
        );
        if (!(await this.openAddress())) await this.openExample(firstExample);
        await musicStarts;
    }

    setColours(colours: Parameters<MusicView['start']>[0]): void {
        this.music.setColours(colours);
    }

    async openExample(example: Example): Promise<void> {
        this.tab.open(await example.load(), example.name);
        this.tabChanged();
    }

    async openFile(file: File): Promise<void> {
        // The size comes first: a film is not read into memory to be refused.
        const head = new Uint8Array(await file.slice(0, 4096).arrayBuffer());
        const refusal = whyNotOpened(file.name, head, file.size);
        if (refusal) return this.status.complain(refusal);
        const bytes = new Uint8Array(await file.arrayBuffer());
        const late = whyNotOpened(file.name, bytes, file.size);
        if (late) return this.status.complain(late);
        this.tab.openBytes(bytes, file.name);
        this.tabChanged();
    }

    /** Opens a text that was pasted outside of the editor. */
    openPasted(text: string): void {
        this.tab.open(text);
        this.tabChanged();
        this.editor.focus();
    }

    /** The link that shares the tab; an error with a sentence where it would be too long. */
    async makeLink(): Promise<string> {
        const fragment = await this.makeFragment();
        if (fragment === null)
            throw new RangeError(
                'This tab is too long for a link. Download the text and send the file instead.',
            );
        history.replaceState(null, '', `#${fragment}`);
        return location.href;
    }

    async downloadFormat(format: FormatName): Promise<void> {
        const extension =
            this.abilities?.formats.find(({ name }) => name === format)?.extension ?? `.${format}`;
        try {
            const { files, taken } = await this.reader.convert(this.tab.bytes, {
                ...this.options(),
                formats: [format],
            });
            const bytes = files[format];
            if (!taken || !bytes) this.status.say('There is no score to download: the text was not taken.');
            else download(nameWith(this.tab.name, extension), bytes);
        } catch (error) {
            this.status.complain(messageOf(error));
        }
    }

    downloadText(): void {
        download(this.tab.name, this.tab.fileBytes, 'text/plain');
    }

    downloadGuitarPro(): void {
        const bytes = this.shown && this.music.exportGuitarPro();
        if (bytes) download(nameWith(this.tab.name, '.gp'), bytes);
        else this.status.say('There is no score to download.');
    }

    /** Has the score printed, by the browser's own dialog. */
    print(): void {
        if (this.isDrawn) window.print();
        else this.status.say('There is no score to print.');
    }

    /** Lays out what the browser prints: the score as it is drawn, or the text where none is. */
    layPaper(paper: HTMLElement): void {
        if (this.isDrawn) this.music.engraveForPaper(paper);
        else paper.replaceChildren(...paragraphsOf(this.tab.text));
    }

    get title(): string {
        return this.tab.name;
    }

    say(words: string): void {
        this.status.say(words);
    }

    togglePlaying(): void {
        this.player.playOrPause();
    }

    private options(): Options {
        return { name: this.tab.name, rhythms: this.rhythms.value, prepare: this.prepare.chosen };
    }

    private measureOf({ prepared }: Result): Measure {
        const isInAscii = prepared !== null && this.prepare.chosen.includes('ascii');
        return isInAscii ? 'characters' : this.tab.encoding;
    }

    /** Another tab was opened. */
    private tabChanged(): void {
        this.barsDrawnUnasked = mostBarsDrawn;
        this.readSoon(0);
    }

    private takeOver(text: Uint8Array): void {
        this.tab.replace(text);
        this.prepare.choose([]);
    }

    private takeAbilities(abilities: Abilities): void {
        this.abilities = abilities;
        this.prepare.setSteps(abilities.steps, this.stepsOfAddress);
        showLegend(abilities.kinds);
        byId('about').dataset.version = abilities.version;
        this.readSoon(0);
    }

    private readSoon(pause: number): void {
        this.revision++;
        this.status.changed();
        clearTimeout(this.readTimer);
        this.readTimer = setTimeout(() => void this.read(), pause);
        clearTimeout(this.addressTimer);
        this.addressTimer = setTimeout(() => void this.keepInAddress(), addressPauseMilliseconds);
    }

    private async read(): Promise<void> {
        if (!this.abilities) return;
        const revision = this.revision;
        const bytes = this.tab.bytes;
        const refusal = whyNotRead(this.tab.text, bytes.length);
        if (refusal) {
            this.reader.cancel();
            return this.showNothing(refusal);
        }
        this.status.begin();
        try {
            const options: Options = { ...this.options(), formats: ['musicxml'] };
            const result = await this.reader.readTyped(bytes, options, (percent) =>
                this.status.progress(percent),
            );
            if (revision === this.revision) this.show(result);
        } catch (error) {
            if (error instanceof Cancelled) this.status.cancelled();
            else this.showNothing(messageOf(error));
        }
    }

    private show(result: Result): void {
        const doubts = (result.json.doubts ?? []) as Doubt[];
        this.editor.show({
            measure: this.measureOf(result),
            lines: result.lines,
            kinds: this.abilities?.kinds ?? [],
            doubts,
        });
        this.doubts.show(doubts);
        this.prepare.show(result);
        if (result.taken) {
            this.shown = result;
            this.status.taken(summaryOf(result), instrumentOf(result));
            this.showMusic(result);
        } else {
            this.withoutMusic(refusalOf(result), result.helpful);
        }
        this.cursorMoved();
    }

    private showMusic(result: Result): void {
        this.waitsForMusic = this.music.api ? null : result;
        if (!this.music.api) return;
        const bars = result.json.barCount as number;
        if (bars > this.barsDrawnUnasked) {
            this.player.setEnabled(false);
            this.isDrawn = false;
            return this.status.hold(
                `The score has ${bars} bars. The page stands still for a while as it draws them.`,
                {
                    text: 'Draw it',
                    action: () => {
                        this.barsDrawnUnasked = Infinity;
                        this.readSoon(0);
                    },
                },
            );
        }
        this.music.show(result);
        this.isDrawn = true;
        this.player.setEnabled(true, this.music.tempo);
        this.cursorMoved();
    }

    private showNothing(refusal: string): void {
        this.editor.show({ measure: this.tab.encoding, lines: [], kinds: [], doubts: [] });
        this.doubts.show([]);
        this.withoutMusic(refusal, []);
    }

    private withoutMusic(refusal: string, helpful: readonly string[]): void {
        this.shown = null;
        this.isDrawn = false;
        this.waitsForMusic = null;
        this.player.setEnabled(false);
        const offer =
            helpful.length === 0
                ? undefined
                : {
                      text: 'Tidy the text up',
                      action: () => {
                          this.prepare.setOpen(true);
                          this.prepare.choose(helpful);
                      },
                  };
        this.status.refuse(refusal, offer);
    }

    private cursorMoved(): void {
        byId('at-cursor').textContent = this.editor.wordsAtCursor;
        const { from, to } = this.editor.selection;
        this.music.markNotesOfText(from.line, from.column, to.line, to.column);
        const range = this.music.rangeOfMarks();
        if (range) this.player.moveTo(range.startTick);
    }

    private goTo(doubt: Doubt): void {
        this.editor.select(
            { line: doubt.line - 1, column: doubt.column - 1, end: doubt.endColumn - 1 },
            true,
        );
        this.cursorMoved();
    }

    private stepsOfAddress: readonly string[] = [];

    /** True where the address holds a tab, also one that cannot be opened. */
    private async openAddress(): Promise<boolean> {
        try {
            const shared = await fromFragment(location.hash);
            if (!shared) return false;
            if (['never', 'indicated', 'always'].includes(shared.rhythms))
                this.rhythms.value = shared.rhythms as Rhythms;
            this.stepsOfAddress = shared.steps;
            if (this.abilities) this.prepare.setSteps(this.abilities.steps, shared.steps);
            this.tab.open(shared.text, shared.name);
            this.tabChanged();
        } catch (error) {
            this.showNothing(messageOf(error));
        }
        return true;
    }

    private async makeFragment(): Promise<string | null> {
        const { text } = this.tab;
        if (text.length > longestShared) return null;
        const steps = this.abilities ? this.prepare.chosen : this.stepsOfAddress;
        const fragment = await toFragment({ text, name: this.tab.name, rhythms: this.rhythms.value, steps });
        return fragment.length > longestFragment ? null : fragment;
    }

    private async keepInAddress(): Promise<void> {
        const fragment = await this.makeFragment();
        history.replaceState(
            null,
            '',
            fragment === null ? location.pathname + location.search : `#${fragment}`,
        );
    }
}
