// What the library plays is what was read: the same onsets, at every level of rhythms.
import * as alphaTab from '@coderline/alphatab';
import load from 'fretline';
import { readFileSync } from 'node:fs';
import { expect, it } from 'vitest';
import { dress, readScore, struckNotes } from '../../src/music/score';
import { examplePaths } from './person';

// Notes without a rhythm are quavers in the score, and engraved as crotchets.
const stretchWithoutRhythms = 2;
const unitsPerTick = 256 / 960;

const fretline = await load();

it.each(['never', 'indicated', 'always'] as const)(
    'plays every example as it was read, rhythms %s',
    (rhythms) => {
        const paths = examplePaths();
        expect(paths.length).toBeGreaterThan(10);
        for (const path of paths) {
            const result = fretline.convert(readFileSync(path), { rhythms, formats: ['musicxml'] });
            const score = readScore(alphaTab, result, 'both');
            dress(alphaTab, score, result, new alphaTab.Settings().display.resources);
            const played = struckNotes(score).map((note) =>
                Math.round(note.beat.absolutePlaybackStart * unitsPerTick),
            );
            const read = result.notes.map(
                (note) => note.tick * (result.json.rhythms ? 1 : stretchWithoutRhythms),
            );
            expect(
                played.sort((a, b) => a - b),
                path,
            ).toEqual(read);
        }
    },
);
