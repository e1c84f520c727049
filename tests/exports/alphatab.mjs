// What alphaTab understands of a MusicXML file, in the lines of ScoreLines.cpp.
import * as alphaTab from '@coderline/alphatab';
import { readFileSync } from 'node:fs';
import { Sounding } from './sounding.mjs';

const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(new Uint8Array(readFileSync(process.argv[2])));
const staff = score.tracks[0].staves[0];
const strings = staff.stringTuning.tunings.length;

// A negative duration is a breve or longer.
const units = (beat) => (beat.duration > 0 ? 1024 / beat.duration : 1024 * -beat.duration) * (beat.dots > 0 ? 1.5 : 1);
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
const note = (n) => ({
    string: strings + 1 - n.string,
    text: `${strings + 1 - n.string}:${n.fret}:${n.realValue - staff.capo}`,
    marks: marks(n),
    isTiedFrom: n.isTieDestination,
    isTiedOn: n.isTieOrigin,
});

// It reads no words of jumps. An ending is a bit for each of its times.
const { Direction } = alphaTab.model;
const endings = (master) =>
    [1, 2, 3, 4, 5, 6, 7, 8].filter((time) => master.alternateEndings & (1 << (time - 1))).map((time) => ` (${time})`);
const tempo = (master) => (master.index > 0 && master.tempoAutomations[0] ? ` q=${master.tempoAutomations[0].value}` : '');
const way = (master) =>
    (master.isRepeatStart ? ' [' : '') +
    (master.repeatCount > 0 ? ` ]${master.repeatCount}` : '') +
    endings(master).join('') +
    tempo(master) +
    (master.directions?.has(Direction.TargetSegno) ? ' Segno' : '') +
    (master.directions?.has(Direction.TargetCoda) ? ' Coda' : '');

if (staff.capo > 0) console.log(`capo ${staff.capo}`);
const sounding = new Sounding();
for (const bar of staff.bars) {
    sounding.bar(way(bar.masterBar));
    for (const beat of bar.voices[0].beats) {
        if (beat.chord) sounding.chord(beat.chord.name);
        if (!beat.isEmpty) sounding.piece(units(beat), beat.notes.map(note));
    }
}
sounding.print();
