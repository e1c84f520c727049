// Compares a MIDI file, read by an independent reader, with the lines of ScoreLines.cpp: the pitches that are struck, in
// order and, where the score has rhythms, the time of each.
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
const text = readFileSync(process.argv[3], 'utf8');
const hasRhythms = text.startsWith('rhythms');
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
for (const line of text.split('\n')) {
    if (line.startsWith('capo ')) capo = Number(line.slice(5));
    const bar = line.match(/^bar \d+ for (\d+)/);
    if (bar) {
        finish();
        const times = Number(line.match(/\](\d+)/)?.[1] ?? 0);
        bars.push({ length: Number(bar[1]), notes: [], starts: line.includes('['), times });
    }
    const note = line.match(/^(\d+) for \d+ (?:\d+|-):(\d+|-):(\d+)(=\w+)?/);
    if (note) bars.at(-1).notes.push(note);
}
finish();

// A natural harmonic sounds so far above its fret.
const rises = { 12: 0, 7: 12, 19: 0, 5: 19 };
const expected = [];
let now = 0;
for (const bar of played) {
    for (const [, at, fret, pitch, letters] of bar.notes)
        expected.push({ time: now + Number(at), note: Number(pitch) + capo + (letters?.includes('n') ? rises[fret] : 0) });
    now += bar.length;
}
// Notes of one time in order of pitch. Without rhythms a time is the number of times before it.
const inOrder = (list) => {
    const times = [...new Set(list.map((s) => s.time))].sort((a, b) => a - b);
    const timeOf = (s) => (hasRhythms ? s.time : times.indexOf(s.time));
    return list
        .map((s) => [timeOf(s), s.note])
        .sort((a, b) => a[0] - b[0] || a[1] - b[1])
        .join(' ');
};
if (struck.length === 0 || inOrder(struck) !== inOrder(expected)) {
    console.log(`${process.argv[2]}: ${struck.length} notes struck, ${expected.length} expected, or at other times`);
    process.exit(1);
}
