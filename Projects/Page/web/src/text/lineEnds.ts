/** What ends a line of a file. The editor itself knows line feeds alone. */
export type LineEnd = '\n' | '\r\n' | '\r' | '\n\r';

const anyLineEnd = /\r\n|\n\r|\r|\n/g;

/** The same lines as the reading sees: CR, LF, CR LF and LF CR each end one. */
export const withLineFeeds = (text: string): string =>
    text.includes('\r') ? text.replace(anyLineEnd, '\n') : text;

export const withLineEnds = (text: string, lineEnd: LineEnd): string =>
    lineEnd === '\n' ? text : text.replaceAll('\n', lineEnd);

/** The first line end of the text; a line feed where there is none. */
export const lineEndOf = (text: string): LineEnd => (text.match(/\r\n|\n\r|\r|\n/)?.[0] ?? '\n') as LineEnd;
