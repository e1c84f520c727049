import { widthOf, type Measure } from './widths';

const tabWidth = 8;

/** The column after a character that begins at `column`. */
function columnAfter(character: string, column: number, measure: Measure): number {
    if (character === '\t') return (Math.floor(column / tabWidth) + 1) * tabWidth;
    return column + widthOf(character, measure);
}

/** Where each character is one column, offsets and columns are equal. */
const isPlain = (line: string): boolean => /^[\x20-\x7e]*$/.test(line);

/**
 * Columns of a line to offsets in its string and back.
 *
 * A column is what the measure counts, with tabs expanded to multiples of eight, as the reading does. An offset
 * counts UTF-16 units, as the editor does. Both begin at 0. A column within a character belongs to that character; one
 * after the line's end gives the line's length.
 */
export class LineColumns {
    /** For each offset, and for the line's end, its column; empty where they are equal. */
    private readonly columns: number[] = [];

    constructor(
        private readonly line: string,
        measure: Measure,
    ) {
        if (isPlain(line)) return;
        let column = 0;
        for (const character of line) {
            for (let unit = 0; unit < character.length; ++unit) this.columns.push(column);
            column = columnAfter(character, column, measure);
        }
        this.columns.push(column);
    }

    columnAt(offset: number): number {
        const inside = Math.max(0, Math.min(offset, this.line.length));
        return this.columns[inside] ?? inside;
    }

    /** The offset of the character that holds `column`. */
    offsetAt(column: number): number {
        if (this.columns.length === 0) return Math.max(0, Math.min(column, this.line.length));
        const after = this.firstOffsetWhere((start) => start > column);
        if (after > this.line.length) return this.line.length;
        return this.firstOffsetWhere((start) => start >= this.columns[Math.max(0, after - 1)]!);
    }

    /** The offset after the last character of a stretch that ends before the column `end`. */
    endOffsetAt(end: number): number {
        if (this.columns.length === 0) return Math.max(0, Math.min(end, this.line.length));
        return Math.min(
            this.firstOffsetWhere((start) => start >= end),
            this.line.length,
        );
    }

    /** `matches` is false up to some column and true from there on. */
    private firstOffsetWhere(matches: (column: number) => boolean): number {
        let low = 0;
        let high = this.columns.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (matches(this.columns[middle]!)) high = middle;
            else low = middle + 1;
        }
        return low;
    }
}
