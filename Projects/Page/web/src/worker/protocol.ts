import type { Format, Kind, Options, Result, Step } from 'fretline';

/** What the page asks the worker. Each question has a number, which the answer repeats. */
export interface Request {
    id: number;
    text: Uint8Array;
    options: Options;
}

/** What the module can do, said once it is loaded. */
export interface Abilities {
    version: string;
    formats: Format[];
    steps: Step[];
    kinds: Kind[];
}

export type Answer =
    | { type: 'ready'; abilities: Abilities }
    | { type: 'progress'; id: number; percent: number }
    | { type: 'result'; id: number; result: Result }
    /** `id` is null where the module could not be loaded. */
    | { type: 'failed'; id: number | null; message: string };
