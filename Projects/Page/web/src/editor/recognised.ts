import { ChangeSet, RangeSetBuilder, StateEffect, StateField, type Text } from '@codemirror/state';
import {
    Decoration,
    hoverTooltip,
    ViewPlugin,
    type DecorationSet,
    type EditorView,
    type Tooltip,
    type ViewUpdate,
} from '@codemirror/view';
import type { ExplainedLine, Kind } from 'fretline';
import { LineColumns } from '../text/columns';
import type { Measure } from '../text/widths';

/** What was read in a document. The document may have changed since: `changes` lead from there to here. */
export interface Recognition {
    document: Text;
    measure: Measure;
    /** By number of line. */
    lines: ReadonlyMap<number, ExplainedLine>;
    kinds: ReadonlyMap<string, Kind>;
    changes: ChangeSet;
}

/** Shows what was read in the document as it is now; null shows nothing. */
export const setRecognition = StateEffect.define<Omit<Recognition, 'changes'> | null>();

export const recognition = StateField.define<Recognition | null>({
    create: () => null,
    update(value, transaction) {
        let next = value;
        if (next && transaction.docChanged)
            next = { ...next, changes: next.changes.compose(transaction.changes) };
        for (const effect of transaction.effects)
            if (effect.is(setRecognition))
                next = effect.value && {
                    ...effect.value,
                    changes: ChangeSet.empty(effect.value.document.length),
                };
        return next;
    },
});

interface Found {
    from: number;
    to: number;
    kind: string;
}

/** What the reading found between two offsets of the document as it was read, where that now stands. */
function* foundBetween(
    { document, measure, lines, changes }: Recognition,
    from: number,
    to: number,
): Generator<Found> {
    const last = document.lineAt(to).number;
    for (let number = document.lineAt(from).number; number <= last; ++number) {
        const explained = lines.get(number - 1);
        if (!explained) continue;
        const line = document.line(number);
        const columns = new LineColumns(line.text, measure);
        for (const { column, end, kind } of explained.spans) {
            const start = changes.mapPos(line.from + columns.offsetAt(column), 1);
            const stop = changes.mapPos(line.from + columns.endOffsetAt(end), -1);
            if (start < stop) yield { from: start, to: stop, kind };
        }
    }
}

const markOf = new Map<string, Decoration>();
function decorationFor(kind: string): Decoration {
    let mark = markOf.get(kind);
    if (!mark) markOf.set(kind, (mark = Decoration.mark({ class: `read-${kind}` })));
    return mark;
}

/** Colours what is in view alone: a book has a million stretches. */
function decorate(view: EditorView): DecorationSet {
    const builder = new RangeSetBuilder<Decoration>();
    const current = view.state.field(recognition);
    if (!current) return builder.finish();
    const back = current.changes.invertedDesc;
    let reached = 0;
    for (const { from, to } of view.visibleRanges)
        for (const found of foundBetween(current, back.mapPos(from, -1), back.mapPos(to, 1))) {
            if (found.from < reached) continue;
            builder.add(found.from, found.to, decorationFor(found.kind));
            reached = found.to;
        }
    return builder.finish();
}

const colours = ViewPlugin.fromClass(
    class {
        decorations: DecorationSet;
        constructor(view: EditorView) {
            this.decorations = decorate(view);
        }
        update(update: ViewUpdate): void {
            const isNew = update.startState.field(recognition) !== update.state.field(recognition);
            if (isNew || update.docChanged || update.viewportChanged)
                this.decorations = decorate(update.view);
        }
    },
    { decorations: (plugin) => plugin.decorations },
);

/** What a character was read as, in words; null where nothing was read. */
export function nameAt(state: EditorView['state'], offset: number): string | null {
    const found = foundAt(state, offset);
    return found && (state.field(recognition)?.kinds.get(found.kind)?.name ?? null);
}

/** What was said of the line that holds an offset. */
export function notesOfLineAt(state: EditorView['state'], offset: number): string[] {
    const current = state.field(recognition);
    if (!current) return [];
    const line = current.document.lineAt(current.changes.invertedDesc.mapPos(offset, -1)).number - 1;
    return current.lines.get(line)?.notes ?? [];
}

function foundAt(state: EditorView['state'], offset: number): Found | null {
    const current = state.field(recognition);
    if (!current) return null;
    const back = current.changes.invertedDesc.mapPos(offset, 1);
    for (const found of foundBetween(current, back, back))
        if (found.from <= offset && offset < found.to) return found;
    return null;
}

const hover = hoverTooltip((view, offset): Tooltip | null => {
    const found = foundAt(view.state, offset);
    const name = nameAt(view.state, offset);
    if (!found || !name) return null;
    const lines = [name, ...notesOfLineAt(view.state, offset)];
    return {
        pos: found.from,
        end: found.to,
        above: true,
        create: () => {
            const dom = document.createElement('div');
            dom.className = 'read-name';
            for (const line of lines)
                dom.append(Object.assign(document.createElement('div'), { textContent: line }));
            return { dom };
        },
    };
});

/** Colours each character by what it was read as, and names that where the pointer rests. */
export const recognisedText = [recognition, colours, hover];
