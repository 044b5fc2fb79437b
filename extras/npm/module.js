// Calls into qorn.wasm. What a call leaves in memory stays for the next one, so an instance that
// met its limits, or had a very large text, is given up for a new one.

const keptBytes = 64 << 20;
const notSupported = 52;

/** @returns {never} */
function exit() {
  throw new WebAssembly.RuntimeError('exit');
}

/**
 * The module asks no more of a system than to write and to end, both in emergencies.
 *
 * @param {WebAssembly.Module} module
 */
function systemFor(module) {
  /** @type {Record<string, Record<string, () => number>>} */
  const rooms = {};
  for (const { module: room, name } of WebAssembly.Module.imports(module)) {
    rooms[room] ??= {};
    rooms[room][name] = name.startsWith('fd_') ? () => notSupported : exit;
  }
  return rooms;
}

export class Caller {
  #module;
  /** @type {any} */
  #exports;

  /** @param {WebAssembly.Module} module */
  constructor(module) {
    this.#module = module;
  }

  /**
   * What the exported function returns, and the parts of its result.
   *
   * @param {string} name
   * @param {Uint8Array[]} texts
   * @param {number[]} [numbers]
   * @returns {{ status: number, parts: Uint8Array[] }}
   * @throws {RangeError} if memory does not suffice
   */
  call(name, texts, numbers = []) {
    try {
      this.#exports ??= this.#start();
      for (const text of texts) this.#give(text);
      const status = this.#exports[name](...numbers);
      const parts = Array.from({ length: this.#exports.partCount() }, (_, i) => this.#take(i));
      if (this.#exports.memory.buffer.byteLength > keptBytes) this.#exports = undefined;
      return { status, parts };
    } catch (error) {
      this.#exports = undefined;
      const isLimit = error instanceof WebAssembly.RuntimeError || error instanceof RangeError;
      if (!isLimit) throw error;
      throw new RangeError('out of memory', { cause: error });
    }
  }

  #start() {
    /** @type {any} */
    const exports = new WebAssembly.Instance(this.#module, systemFor(this.#module)).exports;
    exports._initialize();
    return exports;
  }

  /** @param {Uint8Array} text */
  #give(text) {
    const address = this.#exports.argument(text.length) >>> 0;
    new Uint8Array(this.#exports.memory.buffer, address, text.length).set(text);
  }

  /** @param {number} index */
  #take(index) {
    const address = this.#exports.part(index) >>> 0;
    const size = this.#exports.partSize(index) >>> 0;
    return new Uint8Array(this.#exports.memory.buffer, address, size).slice();
  }
}
