// The built page in a real browser, from a file. With SCREENSHOTS set, pictures go to that folder.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { launchBrowser } from '../../browser.js';

const address = new URL('../../../docs/playground.html', import.meta.url).href;
/** @type {import('playwright-core').Browser} */
let browser;
before(async () => {
  browser = await launchBrowser();
});
after(() => browser.close());

/** A page that fails the test on any error of its own. */
async function open(t, { hash = '', ...options } = {}) {
  const context = await browser.newContext({ viewport: { width: 1500, height: 950 }, ...options });
  const page = await context.newPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(error.message));
  page.on('request', (request) => {
    if (!/^(file|blob|data):/.test(request.url())) errors.push(request.url());
  });
  t.after(async () => {
    await context.close();
    assert.deepEqual(errors, []);
  });
  page.setDefaultTimeout(120_000);
  await page.goto(address + hash);
  await page.locator('.key').first().waitFor();
  return page;
}

/** The formatted text, once it holds the expected piece. */
async function resultWith(page, piece) {
  const isThere = (text) => document.querySelector('#result').textContent.includes(text);
  await page.waitForFunction(isThere, piece, { timeout: 30000 });
  return page.locator('#result').textContent();
}

async function shoot(page, name) {
  const folder = process.env.SCREENSHOTS;
  if (folder) await page.screenshot({ path: `${folder}/${name}.png` });
}

test('text, form, configuration and address follow each other', async (t) => {
  const page = await open(t);
  await page.locator('#source').fill('entity e is end;\nx<=y;\n');
  assert.equal(await resultWith(page, 'ENTITY'), 'ENTITY e IS\nEND;\nx <= y;\n');
  await page.getByLabel('KEYWORDCASE', { exact: true }).selectOption('LOWERCASE');
  assert.equal(await resultWith(page, 'entity'), 'entity e is\nend;\nx <= y;\n');
  assert.match(await page.locator('#config').inputValue(), /^KEYWORDCASE +LOWERCASE\n$/);
  assert.equal(await page.locator('#status').textContent(), '3 lines changed');
  assert.equal(await page.locator('.marks div').count(), 4);
  await page.locator('#config').fill('NONSENSE\nINDENTATION 7');
  await page.getByText(/\.qornrc:1: /).waitFor();
  assert.equal(await page.getByLabel('INDENTATION', { exact: true }).inputValue(), '7');

  const link = new URL(page.url()).hash;
  const other = await open(t, { hash: link });
  assert.equal(await other.locator('#config').inputValue(), 'NONSENSE\nINDENTATION 7');
  await other.getByLabel('Start from').selectOption('lowercase');
  await resultWith(other, 'entity uart_tx');
  const [file] = await Promise.all([
    other.waitForEvent('download'),
    other.getByRole('button', { name: 'Download' }).click(),
  ]);
  assert.equal(file.suggestedFilename(), 'qornrc');
  await other.locator('#load').setInputFiles({
    name: 'x',
    mimeType: 'text/plain',
    buffer: Buffer.from('KEYWORDCASE CAPITALIZED'),
  });
  await resultWith(other, 'Entity uart_tx');
  assert.equal(await other.getByLabel('Start from').inputValue(), '');
  await shoot(other, 'light');
});

test('a style is guessed from the text', async (t) => {
  const page = await open(t);
  await page
    .locator('#source')
    .fill('entity Ab is\n  port (\n    Cd : in bit\n  );\nend;\n'.repeat(9));
  await page.getByRole('button', { name: 'Guess' }).press('Enter');
  await page.getByText('Lines that would change: 0.0 %').waitFor();
  await page.getByText('Nothing to change').waitFor();
  assert.equal(await page.getByLabel('INDENTATION', { exact: true }).inputValue(), '2');
  await shoot(page, 'guessed');
  await page.locator('#source').evaluate((field) => {
    field.value = field.value.repeat(2000);
  });
  await page.getByRole('button', { name: 'Guess' }).press('Enter');
  await page.getByRole('progressbar').waitFor();
  await page.getByRole('button', { name: 'Stop guessing' }).press('Enter');
  await page.getByText('Guessing stopped').waitFor();
});

test('a refused text stays', async (t) => {
  const page = await open(t, { colorScheme: 'dark' });
  await shoot(page, 'dark');
  await page.locator('#source').evaluate((field) => {
    field.value = 'x<=y;\0';
    field.dispatchEvent(new Event('input'));
  });
  await page.getByText(/Left as it is/).waitFor();
  await shoot(page, 'refused');
});

test('the keyboard reaches everything, and everything has a name', async (t) => {
  const page = await open(t, { viewport: { width: 600, height: 900 } });
  const unnamed = await page.evaluate(() =>
    [...document.querySelectorAll('input, select, textarea, button')]
      .filter((control) => !control.labels?.length && !control.textContent)
      .map((control) => control.id),
  );
  assert.deepEqual(unnamed, []);
  await page.locator('#source').fill(`x<=y;\nx <= y;\nx<=z;\n-- ${'long '.repeat(60)}\n`);
  await resultWith(page, 'x <= z');
  await page.locator('#next').press('Enter');
  await page.locator('#next').press('Enter');
  const selected = await page.evaluate(() => getSelection().toString());
  assert.equal(selected.trim(), 'x <= z;');
  const isScrollable = ({ scrollWidth, clientWidth }) => scrollWidth > clientWidth;
  assert.ok(await page.locator('#result').evaluate(isScrollable), 'long lines can be reached');
  await shoot(page, 'narrow');
});

test('a megabyte keeps the page answering', async (t) => {
  const page = await open(t);
  const longest = await page.evaluate(async () => {
    const source = document.querySelector('#source');
    source.value = source.value.repeat(Math.ceil(1_000_000 / source.value.length));
    const result = document.querySelector('#result');
    const size = result.textContent.length;
    source.focus();
    source.setSelectionRange(3000, 3000);
    let longest = 0;
    let last = performance.now();
    const timer = setInterval(() => {
      longest = Math.max(longest, performance.now() - last);
      last = performance.now();
    }, 5);
    for (let i = 0; i < 5; ++i) {
      document.execCommand('insertText', false, 'x');
      await new Promise((resolve) => setTimeout(resolve, 50));
    }
    while (result.textContent.length < 2 * size)
      await new Promise((resolve) => setTimeout(resolve, 20));
    clearInterval(timer);
    return longest;
  });
  t.diagnostic(`longest pause: ${Math.round(longest)} ms`);
});
