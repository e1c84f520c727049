import type { AlphaTabApi, model } from '@coderline/alphatab';
import type { NotePlace, Result } from 'fretline';
import { libraryFile, loadLibrary, type Library } from './library';
import { NotePlaces } from './notePlaces';
import { engraveAtOnce } from './paper';
import { dress, readScore, showStaves, struckNotes, type Staves } from './score';

export interface MusicEvents {
    /** A note was clicked; null where its place in the text is not known. */
    noteChosen(place: NotePlace | null): void;
    /** These notes sound now; none when playing has stopped. */
    notesPlayed(places: NotePlace[]): void;
    drawn(): void;
}

interface Colours {
    ink: string;
    faint: string;
    accent: string;
}

const onPaper: Colours = { ink: '#000000', faint: '#555555', accent: '#000000' };

/** The engraved score. Draws what it is given last, tells of clicks, and marks the notes that the text points at. */
export class MusicView {
    /** Null until the library is loaded. */
    api: AlphaTabApi | null = null;
    private engraver: Library | null = null;
    private score: model.Score | null = null;
    private result: Result | null = null;
    private places = new NotePlaces<model.Note>([], []);
    private marked: model.Note[] = [];
    private readonly marks: HTMLElement;
    private staves: Staves = 'both';

    constructor(
        private readonly element: HTMLElement,
        private readonly scroller: HTMLElement,
        private readonly events: MusicEvents,
    ) {
        this.marks = document.createElement('div');
        this.marks.className = 'note-marks';
        this.marks.setAttribute('aria-hidden', 'true');
    }

    /** Loads the library and makes the player; the score can be shown from then on. */
    async start(colours: Colours): Promise<AlphaTabApi> {
        const library = await loadLibrary();
        this.engraver = library;
        const settings = new library.Settings();
        settings.core.fontDirectory = libraryFile('font/');
        settings.core.smuflFontSources = new Map([
            [library.FontFileFormat.Woff2, libraryFile('font/Bravura.woff2')],
        ]);
        settings.core.includeNoteBounds = true;
        settings.core.logLevel = library.LogLevel.Warning;
        settings.player.playerMode = library.PlayerMode.EnabledSynthesizer;
        settings.player.scrollElement = this.scroller;
        settings.player.scrollOffsetY = -24;
        settings.player.scrollMode = library.ScrollMode.Continuous;
        settings.display.padding = [12, 20];
        settings.display.effectBandPaddingBottom = 5;
        settings.notation.rhythmMode = library.TabRhythmMode.Hidden;
        // Said beside the summary instead.
        settings.notation.elements.set(library.NotationElement.GuitarTuning, false);
        this.applyColours(settings, colours);
        const api = new library.AlphaTabApi(this.element, settings);
        this.api = api;
        this.element.append(this.marks);
        api.noteMouseDown.on((note) => this.events.noteChosen(this.placeOf(note)));
        api.activeBeatsChanged.on(({ activeBeats }) =>
            this.events.notesPlayed(activeBeats.flatMap((beat) => this.placesOf(beat))),
        );
        api.postRenderFinished.on(() => {
            this.drawMarks();
            this.events.drawn();
        });
        return api;
    }

    /** Draws a score that was taken, and knows its notes' places. */
    show(result: Result): void {
        if (!this.api || !this.engraver || !result.files.musicxml) return;

        const score = readScore(this.engraver, result, this.staves);
        dress(this.engraver, score, result, this.api.settings.display.resources);
        this.score = score;
        this.result = result;
        this.places = new NotePlaces(struckNotes(score), result.notes);
        this.marked = [];
        this.draw(score);
    }

    showStaves(staves: Staves): void {
        this.staves = staves;
        if (!this.score || !this.api || !this.engraver) return;
        showStaves(this.score, staves);
        // Without notes above it, the TAB shows how long they last.
        const { Hidden, ShowWithBars } = this.engraver.TabRhythmMode;
        this.api.settings.notation.rhythmMode =
            staves === 'tab' && this.result?.json.rhythms ? ShowWithBars : Hidden;
        this.api.updateSettings();
        this.draw(this.score);
    }

    setColours(colours: Colours): void {
        if (!this.api) return;
        this.applyColours(this.api.settings, colours);
        this.api.updateSettings();
        if (this.result) this.show(this.result);
    }

    /** Marks the notes at a stretch of the text, and scrolls to the first of them. Tells how many these are. */
    markNotesOfText(fromLine: number, fromColumn: number, toLine: number, toColumn: number): number {
        const isCursor = fromLine === toLine && fromColumn === toColumn;
        const atCursor = isCursor ? this.places.noteAt(fromLine, fromColumn) : null;
        this.marked = isCursor
            ? atCursor
                ? [atCursor]
                : []
            : this.places.notesBetween(fromLine, fromColumn, toLine, toColumn);
        this.drawMarks();
        this.scrollToMarks();
        return this.marked.length;
    }

