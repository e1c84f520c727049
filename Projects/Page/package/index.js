// The package: loads the module, hands it one request at a time, and takes its answers apart.
import createModule from './fretline-module.js';

const DEFAULT_FORMATS = ['musicxml', 'mid', 'ly', 'nvf'];
const LENGTH_BYTES = 4;
const FILE_PREFIX = 'file:';

const encoder = new TextEncoder();
const decoder = new TextDecoder();

export default async function load(options = {}) {
  const wasmBinary = await bytesOf(options.wasm ?? new URL('./fretline-module.wasm', import.meta.url));
  return new Program(await createModule({ wasmBinary }));
}

async function bytesOf(source) {
  if (source instanceof Uint8Array) return source;
  if (source instanceof ArrayBuffer) return new Uint8Array(source);
  const isNode = typeof process === 'object' && process?.versions?.node !== undefined;
  const isFile = source instanceof URL ? source.protocol === 'file:' : !/^[a-z]+:/i.test(source);
  if (isNode && isFile) {
    const files = 'node:fs/promises';
    return (await import(/* @vite-ignore */ files)).readFile(source);
  }
  const response = await fetch(source);
  if (!response.ok) throw new Error(`${source} cannot be loaded: ${response.status}`);
  return new Uint8Array(await response.arrayBuffer());
}

class Program {
  #module;

  constructor(module) {
    this.#module = module;
    Object.assign(this, this.#take(module._FretlineDescribe()).object);
    delete this.blocks;
  }

  convert(text, options = {}) {
    const request = requestOf(options);
    const bytes = typeof text === 'string' ? encoder.encode(text) : text;
    if (!(bytes instanceof Uint8Array)) throw new TypeError('the text is neither a string nor a Uint8Array');
    const failure = this.#watch(options.onProgress);
    const { object, blocks } = this.#ask(encoder.encode(JSON.stringify(request)), bytes);
    if (failure.thrown) throw failure.what;
    if (object.mistake !== undefined) throw new RangeError(object.mistake);
    return resultOf(object, blocks, request.name);
  }

  // Passes on how far the conversion is. An exception must not run through the module: it cancels, and is kept.
  #watch(onProgress) {
    const failure = { thrown: false, what: undefined };
    this.#module.onProgress = (percent) => {
      try {
        return onProgress?.(percent) !== false;
      } catch (what) {
        failure.thrown = true;
        failure.what = what;
        return false;
      }
    };
    return failure;
  }

  #ask(request, text) {
    const module = this.#module;
    const at = module._malloc(request.length + text.length + 1);
    if (at === 0) return { object: { failure: 'there is not enough memory for it' }, blocks: new Map() };
    try {
      module.HEAPU8.set(request, at);
      module.HEAPU8.set(text, at + request.length);
      return this.#take(module._FretlineConvert(at, request.length, at + request.length, text.length));
    } finally {
      module._free(at);
    }
  }

  // Copies an answer and gives its memory back.
  #take(at) {
    const module = this.#module;
    if (at === 0) return { object: { failure: 'there is not enough memory for it' }, blocks: new Map() };
    const memory = module.HEAPU8;
    const length = new DataView(memory.buffer).getUint32(at, true);
    let next = at + LENGTH_BYTES + length;
    const object = JSON.parse(decoder.decode(memory.subarray(at + LENGTH_BYTES, next)));
    const blocks = new Map();
    for (const { name, size } of object.blocks) {
      blocks.set(name, memory.slice(next, next + size));
      next += size;
    }
    module._FretlineRelease(at);
    return { object, blocks };
  }
}

function requestOf(options) {
  const { name = 'untitled.tab', rhythms = 'indicated', layout = 'both', prepare = [] } = options;
  const formats = options.formats ?? DEFAULT_FORMATS;
  for (const [key, value] of Object.entries({ name, rhythms, layout }))
    if (typeof value !== 'string') throw new TypeError(`${key} is no string`);
  for (const [key, value] of Object.entries({ prepare, formats }))
    if (!Array.isArray(value) || value.some((word) => typeof word !== 'string'))
      throw new TypeError(`${key} is no array of strings`);
  if (options.onProgress !== undefined && typeof options.onProgress !== 'function')
    throw new TypeError('onProgress is no function');
  return { name, rhythms, layout, prepare, formats };
}

function resultOf(object, blocks, name) {
  const { taken = false, cancelled = false, lines = [], notes = [], helpful = [], messages = [], failure } = object;
  const jsonText = failure === undefined ? decoder.decode(blocks.get('json')) : refusal(name, failure);
  const files = {};
  for (const [block, bytes] of blocks)
    if (block.startsWith(FILE_PREFIX)) files[block.slice(FILE_PREFIX.length)] = bytes;
  const prepared = object.prepared ? { text: blocks.get('prepared'), ...object.prepared } : null;
  return {
    taken, cancelled, json: JSON.parse(jsonText), jsonText, files, lines, notes, helpful, prepared, messages,
  };
}

function refusal(file, reason) {
  return JSON.stringify({ file, taken: false, reason });
}
