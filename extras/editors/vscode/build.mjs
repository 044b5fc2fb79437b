// Builds the folder that the extension is packed from: build.mjs FOLDER VERSION
import { copyFileSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { build } from 'esbuild';
import { createFormatter } from '../../npm/formatter.js';

const [folder, version] = process.argv.slice(2);
const here = new URL('./', import.meta.url);
const root = new URL('../../../', here);
const wasm = new Uint8Array(readFileSync(new URL('build/wasm/qorn.wasm', root)));
const { keys, ignored, words } = createFormatter(new WebAssembly.Module(wasm)).readConfig();

/** @param {string[]} forms */
function anyOf(forms) {
  return `(?i:${[...forms].sort((a, b) => b.length - a.length).join('|')})`;
}

const grammar = {
  scopeName: 'source.qornrc',
  patterns: [
    { match: '#.*$', name: 'comment.line.number-sign.qornrc' },
    { match: '"[^"]*"', name: 'string.quoted.double.qornrc' },
    { match: "'[^']*'", name: 'string.quoted.single.qornrc' },
    { match: '\\d+', name: 'constant.numeric.qornrc' },
    {
      match: anyOf(keys.flatMap(({ forms }) => forms)),
      name: 'variable.other.property.qornrc',
    },
    { match: anyOf(ignored), name: 'comment.other.ignored.qornrc' },
    { match: anyOf(words), name: 'constant.language.qornrc' },
  ],
};

mkdirSync(folder, { recursive: true });
writeFileSync(join(folder, 'qornrc.tmLanguage.json'), JSON.stringify(grammar));
const manifest = JSON.parse(readFileSync(new URL('package.json', here), 'utf8'));
writeFileSync(join(folder, 'package.json'), JSON.stringify({ ...manifest, version }, null, 2));
for (const name of ['README.md', 'language-configuration.json']) {
  copyFileSync(new URL(name, here), join(folder, name));
}
copyFileSync(new URL('LICENSE', root), join(folder, 'LICENSE'));
await build({
  entryPoints: [new URL('src/extension.ts', here).pathname],
  outfile: join(folder, 'extension.js'),
  bundle: true,
  minify: true,
  format: 'cjs',
  platform: 'node',
  target: 'node18',
  external: ['vscode'],
  loader: { '.wasm': 'binary' },
});
