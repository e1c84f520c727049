// What musicxml-io understands of a MusicXML file, in the lines of ScoreLines.cpp.
import './web-crypto.mjs';
import { parse } from 'musicxml-io';
import { readFileSync } from 'node:fs';
import { Sounding } from './sounding.mjs';

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
    return {
        string: parseInt(technical(entry, 'string')) || 0,
        text: `${technical(entry, 'string')}:${technical(entry, 'fret')}:${midi}`,
        marks: marks(entry),
        isTiedFrom: ties.some((t) => t.type === 'stop'),
        isTiedOn: ties.some((t) => t.type === 'start'),
    };
}

// The ending that goes on from the measure before.
let ending = [];
function way(measure, isFirst) {
    const barlines = measure.barlines ?? [];
    const directions = measure.entries.filter((e) => e.type === 'direction');
    const signs = directions.flatMap((d) => d.directionTypes);
    const has = (kind) => signs.some((s) => s.kind === kind);
    const begun = barlines.find((b) => b.ending?.type === 'start');
    if (begun) ending = begun.ending.number.split(',').map(Number);
    const repeats = barlines.map((b) => (b.repeat?.direction === 'forward' ? ' [' : b.repeat ? ` ]${b.repeat.times}` : ''));
    const tempo = isFirst ? undefined : directions.find((d) => d.sound?.tempo)?.sound.tempo;
    const words = signs.filter((s) => s.kind === 'words' && s.text !== 'Swing').map((s) => ` "${s.text}"`);
    const text =
        repeats.join('') +
        ending.map((time) => ` (${time})`).join('') +
        (tempo ? ` q=${tempo}` : '') +
        (has('segno') ? ' Segno' : '') +
        (has('coda') ? ' Coda' : '') +
        words.join('');
    if (barlines.some((b) => b.ending && b.ending.type !== 'start')) ending = [];
    return text;
}

const score = parse(readFileSync(process.argv[2], 'utf8'));
const names = new Map(score.partList.map((entry) => [entry.id, entry.name]));
for (const part of score.parts) {
    if (score.parts.length > 1) console.log(`part ${names.get(part.id)}`);
    const sounding = new Sounding();
    for (const [index, measure] of part.measures.entries()) {
        sounding.bar(way(measure, index === 0));
        let piece = null;
        const flush = () => {
            if (piece) sounding.piece(piece.duration, piece.notes);
            piece = null;
        };
        for (const entry of measure.entries) {
            if (entry.type === 'harmony') {
                flush();
                sounding.chord(chord(entry), entry.offset ?? 0);
            } else if (entry.type === 'forward') {
                flush();
                sounding.empty(entry.duration);
            } else if (entry.type === 'note') {
                if (!entry.chord) flush();
                if (entry.printObject === false) {
                    sounding.empty(entry.duration);
                    continue;
                }
                piece ??= { duration: entry.duration, notes: [] };
                if (entry.pitch) piece.notes.push(note(entry));
            }
        }
        flush();
    }
    sounding.print();
}
