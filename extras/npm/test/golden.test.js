// The module prints what the program does: every golden case, in any order, byte for byte.
import assert from 'node:assert/strict';
import { existsSync, readdirSync, readFileSync } from 'node:fs';
import { test } from 'node:test';
import { Caller } from '../module.js';

const root = new URL('../../../', import.meta.url);
const golden = new URL('tests/golden/', root);
const wasm = readFileSync(new URL('build/wasm/qorn.wasm', root));
const module = new WebAssembly.Module(wasm);

function read(name) {
  const file = new URL(name, golden);
  return existsSync(file) ? readFileSync(file) : new Uint8Array();
}

const rooms = readdirSync(golden);
const cases = rooms.flatMap((room) =>
  readdirSync(new URL(`${room}/`, golden))
    .filter((name) => name.endsWith('.out'))
    .map((name) => `${room}/${name.slice(0, -'.out'.length)}`),
);

test('golden cases', () => {
  const caller = new Caller(module);
  assert.ok(cases.length > 20);
  for (const name of [...cases, ...cases.reverse()]) {
    const own = `${name}.vhd`;
    const source = read(
      existsSync(new URL(own, golden)) ? own : own.replace(/\.[^./]*\.vhd$/, '.vhd'),
    );
    const words = read(`${name}.args`).toString();
    const tabSize = Number(/-t\s*(\d+)/.exec(words)?.[1] ?? 0);
    const { parts } = caller.call(
      'pass',
      [source, new Uint8Array(), read(`${name}.rc`)],
      [Number(words.includes('-k')), tabSize],
    );
    assert.equal(
      Buffer.from(parts[0]).toString('latin1'),
      read(`${name}.out`).toString('latin1'),
      name,
    );
  }
});

test('the module needs no files', () => {
  const names = WebAssembly.Module.imports(module).map(({ name }) => name);
  const allowed = ['fd_close', 'fd_fdstat_get', 'fd_read', 'fd_seek', 'fd_write', 'proc_exit'];
  assert.deepEqual(
    names.filter((name) => !allowed.includes(name)),
    [],
  );
});

test('an instance that ran out of memory is replaced', () => {
  const caller = new Caller(module);
  const text = new TextEncoder().encode('x<=y;');
  assert.throws(() => caller.call('pass', [text, { length: 2 ** 32 - 65536 }], [0, 0]), RangeError);
  assert.equal(Buffer.from(caller.call('pass', [text], [0, 0]).parts[0]).toString(), 'x <= y;\n');
});
