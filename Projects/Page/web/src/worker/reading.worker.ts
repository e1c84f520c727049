import load, { type Fretline } from 'fretline';
import type { Answer, Request } from './protocol';

const send = (answer: Answer): void => self.postMessage(answer);
const messageOf = (error: unknown): string => (error instanceof Error ? error.message : String(error));

const loaded: Promise<Fretline | null> = load().then(
    (fretline) => {
        const { version, formats, steps, kinds } = fretline;
        send({ type: 'ready', abilities: { version, formats, steps, kinds } });
        return fretline;
    },
    (error: unknown) => {
        send({ type: 'failed', id: null, message: messageOf(error) });
        return null;
    },
);

self.addEventListener('message', async ({ data }: MessageEvent<Request>) => {
    const fretline = await loaded;
    if (!fretline) return;
    const { id, text, options } = data;
    try {
        const onProgress = (percent: number): void => send({ type: 'progress', id, percent });
        send({ type: 'result', id, result: fretline.convert(text, { ...options, onProgress }) });
    } catch (error) {
        send({ type: 'failed', id, message: messageOf(error) });
    }
});
