// Compares a MIDI file, read by an independent reader, with the lines of ScoreLines.cpp: the pitches that are struck, in
// order and, where the score has rhythms, the time of each.
import { parseMidi } from 'midi-file';
import { readFileSync } from 'node:fs';

const midi = parseMidi(readFileSync(process.argv[2]));
// One track a part, after the conductor's.
const struckOf = (track) => {
    const struck = [];
    let time = 0;
    for (const event of track) {
        time += event.deltaTime;
        if (event.type === 'noteOn' && event.velocity > 0) struck.push({ time, note: event.noteNumber });
    }
    return struck;
};

// The bars as they are written, and the capo.
const text = readFileSync(process.argv[3], 'utf8');
const hasRhythms = /^rhythms$/m.test(text);
// For each part its capo, and for each bar its notes. What the bars say of the way, the first part says.
const parts = [];
const bars = [];
for (const line of text.split('\n')) {
    if (parts.length === 0 || (line.startsWith('part ') && parts.at(-1).bars > 0)) parts.push({ capo: 0, bars: 0 });
    const part = parts.at(-1);
    if (line.startsWith('capo ')) part.capo = Number(line.slice(5));
    const bar = line.match(/^bar \d+ for (\d+)/);
    if (bar && ++part.bars && parts.length === 1)
        bars.push({
            length: Number(bar[1]),
            notes: [],
            starts: line.includes(' ['),
            times: Number(line.match(/\](\d+)/)?.[1] ?? 0),
            endings: [...line.matchAll(/\((\d)\)/g)].map((match) => Number(match[1])),
            jump: line.match(/"(D\.[CS]\.)(?: al (\w+))?"/),
            signs: line,
        });
    const note = line.match(/^(\d+) for \d+ (?:\d+|-):(\d+|-):(\d+)(=\w+)?/);
    if (note) (bars[part.bars - 1].notes[parts.length - 1] ??= []).push(note);
}

// Stretch by stretch: up to the end of a repeat and its endings, or to the start of the next.
function stretches() {
    const found = [];
    for (let first = 0; first < bars.length; ) {
        let end = first;
        while (end + 1 < bars.length && !bars[end].times && !bars[end + 1].starts) ++end;
        const isNextEnding = (bar, next) =>
            next?.endings.length && (next.endings.join() === bar.endings.join() || next.endings[0] > (bar.endings.at(-1) ?? 99));
        let last = end;
        while (bars[end].times && isNextEnding(bars[last], bars[last + 1])) ++last;
        const times = bars[last].endings.at(-1) ?? (bars[end].times || 1);
        found.push({ bars: bars.slice(first, last + 1), times });
        first = last + 1;
    }
    return found;
}
const atTime = (stretch, time) => stretch.bars.filter((bar) => !bar.endings.length || bar.endings.includes(time));
const whole = stretches();
let played = whole.flatMap((stretch) => Array.from({ length: stretch.times }, (_, time) => atTime(stretch, time + 1)).flat());
const jump = bars.find((bar) => bar.jump);
if (jump) {
    played = played.slice(0, played.lastIndexOf(jump) + 1);
    const once = whole.flatMap((stretch) => atTime(stretch, stretch.times));
    const at = (sign) => once.findIndex((bar) => sign.test(bar.signs));
    const start = jump.jump[1] === 'D.S.' ? at(/ Segno/) : 0;
    if (jump.jump[2] === 'Fine') played.push(...once.slice(start, at(/"Fine"/) + 1));
    else if (jump.jump[2] === 'Coda') played.push(...once.slice(start, at(/"To Coda"/) + 1), ...once.slice(at(/ Coda(?!")/)));
    else played.push(...once.slice(start));
}

// A natural harmonic sounds so far above its fret.
const rises = { 12: 0, 7: 12, 19: 0, 5: 19 };
function expectedOf(part) {
    const expected = [];
    let now = 0;
    for (const bar of played) {
        for (const [, at, fret, pitch, letters] of bar.notes[part] ?? []) {
            const rise = parts[part].capo + (letters?.includes('n') ? rises[fret] : 0);
            expected.push({ time: now + Number(at), note: Number(pitch) + rise });
        }
        now += bar.length;
    }
    return expected;
}
// Notes of one time in order of pitch. Without rhythms a time is the number of times before it, in all parts.
const times = (lists) => [...new Set(lists.flat().map((s) => s.time))].sort((a, b) => a - b);
const inOrder = (list, all) =>
    list
        .map((s) => [hasRhythms ? s.time : all.indexOf(s.time), s.note])
        .sort((a, b) => a[0] - b[0] || a[1] - b[1])
        .join(' ');

const struck = parts.map((_, part) => struckOf(midi.tracks[part + 1] ?? []));
const expected = parts.map((_, part) => expectedOf(part));
const [timesStruck, timesExpected] = [times(struck), times(expected)];
let isRight = midi.tracks.length === parts.length + 1;
parts.forEach((_, part) => {
    const isSame = inOrder(struck[part], timesStruck) === inOrder(expected[part], timesExpected);
    if (struck[part].length > 0 && isSame) return;
    isRight = false;
    console.log(
        `${process.argv[2]}: ${struck[part].length} notes struck, ${expected[part].length} expected, or at other times`,
    );
});
if (!isRight) process.exit(1);
