// What the module for browsers costs beside the same program natively, in one run:
//
//     node bench/page.mjs [ROUNDS]
//
// Wants build/web/package (scripts/check-page makes it) and build/release/bench/bench_page. The two take turns; the
// least processor time of each counts. 60 lines of tab, then a thousand.
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { gzipSync } from 'node:zlib';

const root = join(import.meta.dirname ?? new URL('.', import.meta.url).pathname, '..');
const { default: load } = await import(join(root, 'build/web/package/index.js'));
const rounds = Number(process.argv[2] ?? 5);
const RUNS = 10;
const work = mkdtempSync(join(tmpdir(), 'fretline-bench-'));

const example = readFileSync(join(root, 'examples/when-the-saints.tab'), 'utf8').split('\n');
const tabOf = (lines) => Array.from({ length: lines }, (_, line) => example[line % example.length]).join('\n');

const wasm = readFileSync(join(root, 'build/web/package/fretline-module.wasm'));
const start = performance.now();
const fretline = await load({ wasm });
const loading = performance.now() - start;

const requests = {
  'the score alone': ['nvf'],
  'musicxml, mid, ly': ['musicxml', 'mid', 'ly'],
  'all formats': fretline.formats.map((format) => format.name),
};

function timeOfModule(text, options) {
  let least = Infinity;
  for (let run = 0; run < RUNS; run += 1) {
    const begin = process.cpuUsage();
    if (!fretline.convert(text, options).taken) throw new Error('the tab was not taken');
    const { user, system } = process.cpuUsage(begin);
    least = Math.min(least, (user + system) / 1000);
  }
  return least;
}

function timeOfNative(file, options) {
  const request = JSON.stringify({ name: 'bench.tab', rhythms: 'indicated', layout: 'both', prepare: [], ...options });
  return Number(execFileSync(join(root, 'build/release/bench/bench_page'), [file, request, String(RUNS)]));
}

console.log(`module: ${wasm.length} bytes, ${gzipSync(wasm, { level: 9 }).length} with gzip; ready after ${loading.toFixed(0)} ms`);
for (const lines of [60, 1000]) {
  const file = join(work, `${lines}.tab`);
  const text = tabOf(lines);
  writeFileSync(file, text);
  for (const [name, formats] of Object.entries(requests)) {
    let [module, native] = [Infinity, Infinity];
    for (let round = 0; round < rounds; round += 1) {
      native = Math.min(native, timeOfNative(file, { formats }));
      module = Math.min(module, timeOfModule(text, { formats }));
    }
    console.log(
      `${lines} lines, ${name}: native ${native.toFixed(1)} ms, module ${module.toFixed(1)} ms, ratio ${(module / native).toFixed(2)}`,
    );
  }
}
rmSync(work, { recursive: true });
