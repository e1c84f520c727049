import type { Result } from 'fretline';

const counted = (count: number, word: string): string => `${count} ${word}${count === 1 ? '' : 's'}`;

/** What was read, in one line: "12 bars, 96 notes, 2 doubts". */
export function summaryOf({ json }: Result): string {
    const doubts = (json.doubts ?? []).length as number;
    // Bars of parts that sound together are counted once.
    const bars: number = json.partsTogether?.[0].bars.length ?? json.barCount;
    const words = [counted(bars, 'bar'), counted(json.notesStruck, 'note')];
    if (doubts > 0) words.push(counted(doubts, 'doubt'));
    return words.join(', ');
}

interface Part {
    name: string;
    tuning: { name: string | null; strings: string };
}

/** What was read of the instruments, for those who look closer. */
export function instrumentOf({ json }: Result): string {
    const parts: Part[] = json.partsTogether ?? [{ name: json.instrument, tuning: json.tuning }];
    const instruments = parts.map(({ name, tuning }) =>
        tuning.name ? `${name}, ${tuning.name} tuning` : `${name}, tuned ${tuning.strings}`,
    );
    return `${instruments.join('; ')}, ${json.rhythms ? 'rhythms read' : 'rhythms not read'}`;
}

/** Why the text gave no score, as a sentence. */
export function refusalOf({ json }: Result): string {
    const reason = String(json.reason ?? 'could not be read');
    const sentence = /^(is|has|holds|was|could|cannot) /.test(reason) ? `This text ${reason}` : reason;
    return `${sentence.charAt(0).toUpperCase()}${sentence.slice(1)}${/[.!?]$/.test(sentence) ? '' : '.'}`;
}
