// options.mjs PACKAGE: what the package does with its options, and with a caller that cancels or fails.
import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { resolve } from 'node:path';

const [packagePath] = process.argv.slice(2);
const { default: load } = await import(resolve(packagePath));
const fretline = await load();
const tab = readFileSync('examples/when-the-saints.tab', 'utf8');

const mistakes = [
  [{ rhythms: 'some' }, RangeError, 'a level that is not known'],
  [{ layout: 'staves' }, RangeError, 'staves that are not known'],
  [{ formats: ['pdf'] }, RangeError, 'a format that wants another program'],
  [{ prepare: ['parts'] }, RangeError, 'a step that gives several texts'],
  [{ prepare: 'ascii' }, TypeError, 'a word in place of a list'],
  [{ formats: [1] }, TypeError, 'a number in place of a word'],
  [{ name: 1 }, TypeError, 'a number in place of a name'],
  [{ onProgress: true }, TypeError, 'no function'],
];
for (const [options, kind, why] of mistakes) {
  assert.throws(() => fretline.convert(tab, options), kind, why);
}
assert.throws(() => fretline.convert(null), TypeError);
assert.ok(fretline.steps.every((step) => step.name !== 'parts'));

const refusals = [
  ['', 'is empty'],
  ['a\n------------\nb\n', 'no stave was found'],
  [new Uint8Array(3000).fill(45).fill(200, 100), 'is not plain text'],
];
for (const [text, reason] of refusals) {
  const { taken, json, files } = fretline.convert(text, { name: 'x.tab' });
  assert.equal(taken, false);
  assert.equal(json.file, 'x.tab');
  assert.ok(json.reason.startsWith(reason), json.reason);
  assert.deepEqual(files, {});
}

const percents = [];
const whole = fretline.convert(tab, { onProgress: (percent) => void percents.push(percent) });
assert.ok(whole.taken && percents.at(-1) === 100 && percents.length > 5);
assert.deepEqual(Object.keys(whole.files), ['musicxml', 'mid', 'ly', 'nvf']);
const cancelled = fretline.convert(tab, { onProgress: (percent) => percent < 30 });
assert.ok(cancelled.cancelled && !cancelled.taken);
const own = new Error('the caller fails');
assert.throws(() => fretline.convert(tab, { onProgress: () => { throw own; } }), (thrown) => thrown === own);
assert.deepEqual(fretline.convert(tab), whole, 'neither leaves anything behind');

// The notes of a text that was prepared stand where they were typed, in characters of the original.
function textOf(bytes) {
  if (bytes[0] === 0xff && bytes[1] === 0xfe) return new TextDecoder('utf-16le').decode(bytes);
  try {
    return new TextDecoder('utf-8', { fatal: true }).decode(bytes);
  } catch {
    return bytes.toString('latin1');
  }
}
// Tabs reach to columns of eight.
function expanded(line) {
  const [first, ...rest] = line.split('\t');
  return rest.reduce((text, part) => text.padEnd(text.length + 8 - (text.length % 8)) + part, first);
}
const steps = fretline.steps.filter((step) => step.isOnByDefault).map((step) => step.name);
let notes = 0;
for (const file of readdirSync('tests/untidy').filter((name) => /tab$/.test(name))) {
  const bytes = readFileSync(`tests/untidy/${file}`);
  const { helpful } = fretline.convert(bytes, { formats: [] });
  const { prepared, ...result } = fretline.convert(bytes, { prepare: steps, formats: [] });
  assert.equal(helpful.length > 0, prepared.changedLines > 0, file);
  const lines = textOf(bytes).split(/\r\n|\r|\n/).map(expanded);
  for (const { line, column, end } of result.notes) assert.match(lines[line].slice(column, end), /^(\d+|x)$/i, file);
  for (const { line, spans } of result.lines)
    for (const { column, end } of spans) assert.ok(0 <= column && column < end && end <= lines[line].length, file);
  notes += result.notes.length;
}
assert.ok(notes > 400);

console.log(`options, refusals and progress as declared; ${notes} notes of prepared texts stand where they were typed`);
