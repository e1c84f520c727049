import type { model, RenderingResources } from '@coderline/alphatab';
import type { Result } from 'fretline';
import type { Library } from './library';

/** Which staves are drawn. */
export type Staves = 'both' | 'notes' | 'tab';

/** Programs of basses, in the order of General MIDI. */
const basses = { first: 32, last: 39 };

/** Sounds an octave lower than written, as music for guitar and bass is. */
const octaveBelow = -12;

/**
 * Reads a score from MusicXML and mends what the library does not take from it (1.8.4):
 * - It draws no notes for a staff with a TAB clef, and gives a staff of notes the treble clef.
 * - It ignores "senza-misura": bars without a metre keep the length of a metre, and what is longer or shorter
 *   is moved. A bar that is marked as a pick-up has the length of its notes.
 */
export function readScore(library: Library, { files, json }: Result, staves: Staves): model.Score {
    const score = library.importer.ScoreLoader.loadScoreFromBytes(files.musicxml!);
    showStaves(score, staves);
    for (const staff of stavesOf(score)) staff.displayTranspositionPitch = octaveBelow;
    for (const bar of score.tracks
        .filter(isBass)
        .flatMap((track) => track.staves.flatMap((staff) => staff.bars)))
        bar.clef = library.model.Clef.F4;
    if (!json.rhythms) letBarsLastAsTheirNotes(score);

    score.title ||= String(json.heading?.title ?? json.title ?? '');
    score.artist ||= String(json.heading?.artist ?? '');
    return score;
}

/** Makes a score look as the page wants it; what is exported stays without this. */
/** The colours are those of the resources. */
export function dress(
    library: Library,
    score: model.Score,
    { json }: Result,
    resources: RenderingResources,
): void {
    labelsAsTexts(score);
    if (!json.rhythms) hideTimeSignatures(library, score, resources);
    // The name of a file is no heading.
    if (!json.heading?.title) score.title = '';
    // One instrument needs neither a brace nor its name at each line.
    score.stylesheet.bracketExtendMode = library.model.BracketExtendMode.NoBrackets;
    score.stylesheet.singleTrackTrackNamePolicy = library.model.TrackNamePolicy.Hidden;
}

/** Where no rhythms were read, bars have no metre; the library draws one all the same. */
function hideTimeSignatures({ model }: Library, score: model.Score, resources: RenderingResources): void {
    const element = model.BarSubElement;
    const nothing = new model.Color(0, 0, 0, 0);
    // A bar with a style of its own has the resources' colours for none of its parts.
    const colours: [model.BarSubElement, model.Color][] = [
        [element.StandardNotationTimeSignature, nothing],
        [element.GuitarTabsTimeSignature, nothing],
        [element.StandardNotationStaffLine, resources.staffLineColor],
        [element.GuitarTabsStaffLine, resources.staffLineColor],
        [element.StandardNotationBarLines, resources.barSeparatorColor],
        [element.GuitarTabsBarLines, resources.barSeparatorColor],
        [element.StandardNotationBarNumber, resources.barNumberColor],
        [element.GuitarTabsBarNumber, resources.barNumberColor],
    ];

    for (const bar of stavesOf(score).flatMap((staff) => staff.bars)) {
        bar.style ??= new model.BarStyle();
        for (const [part, colour] of colours) bar.style.colors.set(part, colour);
    }
}

/**
 * Labels of sections become texts. The library (1.8.4) draws a label and the chord name of the same beat on top of each
 * other; texts have a line of their own.
 */
function labelsAsTexts(score: model.Score): void {
    const bars = stavesOf(score)[0]?.bars ?? [];
    for (const bar of bars) {
        const { section } = bar.masterBar;
        const beat = bar.voices[0]?.beats[0];
        if (!section || !beat || beat.text) continue;
        beat.text = [section.marker, section.text].filter(Boolean).join(' ');
        bar.masterBar.section = null;
    }
}

function letBarsLastAsTheirNotes(score: model.Score): void {
    let start = 0;
    for (const bar of score.masterBars) {
        bar.isAnacrusis = true;
        bar.start = start;
        start += bar.calculateDuration();
    }
}

const isBass = ({ playbackInfo: { program } }: model.Track): boolean =>
    program >= basses.first && program <= basses.last;

const stavesOf = (score: model.Score): model.Staff[] => score.tracks.flatMap((track) => track.staves);

export function showStaves(score: model.Score, staves: Staves): void {
    for (const staff of stavesOf(score)) {
        staff.showStandardNotation = staves !== 'tab';
        staff.showTablature = staves !== 'notes';
    }
}

/** Every note that is struck, bar by bar in order of time. */
export function struckNotes(score: model.Score): model.Note[] {
    return stavesOf(score)
        .flatMap((staff) => staff.bars)
        .flatMap((bar) => bar.voices.flatMap((voice) => voice.beats))
        .flatMap((beat) => beat.notes)
        .filter((note) => !note.isTieDestination);
}
