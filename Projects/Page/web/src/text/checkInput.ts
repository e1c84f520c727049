/** Longer texts take seconds and gigabytes; a book of tabs has a tenth of that. */
export const longestInput = 2_000_000;

const inMegabytes = (bytes: number): string => `${(bytes / 1e6).toFixed(1)} MB`;

/** NUL stands in no text, but in UTF-16, which has its mark in front. */
const isBinary = (bytes: Uint8Array): boolean => {
    const hasUtf16Mark = (bytes[0] === 0xff && bytes[1] === 0xfe) || (bytes[0] === 0xfe && bytes[1] === 0xff);
    return !hasUtf16Mark && bytes.includes(0);
};

/** Why a file of `size` bytes, or what is known of them yet, cannot be opened, as a sentence for people; null where it can. */
export function whyNotOpened(name: string, bytes: Uint8Array, size = bytes.length): string | null {
    if (size > longestInput)
        return `${name} has ${inMegabytes(size)}. The page takes up to ${inMegabytes(longestInput)}: split it, or use the command line, which has no limit.`;
    if (isBinary(bytes)) return `${name} is no text file. A tab is plain text, as a text editor shows it.`;
    return null;
}

/** Why a text is not given to the reading, as a sentence for people; null where it is. */
export function whyNotRead(text: string, byteCount: number): string | null {
    if (text.trim() === '') return 'There is no text yet. Paste a tab, drop a file here, or open an example.';
    if (byteCount > longestInput)
        return `The text has ${inMegabytes(byteCount)}. The page takes up to ${inMegabytes(longestInput)}.`;
    return null;
}
