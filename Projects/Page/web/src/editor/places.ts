import type { Text } from '@codemirror/state';
import { LineColumns } from '../text/columns';
import type { Measure } from '../text/widths';

/** A stretch of one line of the text, in the reading's lines and columns, both from 0. */
export interface Stretch {
    line: number;
    column: number;
    end: number;
}

export interface Range {
    from: number;
    to: number;
}

/** The stretch as offsets in the document; null where the document has no such line. */
export function rangeOf(document: Text, measure: Measure, { line, column, end }: Stretch): Range | null {
    if (line < 0 || line >= document.lines) return null;
    const { from, text } = document.line(line + 1);
    const columns = new LineColumns(text, measure);
    const start = columns.offsetAt(column);
    return { from: from + start, to: from + Math.max(start, columns.endOffsetAt(end)) };
}

/** An offset of the document in the reading's lines and columns. */
export function placeAt(document: Text, measure: Measure, offset: number): { line: number; column: number } {
    const { number, from, text } = document.lineAt(offset);
    return { line: number - 1, column: new LineColumns(text, measure).columnAt(offset - from) };
}
