import { describe, expect, it } from 'vitest';
import { fromFragment, toFragment } from '../../src/text/address';
import { longestInput, whyNotOpened, whyNotRead } from '../../src/text/checkInput';
import { decode, encode, encodingFor } from '../../src/text/encoding';
import { lineEndOf, withLineEnds, withLineFeeds } from '../../src/text/lineEnds';

const bytes = (...values: number[]): Uint8Array => Uint8Array.from(values);

describe('encoding', () => {
    it.each([
        { why: 'plain ASCII', file: bytes(0x65, 0x7c), text: 'e|', encoding: 'utf-8' },
        { why: 'UTF-8', file: bytes(0xc3, 0xa9), text: 'é', encoding: 'utf-8' },
        {
            why: 'a mark of UTF-8 keeps its columns',
            file: bytes(0xef, 0xbb, 0xbf, 0x65),
            text: '\ufeffe',
            encoding: 'utf-8',
        },
        {
            why: 'a dash of the code page',
            file: bytes(0x96, 0xe9, 0x81),
            text: '–é\u0081',
            encoding: 'windows-1252',
        },
    ])('comes back as it was: $why', ({ file, text, encoding }) => {
        const decoded = decode(file);
        expect(decoded).toEqual({ text, encoding });
        expect(encode(decoded.text, decoded.encoding)).toEqual(file);
    });

    it('reads UTF-16 by its mark', () => {
        expect(decode(bytes(0xff, 0xfe, 0x65, 0, 0x7c, 0))).toEqual({ text: 'e|', encoding: 'utf-8' });
        expect(decode(bytes(0xfe, 0xff, 0, 0x65)).text).toBe('e');
    });

    it('goes over to UTF-8 for a character that the code page lacks', () => {
        expect(encodingFor('é–', 'windows-1252')).toBe('windows-1252');
        expect(encodingFor('é─', 'windows-1252')).toBe('utf-8');
    });
});

describe('line ends', () => {
    it.each([
        { file: 'a\r\nb\r\n', lineEnd: '\r\n' },
        { file: 'a\rb\r', lineEnd: '\r' },
        { file: 'a\n\rb\n\r', lineEnd: '\n\r' },
        { file: 'a\nb\n', lineEnd: '\n' },
    ] as const)('become line feeds and come back: $lineEnd', ({ file, lineEnd }) => {
        expect(withLineFeeds(file)).toBe('a\nb\n');
        expect(lineEndOf(file)).toBe(lineEnd);
        expect(withLineEnds('a\nb\n', lineEnd)).toBe(file);
    });

    it('keeps blank lines', () => {
        expect(withLineFeeds('a\r\n\r\nb\r\rc\n\nd')).toBe('a\n\nb\n\nc\n\nd');
    });
});

describe('address', () => {
    const shared = {
        text: 'e|--3--|\nB|--é─--|\n',
        name: 'my song & more.tab',
        rhythms: 'always',
        steps: ['ascii', 'digits'],
    };

    it('brings back what it shares', async () => {
        const fragment = await toFragment(shared);
        expect(fragment).toMatch(/^[\w.%&=+-]+$/);
        expect(await fromFragment(`#${fragment}`)).toEqual(shared);
    });

    it('reads a text that is not compressed', async () => {
        expect(await fromFragment('#t=ZXwtLTM')).toEqual({
            text: 'e|--3',
            name: 'untitled.tab',
            rhythms: 'indicated',
            steps: [],
        });
    });

    it('says what is wrong with a link', async () => {
        expect(await fromFragment('#elsewhere')).toBeNull();
        await expect(fromFragment('#z=AAAA')).rejects.toThrow('damaged');
        await expect(fromFragment('#z=%%%')).rejects.toThrow('damaged');
        const blanks = await toFragment({ ...shared, text: ' '.repeat(3_000_000) });
        expect(blanks.length).toBeLessThan(10_000);
        await expect(fromFragment(blanks)).rejects.toThrow('too long');
    });
});

describe('input that is not taken', () => {
    it('has a sentence each', () => {
        expect(whyNotOpened('song.tab', bytes(0x65, 0x7c))).toBeNull();
        expect(whyNotOpened('song.gp', bytes(0x50, 0x4b, 0, 0))).toContain('song.gp is no text file');
        expect(whyNotOpened('wide.tab', bytes(0xff, 0xfe, 0x65, 0))).toBeNull();
        expect(whyNotOpened('big.tab', new Uint8Array(5_000_000).fill(0x2d))).toContain(
            '5.0 MB. The page takes up to 2.0 MB',
        );
        expect(whyNotRead(' \n\t', 3)).toContain('no text yet');
        expect(whyNotRead('e|--3--|', 8)).toBeNull();
        expect(whyNotRead('e|--3--|', longestInput + 1)).toContain('up to 2.0 MB');
    });
});
