import type { NotePlace } from 'fretline';

/** What this needs to know of an engraved note. */
export interface EngravedNote {
    /** Lowest string first, from 1. */
    string: number;
    beat: { playbackStart: number; voice: { bar: { index: number; staff: { track: { index: number } } } } };
}

const unitsPerQuarter = 256;
const ticksPerQuarter = 960;
/** Triplets and the like are rounded, on both sides; nothing that is struck lies closer than this. */
const tolerance = 12;

function groupBy<Item>(items: readonly Item[], keyOf: (item: Item) => number): Map<number, Item[]> {
    const groups = new Map<number, Item[]>();
    for (const item of items) {
        const key = keyOf(item);
        const group = groups.get(key);
        if (group) group.push(item);
        else groups.set(key, [item]);
    }
    return groups;
}

const positionOf = ({ beat }: EngravedNote): number =>
    (beat.playbackStart * unitsPerQuarter) / ticksPerQuarter;

/** Which engraved note stands where in the text, and the other way round. */
export class NotePlaces<Note extends EngravedNote> {
    private readonly places = new Map<Note, NotePlace>();
    private readonly taken = new Set<NotePlace>();
    private readonly notesOfLine = new Map<number, { place: NotePlace; note: Note }[]>();

    constructor(notes: readonly Note[], places: readonly NotePlace[]) {
        const placesByPart = groupBy(places, (place) => place.part);
        for (const [part, group] of groupBy(notes, (note) => note.beat.voice.bar.staff.track.index))
            this.joinPart(group, placesByPart.get(part) ?? []);
    }

    get count(): number {
        return this.places.size;
    }

    /** Null for a note that the text does not show by itself. */
    placeOf(note: Note): NotePlace | null {
        return this.places.get(note) ?? null;
    }

    /** The note at a column, or at the end of one, as a cursor stands there. */
    noteAt(line: number, column: number): Note | null {
        const notes = this.notesOfLine.get(line) ?? [];
        const at = notes.find(({ place }) => place.column <= column && column < place.end);
        return (at ?? notes.find(({ place }) => place.end === column))?.note ?? null;
    }

    /** All notes of a stretch of the text, lines and columns from the first to before the last. */
    notesBetween(fromLine: number, fromColumn: number, toLine: number, toColumn: number): Note[] {
        const found: Note[] = [];
        for (const [line, notes] of this.notesOfLine)
            for (const { place, note } of notes) {
                if (line < fromLine || line > toLine) continue;
                if (line === fromLine && place.end <= fromColumn) continue;
                if (line === toLine && place.column >= toColumn) continue;
                found.push(note);
            }
        return found;
    }

    private joinPart(notes: readonly Note[], places: readonly NotePlace[]): void {
        const placesByBar = groupBy(places, (place) => place.bar);
        for (const [bar, group] of groupBy(notes, (note) => note.beat.voice.bar.index))
            this.joinBar(group, placesByBar.get(bar) ?? []);
    }

    private joinBar(notes: readonly Note[], places: readonly NotePlace[]): void {
        const placesByString = groupBy(places, (place) => place.string);
        for (const [string, group] of groupBy(notes, (note) => note.string - 1))
            this.joinInTime(group, placesByString.get(string) ?? []);
        // A stave with other strings than the score's is engraved on such as the score has.
        this.joinInTime(
            notes.filter((note) => !this.places.has(note)),
            places.filter((place) => !this.taken.has(place)),
        );
    }

    private joinInTime(notes: readonly Note[], places: readonly NotePlace[]): void {
        // A pick-up is engraved without the rest that it begins with, so that its notes stand elsewhere in the bar.
        const areEqual = notes.length === places.length;
        const inOrder = [...places].sort((a, b) => a.position - b.position || a.string - b.string);
        const notesInOrder = [...notes].sort((a, b) => positionOf(a) - positionOf(b) || a.string - b.string);
        notesInOrder.forEach((note, index) => {
            const isNear = (place: NotePlace): boolean =>
                !this.taken.has(place) && Math.abs(place.position - positionOf(note)) <= tolerance;
            const place = areEqual ? inOrder[index] : inOrder.find(isNear);
            if (place) this.join(note, place);
        });
    }

    private join(note: Note, place: NotePlace): void {
        this.places.set(note, place);
        this.taken.add(place);
        const notes = this.notesOfLine.get(place.line);
        if (notes) notes.push({ place, note });
        else this.notesOfLine.set(place.line, [{ place, note }]);
    }
}
