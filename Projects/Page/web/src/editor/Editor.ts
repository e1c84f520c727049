import { defaultKeymap, history, historyKeymap } from '@codemirror/commands';
import { lintKeymap } from '@codemirror/lint';
import { highlightSelectionMatches, searchKeymap } from '@codemirror/search';
import { Annotation, EditorState } from '@codemirror/state';
import {
    drawSelection,
    EditorView,
    highlightActiveLine,
    highlightActiveLineGutter,
    highlightSpecialChars,
    keymap,
    lineNumbers,
} from '@codemirror/view';
import type { ExplainedLine, Kind } from 'fretline';
import type { Measure } from '../text/widths';
import { doubtMargin, showDoubts, type Doubt } from './doubts';
import { placeAt, rangeOf, type Range, type Stretch } from './places';
import { playedNotes, setPlayed } from './played';
import { nameAt, notesOfLineAt, recognisedText, setRecognition } from './recognised';

export interface EditorEvents {
    /** The text was changed by a person. */
    changed(): void;
    /** The cursor or the selection was moved by a person. */
    moved(): void;
}

/** What the editor shows of a reading. */
export interface Shown {
    measure: Measure;
    lines: readonly ExplainedLine[];
    kinds: readonly Kind[];
    doubts: readonly Doubt[];
}

/** Marks what the page itself does to the editor, which is not told as a person's doing. */
const byPage = Annotation.define<boolean>();

/** The text, coloured by what it was read as. Tab leaves it, as it leaves any other field. */
export class Editor {
    private readonly view: EditorView;
    private measure: Measure = 'utf-8';

    constructor(
        parent: HTMLElement,
        label: string,
        private readonly events: EditorEvents,
    ) {
        this.view = new EditorView({
            parent,
            state: EditorState.create({
                extensions: [
                    lineNumbers(),
                    doubtMargin,
                    highlightActiveLineGutter(),
                    highlightActiveLine(),
                    highlightSpecialChars(),
                    highlightSelectionMatches(),
                    history(),
                    drawSelection(),
                    EditorState.tabSize.of(8),
                    recognisedText,
                    playedNotes,
                    keymap.of([...defaultKeymap, ...historyKeymap, ...searchKeymap, ...lintKeymap]),
                    EditorView.contentAttributes.of({
                        'aria-label': label,
                        tabindex: '0',
                        spellcheck: 'false',
                        autocapitalize: 'off',
                        autocorrect: 'off',
                    }),
                    EditorView.updateListener.of((update) => {
                        const isOurs = update.transactions.some((transaction) =>
                            transaction.annotation(byPage),
                        );
                        if (isOurs) return;
                        if (update.docChanged) this.events.changed();
                        else if (update.selectionSet) this.events.moved();
                    }),
                ],
            }),
        });
    }

    get text(): string {
        return this.view.state.doc.toString();
    }

    /** Puts another text in the place of the whole; a person can undo it. */
    replaceText(text: string): void {
        this.view.dispatch({
            changes: { from: 0, to: this.view.state.doc.length, insert: text },
            selection: { anchor: 0 },
            effects: [setRecognition.of(null), EditorView.scrollIntoView(0)],
            annotations: byPage.of(true),
        });
    }

    /** Shows what was read in the text as it stands. */
    show({ measure, lines, kinds, doubts }: Shown): void {
        this.measure = measure;
        const recognised = {
            document: this.view.state.doc,
            measure,
            lines: new Map(lines.map((line) => [line.line, line])),
            kinds: new Map(kinds.map((kind) => [kind.id, kind])),
        };
        this.view.dispatch({ effects: setRecognition.of(recognised) });
        this.view.dispatch(showDoubts(this.view.state, measure, doubts));
    }

    /** The lines and columns of the selection; equal ends for a cursor. */
    get selection(): { from: { line: number; column: number }; to: { line: number; column: number } } {
        const { from, to } = this.view.state.selection.main;
        const document = this.view.state.doc;
        return { from: placeAt(document, this.measure, from), to: placeAt(document, this.measure, to) };
    }

    /** What stands at the cursor, in words; empty where nothing was read. */
    get wordsAtCursor(): string {
        const { from } = this.view.state.selection.main;
        const { line, column } = placeAt(this.view.state.doc, this.measure, from);
        const words = [nameAt(this.view.state, from), ...notesOfLineAt(this.view.state, from)].filter(
            Boolean,
        );
        return [`Line ${line + 1}, column ${column + 1}`, ...words].join(' · ');
    }

    select(stretch: Stretch, focus: boolean): void {
        const range = this.rangeOf(stretch);
        if (!range) return;
        this.view.dispatch({
            selection: { anchor: range.from, head: range.to },
            effects: EditorView.scrollIntoView(range.from, {
                y: 'nearest',
                yMargin: 60,
                x: 'nearest',
                xMargin: 60,
            }),
            annotations: byPage.of(true),
        });
        if (focus) this.view.focus();
    }

    /** Marks the notes that sound now, and keeps the first of them in view. */
    showPlayed(stretches: readonly Stretch[]): void {
        const ranges = stretches.map((stretch) => this.rangeOf(stretch)).filter((range) => range !== null);
        const follow = ranges[0]
            ? [
                  EditorView.scrollIntoView(ranges[0].from, {
                      y: 'nearest',
                      yMargin: 80,
                      x: 'nearest',
                      xMargin: 80,
                  }),
              ]
            : [];
        this.view.dispatch({ effects: [setPlayed.of(ranges), ...follow], annotations: byPage.of(true) });
    }

    focus(): void {
        this.view.focus();
    }

    private rangeOf(stretch: Stretch): Range | null {
        return rangeOf(this.view.state.doc, this.measure, stretch);
    }
}
