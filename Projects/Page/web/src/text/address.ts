/** What a link shares: the tab, what it is called, and how it is read. */
export interface Shared {
    text: string;
    name: string;
    rhythms: string;
    steps: readonly string[];
}

/** Longer links are cut by mail programs and chats, and no longer copied by people. */
export const longestFragment = 64_000;
/** What a link may unpack to; a few kilobytes can hold gigabytes of blanks. */
const longestText = 2_000_000;

const toBase64Url = (bytes: Uint8Array): string => {
    let binary = '';
    for (const byte of bytes) binary += String.fromCharCode(byte);
    return btoa(binary).replaceAll('+', '-').replaceAll('/', '_').replaceAll('=', '');
};

const fromBase64Url = (text: string): Uint8Array =>
    Uint8Array.from(atob(text.replaceAll('-', '+').replaceAll('_', '/')), (character) =>
        character.charCodeAt(0),
    );

const streamOf = (bytes: Uint8Array): ReadableStream<Uint8Array> =>
    new Blob([bytes as Uint8Array<ArrayBuffer>]).stream();

async function collect(stream: ReadableStream<Uint8Array>, limit: number): Promise<Uint8Array> {
    const parts: Uint8Array[] = [];
    let size = 0;
    const reader = stream.getReader();
    for (let part = await reader.read(); !part.done; part = await reader.read()) {
        size += part.value.length;
        if (size > limit) {
            await reader.cancel();
            throw new RangeError('The tab in the link is too long.');
        }
        parts.push(part.value);
    }
    const bytes = new Uint8Array(size);
    let at = 0;
    for (const part of parts) {
        bytes.set(part, at);
        at += part.length;
    }
    return bytes;
}

const compress = (bytes: Uint8Array): Promise<Uint8Array> =>
    collect(
        streamOf(bytes).pipeThrough(
            new CompressionStream('deflate') as TransformStream<Uint8Array, Uint8Array>,
        ),
        Infinity,
    );
const expand = (bytes: Uint8Array): Promise<Uint8Array> =>
    collect(
        streamOf(bytes).pipeThrough(
            new DecompressionStream('deflate') as TransformStream<Uint8Array, Uint8Array>,
        ),
        longestText,
    );

/** The fragment of an address, without "#". The text goes as "z", compressed, or as "t" in a browser that cannot. */
export async function toFragment(shared: Shared): Promise<string> {
    const bytes = new TextEncoder().encode(shared.text);
    const fields = new URLSearchParams();
    fields.set('name', shared.name);
    if (shared.rhythms !== 'indicated') fields.set('rhythms', shared.rhythms);
    if (shared.steps.length > 0) fields.set('prepare', shared.steps.join(','));
    if (typeof CompressionStream === 'undefined') fields.set('t', toBase64Url(bytes));
    else fields.set('z', toBase64Url(await compress(bytes)));
    return fields.toString();
}

/** What a fragment shares; null where it holds no tab. One that is damaged or too long is an error with a sentence. */
export async function fromFragment(fragment: string): Promise<Shared | null> {
    const fields = new URLSearchParams(fragment.replace(/^#/, ''));
    const compressed = fields.get('z');
    const plain = fields.get('t');
    if (compressed === null && plain === null) return null;
    try {
        const bytes = compressed !== null ? await expand(fromBase64Url(compressed)) : fromBase64Url(plain!);
        return {
            text: new TextDecoder().decode(bytes),
            name: fields.get('name') ?? 'untitled.tab',
            rhythms: fields.get('rhythms') ?? 'indicated',
            steps: fields.get('prepare')?.split(',').filter(Boolean) ?? [],
        };
    } catch (error) {
        throw new RangeError(
            error instanceof RangeError
                ? error.message
                : 'The link is damaged: the tab in it cannot be unpacked.',
        );
    }
}
