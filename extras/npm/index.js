// Formatting of VHDL by the module beside this file, in Node.js, in browsers and in workers.
import { createFormatter } from './formatter.js';

const address = new URL('./qorn.wasm', import.meta.url);

async function load() {
  if (address.protocol !== 'file:') return WebAssembly.compileStreaming(fetch(address));
  const { readFile } = await import('node:fs/promises');
  return WebAssembly.compile(new Uint8Array(await readFile(address)));
}

export const { format, readConfig, drawSample, guessConfig } = createFormatter(await load());
