import type { model } from '@coderline/alphatab';
import type { Result } from 'fretline';
import type { Library } from './library';

/** Which staves are drawn. */
export type Staves = 'both' | 'notes' | 'tab';

/** Sounds an octave lower than written, as music for guitar and bass is. */
const octaveBelow = -12;

/**
 * Reads a score from MusicXML and mends what the library does not take from it (1.8.4):
 * - It draws no notes for a staff with a TAB clef.
 * - It ignores "senza-misura": bars without a metre keep the length of a metre, and what is longer or shorter
 *   is moved. A bar that is marked as a pick-up has the length of its notes.
 */
export function readScore(library: Library, { files, json }: Result, staves: Staves): model.Score {
    const score = library.importer.ScoreLoader.loadScoreFromBytes(files.musicxml!);
    showStaves(score, staves);
    for (const staff of stavesOf(score)) staff.displayTranspositionPitch = octaveBelow;
    if (!json.rhythms) for (const bar of score.masterBars) bar.isAnacrusis = true;
    score.title ||= String(json.heading?.title ?? '');
    score.artist ||= String(json.heading?.artist ?? '');
    // One instrument needs neither a brace nor its name at each line.
    score.stylesheet.bracketExtendMode = library.model.BracketExtendMode.NoBrackets;
    score.stylesheet.singleTrackTrackNamePolicy = library.model.TrackNamePolicy.Hidden;
    return score;
}

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
