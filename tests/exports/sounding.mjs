// Collects what a program understood of a score and prints it in the lines of ScoreLines.cpp: pieces that are tied are one
// sounding note, rests that follow each other one rest.
export class Sounding {
    #bars = [];
    // Of the notes that are tied on, by string, fret and pitch.
    #open = new Map();

    bar(marks) {
        this.#bars.push({ marks, length: 0, chords: [], sounds: [] });
    }

    // At the present time, or `offset` units after it.
    chord(name, offset = 0) {
        const bar = this.#bars.at(-1);
        bar.chords.push(`chord ${name} at ${bar.length + offset}`);
    }

    // A chord or a rest (no notes). A note has string, text ("5:3:48"), marks ("=hv"), and whether ties lead to it and
    // from it.
    piece(duration, notes) {
        const bar = this.#bars.at(-1);
        const open = this.#open;
        this.#open = new Map();
        if (notes.length === 0) this.#rest(bar, duration);
        for (const note of notes) {
            let sound = note.isTiedFrom ? open.get(note.text) : undefined;
            if (!sound) {
                sound = { start: bar.length, string: note.string, duration: 0, text: note.text + note.marks };
                bar.sounds.push(sound);
            }
            sound.duration += duration;
            if (note.isTiedOn) this.#open.set(note.text, sound);
        }
        bar.length += duration;
    }

    #rest(bar, duration) {
        const last = bar.sounds.at(-1);
        if (last?.text === 'rest' && last.start + last.duration === bar.length) last.duration += duration;
        else bar.sounds.push({ start: bar.length, string: Infinity, duration, text: 'rest' });
    }

    // A bar without anything to show in it.
    empty(duration) {
        this.#bars.at(-1).length += duration;
    }

    // Gives a bar the length that it has in the part where it is longest.
    static makeEqual(parts, bar) {
        const longest = Math.max(...parts.map((part) => part.#bars[bar].length));
        for (const part of parts) part.#bars[bar].length = longest;
    }

    print() {
        this.#bars.forEach((bar, index) => {
            console.log(`bar ${index + 1} for ${bar.length}${bar.marks}`);
            bar.chords.forEach((chord) => console.log(chord));
            bar.sounds.sort((a, b) => a.start - b.start || a.string - b.string);
            bar.sounds.forEach((s) => console.log(`${s.start} for ${s.duration} ${s.text}`));
        });
    }
}
