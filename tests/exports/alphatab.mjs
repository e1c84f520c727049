// What alphaTab understands of a MusicXML file, in the lines of ScoreLines.cpp.
import * as alphaTab from '@coderline/alphatab';
import { readFileSync } from 'node:fs';
import { Sounding } from './sounding.mjs';

const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(new Uint8Array(readFileSync(process.argv[2])));
const ticksPerUnit = 960 / 256;

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
function note(n) {
    const { staff } = n.beat.voice.bar;
    const string = staff.stringTuning.tunings.length + 1 - n.string;
    return {
        string,
        text: `${string}:${n.fret}:${n.realValue - staff.capo}`,
        marks: marks(n),
        isTiedFrom: n.isTieDestination,
        isTiedOn: n.isTieOrigin,
    };
}

// It reads no words of jumps. An ending is a bit for each of its times.
const { Direction } = alphaTab.model;
const endings = (master) =>
    [1, 2, 3, 4, 5, 6, 7, 8].filter((time) => master.alternateEndings & (1 << (time - 1))).map((time) => ` (${time})`);
const tempo = (master) => (master.index > 0 && master.tempoAutomations[0] ? ` q=${master.tempoAutomations[0].value}` : '');
const signs = (master) =>
    tempo(master) +
    (master.directions?.has(Direction.TargetSegno) ? ' Segno' : '') +
    (master.directions?.has(Direction.TargetCoda) ? ' Coda' : '');
const way = (master, isTop) =>
    (master.isRepeatStart ? ' [' : '') +
    (master.repeatCount > 0 ? ` ]${master.repeatCount}` : '') +
    endings(master).join('') +
    (isTop ? signs(master) : '');

const isTop = (track) => track.index === 0;
function understood(track) {
    const sounding = new Sounding();
    for (const bar of track.staves[0].bars) {
        sounding.bar(way(bar.masterBar, isTop(track)));
        for (const beat of bar.voices[0].beats) {
            if (beat.chord) sounding.chord(beat.chord.name);
            if (beat.isEmpty) sounding.empty(beat.displayDuration / ticksPerUnit);
            else sounding.piece(units(beat), beat.notes.map(note));
        }
    }
    return sounding;
}

const all = score.tracks.map(understood);
// It drops room at the end of a bar that another part has notes for.
if (all.length > 1)
    for (let bar = 0; bar < score.masterBars.length; ++bar) Sounding.makeEqual(all, bar);
for (const track of score.tracks) {
    const { capo } = track.staves[0];
    if (all.length > 1) console.log(`part ${track.name}`);
    if (capo > 0) console.log(`capo ${capo}`);
    all[track.index].print();
}
