/** Opens plain-text guitar and bass tabs as scores: the command line's program, in a browser or in Node. */

export type FormatName = 'nvf' | 'musicxml' | 'mid' | 'ly' | 'html' | 'txt' | 'json';

export interface Options {
  /** What the text is called; its title, and "file" in the JSON. Default: "untitled.tab". */
  name?: string;
  /** How far rhythms are to be imported, as --rhythms. Default: "indicated". */
  rhythms?: 'never' | 'indicated' | 'always';
  /** Names of preparation steps, as --prepare. Absent or empty: the text is opened as it is. */
  prepare?: readonly string[];
  /** The staves of the LilyPond text, as --layout. Default: "both". */
  layout?: 'tab' | 'notes' | 'both';
  /** The files to write. Default: musicxml, mid, ly and nvf. */
  formats?: readonly FormatName[];
  /** Hears how far the conversion is, from 0 to 100; false cancels it. What it throws, convert throws. */
  onProgress?: (percent: number) => boolean | void;
}

/**
 * A stretch of a line and what it was taken for: the id of a Kind. Columns count from 0 in the bytes of the
 * original text, tabs reaching to columns of eight. In a text that was prepared they count characters, wide ones
 * as two; in a text of ASCII that is the same.
 */
export interface Span {
  column: number;
  end: number;
  kind: string;
}

/** One line of the original text about which there is something to say. `line` counts from 0. */
export interface ExplainedLine {
  line: number;
  spans: Span[];
  /** Why it was ignored, for example. */
  notes: string[];
}

/** A struck note and the characters that it comes from, counted as those of a Span. */
export interface NotePlace {
  line: number;
  column: number;
  end: number;
  /** Part of the exported score (json.partsTogether), counted from 0. */
  part: number;
  /** Bar of that part, counted from 0. */
  bar: number;
  /** Score units (1024 to the whole note) from the start of the bar. */
  position: number;
  /** The same from the start of the piece. */
  tick: number;
  /** 0 for the lowest string. */
  string: number;
}

/** What a stretch can be taken for; `sign` stands for it where there is no colour. */
export interface Kind {
  id: string;
  name: string;
  sign: string;
}

export interface Step {
  name: string;
  /** A sentence without full stop. */
  does: string;
  isOnByDefault: boolean;
}

export interface Format {
  name: FormatName;
  /** With its dot. */
  extension: string;
  description: string;
  isText: boolean;
}

export interface Prepared {
  text: Uint8Array;
  /** For people, as --prepare and --explain print it; empty when nothing was changed. */
  changes: string;
  /** Lines that were changed, added or removed. */
  changedLines: number;
}

export interface Result {
  /** A score was made. */
  taken: boolean;
  cancelled: boolean;
  /** The object that --json prints, also for a text that was not taken ("reason" says why). */
  json: any;
  jsonText: string;
  /** Those that were asked for; none when the text was not taken. */
  files: Partial<Record<FormatName, Uint8Array>>;
  lines: ExplainedLine[];
  /** In order of tick; a note that several parts play is there for each. */
  notes: NotePlace[];
  /** Names of the preparation steps that would change something, when none was asked for. */
  helpful: string[];
  /** Null when no step was asked for. */
  prepared: Prepared | null;
  messages: string[];
}

export interface Fretline {
  version: string;
  formats: Format[];
  steps: Step[];
  kinds: Kind[];
  /**
   * Opens a text; a string is taken as UTF-8. Throws a TypeError for an option of a wrong type and a RangeError for
   * a word that is not known, and nothing else of its own. Not to be called from onProgress.
   */
  convert(text: Uint8Array | string, options?: Options): Result;
}

/**
 * Starts the program. Without `wasm`, fretline-module.wasm beside this file is read; else it is the bytes of that
 * file, or where they are to be had.
 */
export default function load(options?: { wasm?: Uint8Array | ArrayBuffer | URL | string }): Promise<Fretline>;
