import type { Options, Result } from 'fretline';
import type { Abilities, Answer, Request } from './protocol';

/** A reading that was given up for a newer one, or by a person. */
export class Cancelled extends Error {}

/** The reading broke down or took too long; the message is a sentence for people. */
export class ReadingFailed extends Error {}

/** What a worker is, seen from here; tests put another in its place. */
export type ReadingWorker = Pick<Worker, 'postMessage' | 'terminate' | 'onmessage' | 'onerror'>;

/** A reading that is replaced by a newer one may run on for so long before its worker is ended. */
const patienceMilliseconds = 300;
const longestMilliseconds = 30_000;

interface Job {
    id: number;
    text: Uint8Array;
    options: Options;
    /** A newer one of these replaces it. */
    isOfTyping: boolean;
    startedAt: number;
    onProgress: ((percent: number) => void) | undefined;
    resolve: (result: Result) => void;
    reject: (error: Error) => void;
}

/**
 * Has texts read in a worker, one at a time. A worker that hangs, or is busy with what nobody wants any more, is ended and
 * another one started: the page itself never waits.
 */
export class Reader {
    /** Settles when the module is loaded. */
    readonly abilities: Promise<Abilities>;
    private worker: ReadingWorker;
    private running: Job | null = null;
    private readonly waiting: Job[] = [];
    private lastId = 0;
    /** Why the module cannot be loaded; nothing is read then. */
    private loadFailure: Error | null = null;
    private deadline: ReturnType<typeof setTimeout> | undefined;
    private settleAbilities!: { resolve: (abilities: Abilities) => void; reject: (error: Error) => void };

    constructor(private readonly makeWorker: () => ReadingWorker) {
        this.abilities = new Promise((resolve, reject) => {
            this.settleAbilities = { resolve, reject };
        });
        this.worker = this.startWorker();
    }

    /** Reads the text as it is being typed: replaces every earlier reading of this kind, which is then Cancelled. */
    readTyped(text: Uint8Array, options: Options, onProgress?: (percent: number) => void): Promise<Result> {
        this.cancelTyped(patienceMilliseconds);
        return this.enqueue(text, options, true, onProgress);
    }

    /** Reads a text for a file; nothing replaces it. */
    convert(text: Uint8Array, options: Options): Promise<Result> {
        return this.enqueue(text, options, false);
    }

    /** Gives up what is being read as it is typed. */
    cancel(): void {
        this.cancelTyped(0);
    }

    private enqueue(
        text: Uint8Array,
        options: Options,
        isOfTyping: boolean,
        onProgress?: (percent: number) => void,
    ): Promise<Result> {
        return new Promise((resolve, reject) => {
            if (this.loadFailure) return reject(this.loadFailure);
            const id = ++this.lastId;
            this.waiting.push({ id, text, options, isOfTyping, startedAt: 0, onProgress, resolve, reject });
            this.startNext();
        });
    }

    private startNext(): void {
        if (this.running) return;
        const job = this.waiting.shift();
        if (!job) return;
        this.running = job;
        job.startedAt = Date.now();
        this.setDeadline(longestMilliseconds, () => {
            this.replaceWorker(new ReadingFailed('This text takes too long to read. Try a part of it.'));
        });
        const { id, text, options } = job;
        this.worker.postMessage({ id, text, options } satisfies Request);
    }

    private cancelTyped(patience: number): void {
        const stale = this.waiting.filter((job) => job.isOfTyping);
        for (const job of stale) {
            this.waiting.splice(this.waiting.indexOf(job), 1);
            job.reject(new Cancelled());
        }
        if (!this.running?.isOfTyping) return;
        const left = this.running.startedAt + patience - Date.now();
        if (left <= 0) this.replaceWorker(new Cancelled());
        else this.setDeadline(left, () => this.replaceWorker(new Cancelled()));
    }

    private setDeadline(milliseconds: number, action: () => void): void {
        clearTimeout(this.deadline);
        this.deadline = setTimeout(action, milliseconds);
    }

    private replaceWorker(reason: Error): void {
        this.worker.terminate();
        this.worker = this.startWorker();
        this.finish((job) => job.reject(reason));
    }

    private finish(settle: (job: Job) => void): void {
        clearTimeout(this.deadline);
        const job = this.running;
        this.running = null;
        if (job) settle(job);
        this.startNext();
    }

    private startWorker(): ReadingWorker {
        const worker = this.makeWorker();
        worker.onmessage = ({ data }: MessageEvent<Answer>) => this.take(data);
        worker.onerror = (event) => this.failToLoad(event instanceof ErrorEvent ? event.message : '');
        return worker;
    }

    private take(answer: Answer): void {
        if (answer.type === 'ready') this.settleAbilities.resolve(answer.abilities);
        else if (answer.type === 'failed' && answer.id === null) this.failToLoad(answer.message);
        else if (answer.id !== this.running?.id) return;
        else if (answer.type === 'progress') this.running.onProgress?.(answer.percent);
        else if (answer.type === 'result') this.finish((job) => job.resolve(answer.result));
        else this.replaceAfterCrash(answer.message);
    }

    private failToLoad(message: string): void {
        const failure = new ReadingFailed(`The reading could not be loaded. ${message}`.trim());
        this.loadFailure = failure;
        this.settleAbilities.reject(failure);
        for (const job of this.waiting.splice(0)) job.reject(failure);
        this.finish((job) => job.reject(failure));
    }

    /** A module that threw may have broken off anywhere; it is not used again. */
    private replaceAfterCrash(message: string): void {
        if (this.running) this.replaceWorker(new ReadingFailed(`The reading broke off. ${message}`.trim()));
    }
}
