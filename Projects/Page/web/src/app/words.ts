import type { Result } from 'fretline';

const counted = (count: number, word: string): string => `${count} ${word}${count === 1 ? '' : 's'}`;

/** What was read, in one line: "12 bars, 96 notes, 2 doubts". */
export function summaryOf({ json }: Result): string {
    const doubts = (json.doubts ?? []).length as number;
    const parts = [counted(json.barCount, 'bar'), counted(json.notesStruck, 'note')];
    if (doubts > 0) parts.push(counted(doubts, 'doubt'));
    return parts.join(', ');
}

/** What was read of the instrument, for those who look closer. */
export function instrumentOf({ json }: Result): string {
    const tuning = json.tuning.name ? `${json.tuning.name} tuning` : `tuned ${json.tuning.strings}`;
    return `${json.instrument}, ${tuning}, ${json.rhythms ? 'rhythms read' : 'rhythms not read'}`;
}

/** Why the text gave no score, as a sentence. */
export function refusalOf({ json }: Result): string {
    const reason = String(json.reason ?? 'could not be read');
    const sentence = /^(is|has|holds|was|could|cannot) /.test(reason) ? `This text ${reason}` : reason;
    return `${sentence.charAt(0).toUpperCase()}${sentence.slice(1)}${/[.!?]$/.test(sentence) ? '' : '.'}`;
}
