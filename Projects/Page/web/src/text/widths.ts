import { byteLength, type Encoding } from './encoding';

/**
 * What a column counts: a byte of the encoded text, or, in a text whose characters were made ASCII before it was read,
 * a character as wide as it stands there.
 */
export type Measure = Encoding | 'characters';

// As the preparation of texts has them.
const withoutWidth =
    /^[\u0300-\u036f\u1ab0-\u1aff\u1dc0-\u1dff\u200b-\u200f\u202a-\u202e\u2060-\u2064\u20d0-\u20ff\ufe00-\ufe0f\ufe20-\ufe2f\ufeff]$/;
const wide =
    /^[\u1100-\u115f\u2e80-\u303e\u3041-\ua4cf\uac00-\ud7a3\uf900-\ufaff\ufe30-\ufe6f\uff01-\uff60\uffe0-\uffe6\u{1f300}-\u{1f64f}\u{1f680}-\u{1f6ff}\u{1f900}-\u{1f9ff}\u{20000}-\u{3fffd}]$/u;

/** How many columns a character takes. */
export function widthOf(character: string, measure: Measure): number {
    if (measure !== 'characters') return byteLength(character.codePointAt(0)!, measure);
    if (withoutWidth.test(character)) return 0;
    return wide.test(character) ? 2 : 1;
}
