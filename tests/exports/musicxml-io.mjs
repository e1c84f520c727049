// What musicxml-io understands of a MusicXML file, in the lines of ScoreLines.cpp.
import './web-crypto.mjs';
import { parse } from 'musicxml-io';
import { readFileSync } from 'node:fs';

const steps = { C: 0, D: 2, E: 4, F: 5, G: 7, A: 9, B: 11 };
const sign = (alter) => (alter > 0 ? '#' : alter < 0 ? 'b' : '');
const chord = (h) =>
    h.root.rootStep + sign(h.root.rootAlter) + (h.kindText ?? '') + (h.bass ? '/' + h.bass.bassStep + sign(h.bass.bassAlter) : '');
const technical = (entry, kind) => entry.notations?.find((n) => n.technical === kind)?.[kind] ?? '-';

// In the order of ScoreLines.cpp.
function marks(entry) {
    const has = (test) => entry.notations?.some(test);
    const letters = [
        has((n) => (n.technical === 'hammer-on' || n.technical === 'pull-off') && n.startStop === 'start') && 'h',
        has((n) => n.type === 'slide' && n.slideType === 'start') && 's',
        has((n) => n.technical === 'bend') && 'b',
        has((n) => n.ornament === 'wavy-line' && n.wavyLineType === 'start') && 'v',
        entry.notehead?.value === 'x' && 'x',
        entry.notehead?.parentheses && 'g',
        has((n) => n.technical === 'harmonic' && n.harmonicNatural) && 'n',
        has((n) => n.technical === 'other-technical' && n.text === 'palm mute') && 'm',
    ]
        .filter(Boolean)
        .join('');
    return letters ? `=${letters}` : '';
}

function note(entry) {
    const midi = 12 * (entry.pitch.octave + 1) + steps[entry.pitch.step] + (entry.pitch.alter ?? 0);
    const ties = entry.ties ?? (entry.tie ? [entry.tie] : []);
    return `${technical(entry, 'string')}:${technical(entry, 'fret')}:${midi}${ties.some((t) => t.type === 'start') ? '~' : ''}${marks(entry)}`;
}

const repeats = (measure) =>
    (measure.barlines ?? [])
        .map((b) => (b.repeat?.direction === 'forward' ? ' [' : b.repeat ? ` ]${b.repeat.times}` : ''))
        .join('');

const score = parse(readFileSync(process.argv[2], 'utf8'));
score.parts[0].measures.forEach((measure, index) => {
    console.log(`bar ${index + 1}${repeats(measure)}`);
    let event = null;
    const flush = () => {
        if (event) console.log(`${event.duration} ${event.notes.length ? event.notes.sort((a, b) => parseInt(a) - parseInt(b)).join(' ') : 'rest'}`);
        event = null;
    };
    for (const entry of measure.entries) {
        if (entry.type === 'harmony') {
            flush();
            console.log(`chord ${chord(entry)}`);
        } else if (entry.type === 'note' && !entry.rest?.measure) {
            if (!entry.chord) flush();
            event ??= { duration: entry.duration, notes: [] };
            if (entry.pitch) event.notes.push(note(entry));
        }
    }
    flush();
});
