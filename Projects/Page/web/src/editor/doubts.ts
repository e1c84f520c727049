import { lintGutter, setDiagnostics, type Diagnostic } from '@codemirror/lint';
import type { EditorState, TransactionSpec } from '@codemirror/state';
import type { Measure } from '../text/widths';
import { rangeOf } from './places';

/** Something that was read and is probably not meant so. Lines and columns count from 1, as the reading gives them. */
export interface Doubt {
    line: number;
    column: number;
    endColumn: number;
    what: string;
    try: string;
}

const sentence = (text: string): string => {
    const capital = text.charAt(0).toUpperCase() + text.slice(1);
    return /[.!?]$/.test(capital) ? capital : `${capital}.`;
};

/** What was done and what to try, in sentences. */
export const wordsOf = (doubt: Doubt): { what: string; attempt: string } => ({
    what: sentence(doubt.what),
    attempt: doubt.try ? sentence(doubt.try) : '',
});

function diagnosticOf(state: EditorState, measure: Measure, doubt: Doubt): Diagnostic | null {
    const stretch = {
        line: doubt.line - 1,
        column: doubt.column - 1,
        end: Math.max(doubt.endColumn - 1, doubt.column),
    };
    const range = rangeOf(state.doc, measure, stretch);
    if (!range) return null;
    const { what, attempt } = wordsOf(doubt);
    return {
        ...range,
        severity: 'warning',
        message: `${what} ${attempt}`.trim(),
        renderMessage: () => {
            const dom = document.createElement('div');
            dom.append(Object.assign(document.createElement('p'), { textContent: what }));
            if (attempt) dom.append(Object.assign(document.createElement('p'), { textContent: attempt }));
            return dom;
        },
    };
}

/** Underlines the doubtful places of the document and marks their lines in the margin. */
export function showDoubts(state: EditorState, measure: Measure, doubts: readonly Doubt[]): TransactionSpec {
    const diagnostics = doubts
        .map((doubt) => diagnosticOf(state, measure, doubt))
        .filter((diagnostic) => diagnostic !== null);
    return setDiagnostics(state, diagnostics);
}

export const doubtMargin = lintGutter({ hoverTime: 200 });
