// The extension in a real editor, in a browser: editor.mjs SERVER VSIX [PICTURES]. What the editor
// saves is compared with what the package prints.
import assert from 'node:assert/strict';
import { execFileSync, spawn } from 'node:child_process';
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import { launchBrowser } from '../../../browser.js';
import { createFormatter } from '../../../npm/formatter.js';

const [main, vsix, pictures] = process.argv.slice(2);
const wasm = readFileSync(new URL('../../../../build/wasm/qorn.wasm', import.meta.url));
const { format } = createFormatter(new WebAssembly.Module(new Uint8Array(wasm)));
const raw =
  'entity e is\r\nport(a:in bit);\r\nend e;\r\narchitecture r of e is\r\nbegin\r\nx<=y;\r\nend;\r\n';

const config = 'KEYWORDCASE LOWERCASE';
const neat = format(raw, { config }).text;

const box = mkdtempSync(join(tmpdir(), 'qorn-editor-'));
const inWork = (...names) => join(box, 'work', ...names);
const write = (name, text, mode) => writeFileSync(inWork(name), text, { mode });
const setSettings = (settings) => write('.vscode/settings.json', JSON.stringify(settings));
mkdirSync(inWork('.vscode'), { recursive: true });
mkdirSync(join(box, 'data/User'), { recursive: true });
const ofUser = { 'workbench.startupEditor': 'none', 'files.autoSave': 'off' }; // in browsers it is on
writeFileSync(join(box, 'data/User/settings.json'), JSON.stringify(ofUser));
setSettings({});
write('a.vhd', raw);
write('latin.vhd', Buffer.from('-- \xe4\nx<=y;\n', 'latin1'));
write('.qornrc', `# a remark\n${config} "x" 12\n`);
write('native', '#!/bin/sh\necho "-- $*"\ncat\n', 0o755);

const data = join(box, 'data');
const program = [main, '--user-data-dir', data, '--server-data-dir', data];
program.push('--extensions-dir', join(box, 'extensions'));
execFileSync(process.execPath, [...program, '--install-extension', vsix], { stdio: 'ignore' });
program.push('--accept-server-license-terms', '--telemetry-level=off', '--disable-workspace-trust');
program.push('--without-connection-token', '--host=127.0.0.1', '--port=0');
const server = spawn(process.execPath, program, {
  env: { ...process.env, QORNRC: undefined }, // for the nearest configuration to apply
  stdio: ['ignore', 'pipe', 'ignore'],
});
const browser = await launchBrowser();
const page = await browser.newPage({ viewport: { width: 1200, height: 800 } });
const shoot = (name) => page.screenshot({ path: join(pictures, `${name}.png`) });
try {
  const port = await new Promise((resolve) => {
    server.stdout.on('data', (line) => {
      const [, number] = /listening on (\d+)/.exec(line) ?? [];
      if (number) resolve(number);
    });
  });
  page.setDefaultTimeout(60_000);
  await page.goto(`http://127.0.0.1:${port}/?folder=${inWork()}`, { waitUntil: 'commit' });
  const press = async (...keys) => {
    for (const key of keys) await page.keyboard.press(key);
  };
  const open = async (name) => {
    await page.getByRole('treeitem', { name }).dblclick();
    await page.locator('.tab.active', { hasText: name }).waitFor();
    await page.locator('.editor-instance .view-line').first().click();
    await press('Control+Home');
  };
  const run = async (command) => {
    const palette = page.locator('.quick-input-widget');
    const input = palette.locator('input').first();
    for (let i = 0; i < 20 && !(await palette.isVisible()); ++i) {
      await press('F1');
      await sleep(200);
    }
    await input.fill(`>${command}`);
    await palette.locator('.focused', { hasText: command }).waitFor();
    await input.press('Enter');
    await palette.waitFor({ state: 'hidden' });
  };
  /** Acts, again if need be, and saves until the file holds the text: the editor sees settings late. */
  const saves = async (what, name, text, act = async () => {}) => {
    for (let i = 0; i < 20 && readFileSync(inWork(name), 'utf8') !== text; ++i) {
      await act();
      await sleep(300);
      await press('Control+s');
      await sleep(300);
    }
    assert.equal(readFileSync(inWork(name), 'utf8'), text, what);
    await done(what);
  };
  const shows = async (what, place, text, act = async () => {}) => {
    const shown = page.locator(place).filter({ hasText: text }).first();
    for (let i = 0; i < 20 && !(await shown.isVisible()); ++i) {
      await act();
      await shown.waitFor({ timeout: 3000 }).catch(() => {});
    }
    assert.ok(await shown.isVisible(), what);
    await done(what);
    await run('Notifications: Clear All Notifications');
  };
  const done = async (what) => {
    console.log(`ok: ${what}`);
    if (pictures) await shoot(what.replaceAll(' ', '-'));
  };
  const toast = '.notification-toast';
  const formatDocument = () => run('Format Document');

  await open('.qornrc'); // first: its marks tell that the extension runs
  await page.locator('.squiggly-warning').waitFor();
  const colours = await page.locator('.view-line span[class^=mtk]').evaluateAll((spans) => {
    return new Set(spans.map((span) => getComputedStyle(span).color)).size;
  });
  assert.ok(colours >= 5, `${colours} colours`);
  await press('ArrowDown');
  await shows('an explanation', '.monaco-hover', /letter case of reserved words/, () =>
    run('Show or Focus Hover'),
  );
  const suggest = (what, typed, proposal) =>
    shows(what, '.suggest-widget', proposal, async () => {
      await press('Escape', 'Control+End', 'Shift+Home'); // in place of what the last try typed
      await page.keyboard.type(typed);
      await press('Control+Space');
    });
  await suggest('keys', 'iden', /IDENTIFIERCASE/);
  await suggest('values', 'IDENTIFIERCASE ', /ASIS/);
  while (await page.locator('.tab.dirty').count()) await run('File: Revert File');

  await open('a.vhd');
  await saves('a document', 'a.vhd', neat, formatDocument);
  await shows('what has no effect', toast, /\.qornrc:2: .*"x"/);
  await press('Control+z');
  await saves('undo', 'a.vhd', raw);
  await saves('a selection', 'a.vhd', format(raw, { config, lines: [[6, 6]] }).text, async () => {
    await press('Control+Home', ...Array(5).fill('ArrowDown'), 'Shift+End');
    await run('Format Selection');
  });
  setSettings({ '[vhdl]': { 'editor.formatOnSave': true } });
  await saves('on save', 'a.vhd', neat, () => press('Control+Home', 'Space'));

  setSettings({ 'qorn.path': './native' });
  const own = `-- --stdin-filename=${inWork('a.vhd')} -\r\n${neat}`;
  await saves('a native program', 'a.vhd', own, formatDocument);
  setSettings({ 'qorn.path': '/none' });
  await shows('no such program', toast, /no program \/none/, formatDocument);
  setSettings({});
  write('.qornrc', 'INDENTATION 100000000\n');
  await shows('a refusal', toast, /many times/, formatDocument);
  await open('latin.vhd');
  await shows('a wrong encoding', toast, /wrong encoding/, formatDocument);
} catch (error) {
  if (pictures) await shoot('failed');
  throw error;
} finally {
  await browser.close();
  server.kill();
  await sleep(500);
  rmSync(box, { recursive: true, force: true });
}
