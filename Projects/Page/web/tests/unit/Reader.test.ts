import type { Result } from 'fretline';
import { afterEach, beforeEach, describe, expect, it, vi } from 'vitest';
import type { Answer, Request } from '../../src/worker/protocol';
import { Cancelled, Reader, ReadingFailed, type ReadingWorker } from '../../src/worker/Reader';

class FakeWorker implements ReadingWorker {
    onmessage: ReadingWorker['onmessage'] = null;
    onerror: ReadingWorker['onerror'] = null;
    asked: Request[] = [];
    isEnded = false;
    postMessage(request: Request): void {
        this.asked.push(request);
    }
    terminate(): void {
        this.isEnded = true;
    }
    answer(answer: Answer): void {
        this.onmessage?.call(this as unknown as Worker, { data: answer } as MessageEvent<Answer>);
    }
    finish(messages: string[] = []): void {
        this.answer({ type: 'result', id: this.asked.at(-1)!.id, result: { messages } as unknown as Result });
    }
}

const text = Uint8Array.of(0x65);

describe('Reader', () => {
    let workers: FakeWorker[];
    let reader: Reader;
    const worker = (): FakeWorker => workers.at(-1)!;

    beforeEach(() => {
        vi.useFakeTimers();
        workers = [];
        reader = new Reader(() => {
            workers.push(new FakeWorker());
            return worker();
        });
    });
    afterEach(() => vi.useRealTimers());

    it('gives a worker one text at a time', async () => {
        const first = reader.convert(text, { name: 'a' });
        const second = reader.convert(text, { name: 'b' });
        expect(worker().asked.map(({ options }) => options.name)).toEqual(['a']);
        worker().finish(['first']);
        worker().finish(['second']);
        expect((await first).messages).toEqual(['first']);
        expect((await second).messages).toEqual(['second']);
    });

    it('gives up what was typed over: at once while it waits, after a moment while it runs', async () => {
        const running = reader.readTyped(text, { name: '1' });
        const waiting = reader.readTyped(text, { name: '2' });
        const newest = reader.readTyped(text, { name: '3' });
        await expect(waiting).rejects.toThrow(Cancelled);
        expect(worker().isEnded).toBe(false);
        const given = expect(running).rejects.toThrow(Cancelled);
        await vi.advanceTimersByTimeAsync(1000);
        await given;
        expect(workers.map(({ isEnded }) => isEnded)).toEqual([true, false]);
        expect(worker().asked.map(({ options }) => options.name)).toEqual(['3']);
        worker().finish(['3']);
        expect((await newest).messages).toEqual(['3']);
    });

    it('keeps a download while the text is typed on', async () => {
        const download = reader.convert(text, {});
        reader.readTyped(text, {}).catch(() => {});
        reader.cancel();
        expect(worker().isEnded).toBe(false);
        worker().finish(['file']);
        expect((await download).messages).toEqual(['file']);
    });

    it('starts another worker after one that broke off, hung, or was cancelled', async () => {
        const broken = reader.convert(text, {});
        worker().answer({ type: 'failed', id: worker().asked[0]!.id, message: 'out of memory' });
        await expect(broken).rejects.toThrow('The reading broke off. out of memory');
        expect(workers).toHaveLength(2);

        const hanging = expect(reader.convert(text, {})).rejects.toThrow('takes too long');
        await vi.advanceTimersByTimeAsync(60_000);
        await hanging;
        expect(workers).toHaveLength(3);

        const unwanted = reader.readTyped(text, {});
        reader.cancel();
        await expect(unwanted).rejects.toThrow(Cancelled);
        expect(workers).toHaveLength(4);
    });

    it('says that the module cannot be loaded, to whoever waits and whoever comes', async () => {
        const waiting = reader.convert(text, {});
        worker().answer({ type: 'failed', id: null, message: 'no such file' });
        await expect(reader.abilities).rejects.toThrow('could not be loaded. no such file');
        await expect(waiting).rejects.toThrow(ReadingFailed);
        await expect(reader.readTyped(text, {})).rejects.toThrow(ReadingFailed);
        expect(workers).toHaveLength(1);
    });
});
