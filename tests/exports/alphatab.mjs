// What alphaTab understands of a MusicXML file, in the lines of ScoreLines.cpp.
import * as alphaTab from '@coderline/alphatab';
import { readFileSync } from 'node:fs';

const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(new Uint8Array(readFileSync(process.argv[2])));
const staff = score.tracks[0].staves[0];
const strings = staff.stringTuning.tunings.length;

// A negative duration is a breve or longer.
const units = (duration) => (duration > 0 ? 1024 / duration : 1024 * -duration);
// In the order of ScoreLines.cpp. It drops hammer-ons, dead notes and harmonics while it reads MusicXML.
const techniques = (n) =>
    [
        n.slideOutType === alphaTab.model.SlideOutType.Shift && 's',
        n.hasBend && 'b',
        n.vibrato && 'v',
        n.isGhost && 'g',
        n.isPalmMute && 'm',
    ]
        .filter(Boolean)
        .join('');
const marks = (n) => (techniques(n) ? `=${techniques(n)}` : '');
// Its strings count from 1 at the lowest, and its pitches have the capo in them.
const note = (n) => `${strings + 1 - n.string}:${n.fret}:${n.realValue - staff.capo}${n.isTieOrigin ? '~' : ''}${marks(n)}`;

const repeats = (master) =>
    (master.isRepeatStart ? ' [' : '') + (master.repeatCount > 0 ? ` ]${master.repeatCount}` : '');

if (staff.capo > 0) console.log(`capo ${staff.capo}`);
for (const bar of staff.bars) {
    console.log(`bar ${bar.index + 1}${repeats(bar.masterBar)}`);
    for (const beat of bar.voices[0].beats) {
        if (beat.isEmpty) continue;
        if (beat.chord) console.log(`chord ${beat.chord.name}`);
        const notes = [...beat.notes].sort((a, b) => b.string - a.string).map(note);
        console.log(`${units(beat.duration)} ${notes.length ? notes.join(' ') : 'rest'}`);
    }
}
