// Prints what a MIDI file strikes: onset in crotchets and pitch, a line each, sorted, each once.
import { readFileSync } from "node:fs";
import { parseMidi } from "midi-file";

const midi = parseMidi(readFileSync(process.argv[2]));
const struck = new Set();
for (const track of midi.tracks) {
    let time = 0;
    for (const event of track) {
        time += event.deltaTime;
        if (event.type === "noteOn" && event.velocity > 0)
            struck.add(`${(time / midi.header.ticksPerBeat).toFixed(3).padStart(9)} ${event.noteNumber}`);
    }
}
console.log([...struck].sort().join("\n"));
