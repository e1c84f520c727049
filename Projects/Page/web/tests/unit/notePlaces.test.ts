import type { NotePlace } from 'fretline';
import { describe, expect, it } from 'vitest';
import { NotePlaces, type EngravedNote } from '../../src/music/notePlaces';

const quarter = 960;

const note = (bar: number, ticks: number, string: number, part = 0): EngravedNote => ({
    string,
    beat: { playbackStart: ticks, voice: { bar: { index: bar, staff: { track: { index: part } } } } },
});

// Lines 4 to 9 are strings 5 to 0; a crotchet is four columns.
const place = (bar: number, position: number, string: number, width = 1): NotePlace => {
    const column = 10 + 20 * bar + Math.floor(position / 64);
    return {
        line: 9 - string,
        column,
        end: column + width,
        part: 0,
        bar,
        position,
        tick: bar * 1024 + position,
        string,
    };
};

describe('notes of the score and of the text', () => {
    const high = note(0, 0, 6);
    const low = note(0, 0, 1);
    const triplet = note(0, quarter / 3, 6);
    const second = note(1, quarter, 6);
    const places = [place(0, 0, 5), place(0, 0, 0), place(0, 85, 5), place(1, 256, 5, 2)];
    const joined = new NotePlaces([high, low, triplet, second], places);

    it('are joined by bar, string and time', () => {
        expect([high, low, triplet, second].map((each) => joined.placeOf(each))).toEqual(places);
        expect(joined.placeOf(note(0, 0, 6))).toBeNull();
    });

    it('are found at their columns, and at the end of one, as a cursor stands there', () => {
        expect([33, 34, 35, 36, 37].map((column) => joined.noteAt(4, column))).toEqual([
            null,
            second,
            second,
            second,
            null,
        ]);
        expect(joined.noteAt(9, 10)).toBe(low);
        expect(joined.noteAt(5, 10)).toBeNull();
    });

    it('are found in a stretch of the text', () => {
        expect(joined.notesBetween(4, 10, 4, 34)).toEqual([high, triplet]);
        expect(joined.notesBetween(4, 11, 9, 10)).toEqual([triplet, second]);
        expect(joined.notesBetween(4, 12, 9, 11)).toEqual([second, low]);
        // Half of a number is that number.
        expect(joined.notesBetween(4, 35, 4, 40)).toEqual([second]);
    });

    it('are joined in order where a pick-up is engraved without its rest', () => {
        const pickUp = [note(0, 0, 5), note(0, quarter, 5)];
        const inText = [place(0, 768, 4), place(0, 512, 4)];
        const moved = new NotePlaces(pickUp, inText);
        expect(pickUp.map((each) => moved.placeOf(each)?.position)).toEqual([512, 768]);
    });

    it('are joined by time where the text has more or fewer', () => {
        const engraved = [note(0, 0, 5), note(0, 2 * quarter, 5)];
        const some = new NotePlaces(engraved, [place(0, 512, 4)]);
        expect(engraved.map((each) => some.placeOf(each)?.position)).toEqual([undefined, 512]);
    });

    it('are joined on other strings where a stave has its own', () => {
        const engraved = [note(0, 0, 6), note(0, quarter, 6), note(0, quarter, 5)];
        const own = new NotePlaces(engraved, [place(0, 0, 0), place(0, 256, 0), place(0, 256, 4)]);
        expect(engraved.map((each) => own.placeOf(each))).toMatchObject([
            { position: 0, string: 0 },
            { position: 256, string: 0 },
            { position: 256, string: 4 },
        ]);
    });

    it('are joined part by part', () => {
        const together = [note(0, 0, 4), note(0, 0, 4, 1)];
        const inText = [{ ...place(0, 0, 3), part: 1, line: 12 }, place(0, 0, 3)];
        const own = new NotePlaces(together, inText);
        expect(together.map((each) => own.placeOf(each)?.line)).toEqual([6, 12]);
    });

    it('have a place each', () => {
        const chord = [note(0, 0, 6), note(0, 0, 5)];
        const own = new NotePlaces(chord, [place(0, 0, 0), place(0, 0, 1), place(0, 512, 0)]);
        expect(chord.map((each) => own.placeOf(each))).toMatchObject([{ string: 1 }, { string: 0 }]);
    });
});