    /** The stretch of time that the marked notes take, in ticks of the player; null where none is marked. */
    rangeOfMarks(): { startTick: number; endTick: number; firstBar: number; lastBar: number } | null {
        if (this.marked.length === 0) return null;
        // Repeats are played out: a beat has a tick of its own there.
        const startOf = ({ beat }: model.Note): number =>
            this.api?.tickCache?.getBeatStart(beat) ?? beat.absolutePlaybackStart;
        const starts = this.marked.map(startOf);
        const ends = this.marked.map((note) => startOf(note) + note.beat.playbackDuration);
        const bars = this.marked.map((note) => note.beat.voice.bar.index);
        return {
            startTick: Math.min(...starts),
            endTick: Math.max(...ends),
            firstBar: Math.min(...bars),
            lastBar: Math.max(...bars),
        };
    }

    /** The score as a Guitar Pro file, by the library's own writer. */
    exportGuitarPro(): Uint8Array | null {
        if (!this.engraver || !this.result) return null;
        const score = readScore(this.engraver, this.result, this.staves);
        return new this.engraver.exporter.Gp7Exporter().export(score, this.api?.settings ?? null);
    }

    /** Crotchets a minute; 0 where there is no score. */
    get tempo(): number {
        return this.score?.tempo ?? 0;
    }

    /** Engraves the score for paper, black on white, as the children of an element; it stands there on return. */
    engraveForPaper(paper: HTMLElement): void {
        if (!this.api || !this.engraver || !this.result) return;
        const { JsonConverter } = this.engraver.model;
        const settings = JsonConverter.jsObjectToSettings(
            JsonConverter.settingsToJsObject(this.api.settings),
        );
        this.applyColours(settings, onPaper);
        settings.display.resources.secondaryGlyphColor = settings.display.resources.mainGlyphColor;
        settings.display.scale = 0.9;
        settings.display.stretchForce = 0.8;
        settings.display.padding = [0, 0];
        // Bars have colours of their own where their metre is hidden: those of the shown score are the screen's.
        const score = readScore(this.engraver, this.result, this.staves);
        dress(this.engraver, score, this.result, settings.display.resources);
        const surface = document.createElement('div');
        // The library's style sheet knows its music font by these classes.
        surface.className = this.element.querySelector('.at-surface')?.className ?? '';
        surface.append(...engraveAtOnce(this.engraver, score, settings));
        paper.replaceChildren(surface);
    }

    /** All parts, one below the other. */
    private draw(score: model.Score): void {
        this.api?.renderScore(
            score,
            score.tracks.map((track) => track.index),
        );
    }

    private placeOf(note: model.Note): NotePlace | null {
        return this.places.placeOf(note.isTieDestination && note.tieOrigin ? note.tieOrigin : note);
    }

    private placesOf(beat: model.Beat): NotePlace[] {
        return beat.notes.map((note) => this.places.placeOf(note)).filter((place) => place !== null);
    }

    private applyColours(settings: AlphaTabApi['settings'], { ink, faint, accent }: Colours): void {
        const { Color } = this.engraver!.model;
        const resources = settings.display.resources;
        const colour = (text: string) => Color.fromJson(text)!;
        const bold = new this.engraver!.model.Font(
            'Georgia, serif',
            14,
            this.engraver!.model.FontStyle.Plain,
            this.engraver!.model.FontWeight.Bold,
        );
        resources.elementFonts.set(this.engraver!.NotationElement.EffectText, bold);
        resources.mainGlyphColor = colour(ink);
        resources.scoreInfoColor = colour(ink);
        resources.secondaryGlyphColor = colour(faint);
        resources.staffLineColor = colour(faint);
        resources.barSeparatorColor = colour(faint);
        resources.barNumberColor = colour(accent);
    }

    private drawMarks(): void {
        const lookup = this.api?.boundsLookup;
        const boxes = this.marked.map((note) => this.boundsOf(lookup ?? null, note)).flat();
        this.marks.replaceChildren(
            ...boxes.map(({ x, y, w, h }) => {
                const mark = document.createElement('div');
                Object.assign(mark.style, {
                    left: `${x - 3}px`,
                    top: `${y - 3}px`,
                    width: `${w + 6}px`,
                    height: `${h + 6}px`,
                });
                return mark;
            }),
        );
    }

    private boundsOf(lookup: AlphaTabApi['boundsLookup'], note: model.Note) {
        const beats = lookup?.findBeats(note.beat) ?? [];
        return beats
            .flatMap((beat) => beat.notes ?? [])
            .filter((bounds) => bounds.note === note || bounds.note.id === note.id)
            .map((bounds) => bounds.noteHeadBounds);
    }

    private scrollToMarks(): void {
        const first = this.marks.firstElementChild as HTMLElement | null;
        if (!first) return;
        const top = first.offsetTop;
        const { scrollTop, clientHeight } = this.scroller;
        const margin = 80;
        if (top < scrollTop + margin || top > scrollTop + clientHeight - margin)
            this.scroller.scrollTo({ top: Math.max(0, top - clientHeight / 3), behavior: 'auto' });
    }
}
