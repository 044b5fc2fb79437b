// The extension in a real editor, in a browser: editor.mjs CODE_SERVER_ENTRY VSIX [PICTURES]. What
// the editor saves is compared with what the package prints.
import assert from 'node:assert/strict';
import { execFileSync, spawn } from 'node:child_process';
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import { launchBrowser } from '../../../browser.js';
import { createFormatter } from '../../../npm/formatter.js';

const [entry, vsix, pictures] = process.argv.slice(2);
const wasm = readFileSync(new URL('../../../../build/wasm/qorn.wasm', import.meta.url));
const { format } = createFormatter(new WebAssembly.Module(new Uint8Array(wasm)));
const patience = { timeout: 120_000 };

const box = mkdtempSync(join(tmpdir(), 'qorn-editor-'));
const work = join(box, 'work');
const file = join(work, 'a.vhd');
const raw = 'entity e is\nport(a:in bit);\nend e;\narchitecture r of e is\nbegin\nx<=y;\nend;\n';
const neat = format(raw).text;
mkdirSync(work);
mkdirSync(join(box, 'data/User'), { recursive: true });
writeFileSync(file, raw);

/** @param {object} more */
function setSettings(more) {
  const settings = { 'workbench.startupEditor': 'none', 'security.workspace.trust.enabled': false };
  writeFileSync(join(box, 'data/User/settings.json'), JSON.stringify({ ...settings, ...more }));
}

const folders = ['--user-data-dir', join(box, 'data'), '--extensions-dir', join(box, 'extensions')];
setSettings({});
execFileSync(process.execPath, [entry, ...folders, '--install-extension', vsix]);
const port = 20_000 + (process.pid % 20_000);
const server = spawn(process.execPath, [
  entry,
  ...folders,
  ...['--auth', 'none', '--bind-addr', `127.0.0.1:${port}`],
  ...['--disable-telemetry', '--disable-update-check'],
]);
const browser = await launchBrowser();

try {
  const page = await browser.newPage({ viewport: { width: 1200, height: 800 } });
  const address = `http://127.0.0.1:${port}/?folder=${work}`;
  for (let i = 0; i < 60; ++i) {
    if (await page.goto(address).catch(() => undefined)) break;
    await sleep(1000);
  }
  await page.locator('.monaco-workbench').waitFor(patience);

  /** @param {string} command */
  const run = async (command) => {
    await page.keyboard.press('F1');
    await page.locator('.quick-input-widget input').fill(`>${command}`);
    await page.locator('.quick-input-list .monaco-list-row').first().waitFor(patience);
    await page.keyboard.press('Enter');
    await page.locator('.quick-input-widget').waitFor({ state: 'hidden', ...patience });
  };
  /** @param {string} name */
  const shoot = (name) => pictures && page.screenshot({ path: join(pictures, `${name}.png`) });
  /** Saves until the file holds the text. @type {(what: string, text: string) => Promise<void>} */
  const saves = async (what, text) => {
    for (let i = 0; i < 30 && readFileSync(file, 'utf8') !== text; ++i) {
      await page.keyboard.press('Control+s');
      await sleep(1000);
    }
    await shoot(what.replaceAll(' ', '-'));
    assert.equal(readFileSync(file, 'utf8'), text, what);
    console.log(`ok: ${what}`);
  };
  /** @param {RegExp} text */
  const tells = async (text) => {
    await page.locator('.notification-toast').filter({ hasText: text }).first().waitFor(patience);
    console.log(`ok: a message ${text}`);
  };

  await page.keyboard.press('Control+p');
  await page.locator('.quick-input-widget input').fill('a.vhd');
  await page.locator('.quick-input-list .monaco-list-row').first().waitFor(patience);
  await page.keyboard.press('Enter');
  const editor = page.locator('.monaco-editor .view-lines').first();
  await editor.waitFor(patience);
  await editor.click();

  await run('Format Document');
  await saves('format document', neat);
  await page.keyboard.press('Control+z');
  await saves('undo', raw);

  await page.keyboard.press('Control+Home');
  for (let i = 0; i < 5; ++i) await page.keyboard.press('ArrowDown');
  await page.keyboard.press('Shift+End');
  await run('Format Selection');
  await saves('format selection', format(raw, { lines: [[6, 6]] }).text);

  setSettings({ '[vhdl]': { 'editor.formatOnSave': true } });
  await sleep(3000);
  await page.keyboard.press('Control+Home');
  await page.keyboard.type(' ');
  await saves('format on save', neat);

  setSettings({});
  writeFileSync(join(work, '.qornrc'), 'NONSENSE\nKEYWORDCASE LOWERCASE\n');
  await run('Format Document');
  await saves('the nearest configuration', format(raw, { config: 'KEYWORDCASE LOWERCASE' }).text);
  await tells(/NONSENSE/);
  writeFileSync(join(work, '.qornrc'), 'INDENTATION 100000000\n');
  await run('Format Document');
  await tells(/many times/);
  await shoot('refused');
} finally {
  await browser.close();
  server.kill();
  await sleep(1000);
  rmSync(box, { recursive: true, force: true });
}
