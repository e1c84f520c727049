/** How the bytes of a file stand for its characters. */
export type Encoding = 'utf-8' | 'windows-1252';

/** What was decoded from a file, and how to encode it again. */
export interface DecodedText {
    text: string;
    encoding: Encoding;
}

const utf16LittleEndianMark = [0xff, 0xfe];
const utf16BigEndianMark = [0xfe, 0xff];

const startsWith = (bytes: Uint8Array, mark: readonly number[]): boolean =>
    mark.every((byte, index) => bytes[index] === byte);

/**
 * UTF-8 where the bytes are well-formed UTF-8, else windows-1252, which takes any bytes. UTF-16 is recognised by its
 * byte order mark and goes on as UTF-8. A byte order mark of UTF-8 stays in the text, as it takes up columns.
 */
export function decode(bytes: Uint8Array): DecodedText {
    if (startsWith(bytes, utf16LittleEndianMark))
        return { text: new TextDecoder('utf-16le').decode(bytes), encoding: 'utf-8' };
    if (startsWith(bytes, utf16BigEndianMark))
        return { text: new TextDecoder('utf-16be').decode(bytes), encoding: 'utf-8' };
    try {
        return {
            text: new TextDecoder('utf-8', { fatal: true, ignoreBOM: true }).decode(bytes),
            encoding: 'utf-8',
        };
    } catch {
        return { text: Array.from(bytes, windowsCharacter).join(''), encoding: 'windows-1252' };
    }
}

// Some versions of Node decode these as Latin-1, so they are written out.
const windowsFrom80 =
    '\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\u008d\u017d\u008f\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\u009d\u017e\u0178';

const windowsCharacter = (byte: number): string =>
    byte >= 0x80 && byte < 0xa0 ? windowsFrom80[byte - 0x80]! : String.fromCharCode(byte);

const byteOfWindowsCharacter: ReadonlyMap<string, number> = new Map(
    Array.from({ length: 256 }, (_, byte) => [windowsCharacter(byte), byte]),
);

/** The encoding that can hold the text: a character that windows-1252 lacks needs UTF-8. */
export function encodingFor(text: string, wanted: Encoding): Encoding {
    if (wanted === 'utf-8') return wanted;
    for (const character of text) if (!byteOfWindowsCharacter.has(character)) return 'utf-8';
    return wanted;
}

/** The bytes of the text, in an encoding that `encodingFor` gave. */
export function encode(text: string, encoding: Encoding): Uint8Array {
    if (encoding === 'utf-8') return new TextEncoder().encode(text);
    return Uint8Array.from(text, (character) => byteOfWindowsCharacter.get(character) ?? '?'.charCodeAt(0));
}

/** How many bytes a character takes. */
export function byteLength(codePoint: number, encoding: Encoding): number {
    if (encoding === 'windows-1252' || codePoint < 0x80) return 1;
    if (codePoint < 0x800) return 2;
    return codePoint < 0x10000 ? 3 : 4;
}
