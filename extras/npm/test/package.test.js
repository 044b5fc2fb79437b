// The packed package, installed into an empty folder: what a program and a user get.
import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import {
  chmodSync,
  mkdirSync,
  mkdtempSync,
  readdirSync,
  readFileSync,
  rmSync,
  statSync,
  writeFileSync,
} from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { pathToFileURL } from 'node:url';

const packed = new URL('../../../build/npm/', import.meta.url);
const tarball = readdirSync(packed).find((name) => name.endsWith('.tgz')) ?? 'none';
const folder = mkdtempSync(join(tmpdir(), 'qorn-'));
after(() => rmSync(folder, { recursive: true }));
const install = ['install', '--offline', '--no-audit', '--no-fund', '--silent'];
execFileSync('npm', [...install, '--prefix', folder, new URL(tarball, packed).pathname]);
const { format, readConfig } = await import(
  pathToFileURL(join(folder, 'node_modules/qorn/index.js')).href
);

const raw = 'entity e is port(a:in bit;\nb:out bit);end;\n';
const neat = format(raw).text;

test('format', () => {
  const rows = [
    ['a byte order mark and CR LF stay', '\ufeffx<=y;\r\n', {}, '\ufeffx <= y;\r\n', /^$/],
    ['nothing to do', neat, {}, neat, /^$/],
    ['a key', 'end if;', { config: 'KEYWORDCASE LOWER' }, 'end if;\n', /^$/],
    ['a word that is none', neat, { config: 'NONSENSE 3' }, neat, /^\.qornrc:1: .*NONSENSE/],
    ['lines', 'a<=b;\n\nc<=d;\n', { lines: [[3, 3]] }, 'a<=b;\n\nc <= d;\n', /^$/],
    ['no lines', 'a<=b;', { lines: [] }, 'a<=b;', /^$/],
    ['lines that are none', 'a<=b;\n', { lines: [[0, 3]] }, 'a<=b;\n', /counted from 1/],
    [
      'tab size and indentation',
      '\tx<=y;',
      { tabSize: 2, keepIndentation: true },
      '  x <= y;\n',
      /^$/,
    ],
    ['no text', 'a\0b', { name: 'n.vhd' }, 'a\0b', /^n\.vhd:1: /],
    ['half a character', 'x<=\ud800;', {}, 'x<=\ud800;', /surrogate/],
  ];
  for (const [name, text, options, expected, complaint] of rows) {
    const result = format(text, options);
    assert.equal(result.text, expected, name);
    assert.equal(result.changed, expected !== text, name);
    assert.match(result.complaints.join('\n'), complaint, name);
  }
  assert.throws(() => format(42), /string or a Uint8Array/);
  assert.throws(() => format(raw, { config: { KEYWORDCASE: 'LOWER' } }), TypeError);
  const latin = Uint8Array.from(Buffer.from('x<="\xe4";\n', 'latin1'));
  assert.equal(Buffer.from(format(latin).text).toString('latin1'), 'x <= "\xe4";\n');
  assert.deepEqual(format('a <= b;\nc<=d;\n').changes, [
    { line: 2, count: 1, newLine: 2, newCount: 1 },
  ]);
});

test('readConfig', () => {
  const { keys, complaints } = readConfig([{ name: 'rc', text: '# x\nINDENTATION 3' }]);
  const indentation = keys.find(({ key }) => key === 'INDENTATION');
  assert.deepEqual(
    [indentation.value, indentation.fallback, indentation.place],
    ['3', '4', 'rc:2'],
  );
  assert.deepEqual(complaints, []);
});

/** Runs the program in a folder of its own; `native` runs the other one. */
function run(args, options = {}) {
  const { cwd = folder, input = '', program = join(folder, 'node_modules/.bin/qornfmt') } = options;
  const env = { PATH: process.env.PATH, HOME: folder };
  return spawnSync(program, args, { cwd, input, env, encoding: 'utf8' });
}

function makeTree(name) {
  const root = join(folder, name);
  mkdirSync(join(root, 'deep/.git'), { recursive: true });
  writeFileSync(join(root, 'a.vhd'), raw);
  writeFileSync(join(root, 'deep/b.VHDL'), raw.replaceAll('\n', '\r\n'));
  writeFileSync(join(root, 'neat.vht'), neat);
  writeFileSync(join(root, 'zero.vhd'), 'a\0');
  writeFileSync(join(root, 'other.txt'), raw);
  writeFileSync(join(root, 'deep/.qornrc'), 'KEYWORDCASE LOWERCASE\nNONSENSE');
  chmodSync(join(root, 'a.vhd'), 0o640);
  return root;
}

test('the program formats a folder', () => {
  const root = makeTree('tree');
  const before = statSync(join(root, 'neat.vht')).ctimeMs;
  const check = run(['--check', '.'], { cwd: root });
  assert.deepEqual([check.status, check.stdout], [2, 'a.vhd\ndeep/b.VHDL\n']);
  assert.equal(readFileSync(join(root, 'a.vhd'), 'utf8'), raw);
  assert.equal(run(['-q', 'a.vhd', 'deep'], { cwd: root }).stderr, '');
  assert.equal(readFileSync(join(root, 'a.vhd'), 'utf8'), neat);
  assert.match(readFileSync(join(root, 'deep/b.VHDL'), 'utf8'), /^entity e is\r\n/);
  assert.equal(statSync(join(root, 'a.vhd')).mode & 0o777, 0o640);
  assert.equal(statSync(join(root, 'neat.vht')).ctimeMs, before);
  assert.equal(run(['--check', 'a.vhd'], { cwd: root }).status, 0);
  assert.deepEqual(readdirSync(root).length, 5);
});

test('the program says and ends as the native one', { skip: !process.env.QORNFMT }, () => {
  const rows = [
    [['--check', '.']],
    [['--diff', 'a.vhd', 'deep', 'missing.vhd', 'other.txt']],
    [['--diff', '--lines', '2:2', 'a.vhd']],
    [['--check', '-'], raw],
    [['--diff', '--stdin-filename', 'deep/x.vhd'], raw],
    [['--stdin-filename', 'deep/x.vhd'], raw],
    [['--settings', 'deep']],
    [['--guess', 'deep', 'missing.vhd', 'a.vhd', 'zero.vhd']],
    [['--guess', '-']],
    [['-c', 'none.rc', 'a.vhd']],
    [['--lines', '3:2', 'a.vhd']],
    [['-q', '.']],
    [['.']],
  ];
  const roots = [makeTree('ours'), makeTree('native')];
  for (const [args, input] of rows) {
    const ours = run(args, { cwd: roots[0], input });
    const native = run(args, { cwd: roots[1], input, program: process.env.QORNFMT });
    for (const part of ['stdout', 'stderr', 'status']) {
      assert.equal(ours[part], native[part], `${part} of ${args.join(' ')}`);
    }
  }
});
