// Builds docs/playground.html, one file that needs no other.
import { readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { build } from 'esbuild';

const here = new URL('./', import.meta.url);
const root = new URL('../../', here);

/** @type {(name: string, from?: URL) => string} */
const read = (name, from = here) => readFileSync(new URL(name, from), 'utf8');

/** @type {(name: string, define?: Record<string, string>) => Promise<string>} */
async function bundle(name, define) {
  const { outputFiles } = await build({
    entryPoints: [new URL(name, here).pathname],
    bundle: true,
    minify: true,
    write: false,
    format: 'iife',
    target: 'es2022',
    loader: { '.wasm': 'binary' },
    define,
  });
  return outputFiles[0].text;
}

function readStyles() {
  const names = readdirSync(new URL('examples/styles/', root)).filter((name) =>
    /\.qornrc$/.test(name),
  );
  return Object.fromEntries(
    names.map((name) => [name.replace('.qornrc', ''), read(`examples/styles/${name}`, root)]),
  );
}

const script = await bundle('page.js', {
  WORKER: JSON.stringify(await bundle('worker.js')),
  STYLES: JSON.stringify(readStyles()),
  SAMPLE: JSON.stringify(read('examples/uart_tx.vhd', root)),
});
const page = read('index.html')
  .replace('/*STYLE*/', () => read('style.css'))
  .replace('/*SCRIPT*/', () => script.replaceAll('</script', '<\\/script'));
writeFileSync(new URL('docs/playground.html', root), page);
