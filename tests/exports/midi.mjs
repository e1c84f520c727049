// Compares a MIDI file, read by an independent reader, with the lines of ScoreLines.cpp note by note: the pitches that are
// struck, in order, ties joined.
import { parseMidi } from 'midi-file';
import { readFileSync } from 'node:fs';

const midi = parseMidi(readFileSync(process.argv[2]));
const struck = [];
let time = 0;
for (const event of midi.tracks[1]) {
    time += event.deltaTime;
    if (event.type === 'noteOn' && event.velocity > 0) struck.push({ time, channel: event.channel, note: event.noteNumber });
}

// Bars in the order in which they are played, and the capo.
let capo = 0;
const bars = [];
let start = 0;
const played = [];
const finish = () => {
    const bar = bars.at(-1);
    if (!bar) return;
    if (bar.starts) start = bars.length - 1;
    played.push(bar);
    for (let time = 1; time < bar.times; ++time) played.push(...bars.slice(start));
    if (bar.times) start = bars.length;
};
for (const line of readFileSync(process.argv[3], 'utf8').split('\n')) {
    if (line.startsWith('capo ')) capo = Number(line.slice(5));
    if (line.startsWith('bar ')) {
        finish();
        bars.push({ lines: [], starts: line.includes('['), times: Number(line.match(/\](\d+)/)?.[1] ?? 0) });
    }
    if (/^\d/.test(line)) bars.at(-1).lines.push(line);
}
finish();

// A natural harmonic sounds so far above its fret.
const rises = { 12: 0, 7: 12, 19: 0, 5: 19 };
const expected = [];
let tied = new Map();
for (const line of played.flatMap((bar) => bar.lines)) {
    const before = tied;
    tied = new Map();
    for (const [, string, fret, pitch, tie, letters] of line.matchAll(/(\d+|-):(\d+|-):(\d+)(~?)(=\w+)?/g)) {
        if (before.get(string) !== pitch) expected.push(Number(pitch) + capo + (letters?.includes('n') ? rises[fret] : 0));
        if (tie) tied.set(string, pitch);
    }
}
const sorted = (list) => [...list].sort((a, b) => a - b);
const same = JSON.stringify(sorted(struck.map((s) => s.note))) === JSON.stringify(sorted(expected));
const ordered = struck.every((s, i) => i === 0 || s.time >= struck[i - 1].time);
if (!same || !ordered) {
    console.log(`${process.argv[2]}: ${struck.length} notes struck, ${expected.length} expected`);
    process.exit(1);
}
