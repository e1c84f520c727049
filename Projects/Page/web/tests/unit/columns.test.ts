import { describe, expect, it } from 'vitest';
import { LineColumns } from '../../src/text/columns';
import type { Measure } from '../../src/text/widths';

interface Case {
    why: string;
    line: string;
    measure?: Measure;
    /** The column of each offset, and of the line's end. */
    columns: number[];
}

const cases: Case[] = [
    { why: 'plain characters are a column each', line: 'e|-3', columns: [0, 1, 2, 3, 4] },
    { why: 'an empty line has its end alone', line: '', columns: [0] },
    { why: 'a tab reaches to the next multiple of eight', line: 'ab\tc', columns: [0, 1, 2, 8, 9] },
    { why: 'a tab at a stop is eight wide', line: '\t\tx', columns: [0, 8, 16, 17] },
    { why: 'a letter with an accent is two bytes', line: 'é-1', columns: [0, 2, 3, 4] },
    { why: 'and one in the code page', line: 'é-1', measure: 'windows-1252', columns: [0, 1, 2, 3] },
    { why: 'a box character is three bytes, before a tab too', line: '─\t1', columns: [0, 3, 8, 9] },
    {
        why: 'a mark has no width of its own, a wide letter two',
        line: 'e\u0301「1',
        measure: 'characters',
        columns: [0, 1, 1, 3, 4],
    },
    { why: 'a character of two units has one column', line: '🎸1', columns: [0, 0, 4, 5] },
];

describe('columns of a line', () => {
    it.each(cases)('$why', ({ line, measure = 'utf-8', columns }) => {
        const map = new LineColumns(line, measure);
        expect(Array.from({ length: line.length + 1 }, (_, offset) => map.columnAt(offset))).toEqual(columns);
        columns.forEach((column, offset) => {
            const first = columns.indexOf(column);
            expect(map.offsetAt(column), `offset of column ${column}`).toBe(first);
            expect(map.endOffsetAt(column), `end before column ${column}`).toBe(first);
            if (offset === line.length) expect(map.offsetAt(column + 5)).toBe(line.length);
        });
    });

    it('gives a column within a character to that character', () => {
        const tab = new LineColumns('a\tb', 'utf-8');
        expect([1, 4, 7, 8].map((column) => tab.offsetAt(column))).toEqual([1, 1, 1, 2]);
        expect([1, 4, 8, 9].map((column) => tab.endOffsetAt(column))).toEqual([1, 2, 2, 3]);
        const guitar = new LineColumns('🎸1', 'utf-8');
        expect([0, 3, 4].map((column) => guitar.offsetAt(column))).toEqual([0, 0, 2]);
        expect([3, 4].map((column) => guitar.endOffsetAt(column))).toEqual([2, 2]);
    });
});
