// compare.mjs PACKAGE FOLDER FORMATS RUN...: what the package makes of the tabs in FOLDER/list, beside what the command
// line has left of them in FOLDER/RUN, one JSON object a tab in FOLDER/RUN.lines. A run is a rhythm level, and "+prepare".
import { readFileSync, existsSync } from 'node:fs';
import { basename, join, resolve } from 'node:path';

const [packagePath, folder, formatList, ...runs] = process.argv.slice(2);
const { default: load } = await import(resolve(packagePath));

// The memory of the module, which it keeps to itself.
let memory;
const { instantiate } = WebAssembly;
WebAssembly.instantiate = async (...given) => {
  const made = await instantiate(...given);
  memory = Object.values(made.instance.exports).find((value) => value instanceof WebAssembly.Memory);
  return made;
};
const fretline = await load();
const formats = formatList.split(',');
const steps = fretline.steps.filter((step) => step.isOnByDefault).map((step) => step.name);
const tabs = readFileSync(join(folder, 'list'), 'utf8').split('\0').filter(Boolean);
const counts = { taken: 0, refused: 0, files: 0, notes: 0, different: 0 };

function expectSame(what, ours, theirs) {
  if (Buffer.compare(Buffer.from(ours), theirs) === 0) return;
  counts.different += 1;
  console.log(`${what}: ${ours.length} bytes, not the ${theirs.length} of the command line`);
}

function compare(tab, run, line) {
  const [rhythms, prepares] = run.split('+');
  const options = { name: tab, rhythms, formats, prepare: prepares ? steps : [] };
  const result = fretline.convert(readFileSync(tab), options);
  const { taken } = JSON.parse(line);
  if (taken !== result.taken) {
    counts.different += 1;
    console.log(`${tab}, ${run}: taken ${result.taken}, by the command line ${taken}`);
  } else if (!taken) {
    counts.refused += 1;
    expectSame(`${tab}, ${run}, refusal`, Buffer.from(result.jsonText), Buffer.from(line));
  } else {
    counts.taken += 1;
    counts.notes += result.notes.length;
    expectFiles(tab, run, result);
  }
}

function expectFiles(tab, run, result) {
  for (const name of formats) {
    const { extension } = fretline.formats.find((format) => format.name === name);
    const file = join(folder, run, basename(tab).replace(/\.[^.]*$/, '') + extension);
    if (!existsSync(file)) throw new Error(`${file} is missing`);
    counts.files += 1;
    expectSame(`${tab}, ${run}, ${name}`, result.files[name], readFileSync(file));
  }
  expectSame(`${tab}, ${run}, jsonText`, Buffer.from(`${result.jsonText}\n`), Buffer.from(result.files.json));
}

function compareRun(run) {
  const lines = readFileSync(join(folder, `${run}.lines`), 'utf8').split('\n').filter(Boolean);
  if (lines.length !== tabs.length) throw new Error(`${lines.length} lines of ${tabs.length} tabs in the run ${run}`);
  tabs.forEach((tab, index) => compare(tab, run, lines[index]));
}

runs.forEach(compareRun);
const size = memory.buffer.byteLength;
// Conversions leave nothing behind.
runs.slice(0, 2).forEach(compareRun);
const grown = memory.buffer.byteLength - size;
console.log(
  `${tabs.length} tabs, ${runs.length} runs: ${counts.taken} taken, ${counts.refused} refused, ${counts.files} files ` +
    `compared, ${counts.notes} notes placed, ${counts.different} different; memory ${size} bytes, ${grown} more after two runs more`,
);
process.exit(counts.different > 0 || grown > 0 || counts.taken < tabs.length || counts.refused === 0 || counts.notes === 0 ? 1 : 0);
