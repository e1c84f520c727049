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

const expected = [];
let tied = new Map();
for (const line of readFileSync(process.argv[3], 'utf8').split('\n')) {
    const notes = [...line.matchAll(/(\d+|-):(\d+|-):(\d+)(~?)/g)];
    if (!/^\d/.test(line)) continue;
    const before = tied;
    tied = new Map();
    for (const [, string, , pitch, tie] of notes) {
        if (before.get(string) !== pitch) expected.push(Number(pitch));
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
