// The page: a configuration, which the form, the address and the field hold alike, and a text. Each
// change of either goes to the worker; while that is busy, only the last one waits.
import { drawMarks, showNextMark } from './marks.js';
import { TextView } from './view.js';

/* global WORKER, STYLES, SAMPLE */

/** @typedef {import('../npm/index.js').Key} Key */
/** @typedef {import('../npm/index.js').KeyTable} KeyTable */

/** @type {(id: string) => any} */
const at = (id) => document.getElementById(id);
const source = at('source');
const result = new TextView(at('result'));
const config = at('config');

// --- The worker ---

const workerUrl = URL.createObjectURL(new Blob([WORKER], { type: 'text/javascript' }));
const worker = new Worker(workerUrl);
let isBusy = false;
let isWaiting = false;

function refresh() {
  at('start').value = Object.keys(STYLES).find((name) => STYLES[name] === config.value) ?? '';
  isWaiting = isBusy;
  if (isBusy) return;
  isBusy = true;
  worker.postMessage({ text: source.value, config: config.value });
}

worker.addEventListener('message', ({ data }) => {
  isBusy = false;
  showResult(data.result);
  showTable(data.table);
  if (isWaiting) refresh();
});

worker.addEventListener('error', (event) => {
  at('status').textContent = `The formatter did not start: ${event.message}`;
});

// --- What it answers ---

/** @param {import('../npm/index.js').FormatResult<string>} formatted */
function showResult({ text, refused, complaints, changes }) {
  result.show(text);
  const lines = changes.reduce((sum, { newCount }) => sum + newCount, 0);
  const about = complaints.filter((line) => line.startsWith('line:'));
  let status =
    lines > 0 ? `${lines} ${lines === 1 ? 'line' : 'lines'} changed` : 'Nothing to change';
  if (refused) status = `Left as it is: ${about[0]?.replace(':', ' ')}`;
  if (at('status').textContent !== status) at('status').textContent = status;
  at('status').classList.toggle('refused', refused);
  drawMarks(
    source,
    changes.map(({ line, count }) => ({ line, count })),
  );
  drawMarks(
    result.element,
    changes.map(({ newLine, newCount }) => ({ line: newLine, count: newCount })),
  );
}

/** @param {KeyTable} table */
function showTable({ keys, complaints }) {
  if (at('form').childElementCount === 0) at('form').append(...keys.map(makeRow));
  for (const key of keys) fillRow(key);
  const items = complaints.map((line) => {
    const item = document.createElement('li');
    item.textContent = line;
    return item;
  });
  if (at('complaints').textContent !== complaints.join(''))
    at('complaints').replaceChildren(...items);
}

// --- The form ---

/** @type {(name: string, properties: object, ...children: any[]) => any} */
function make(name, properties, ...children) {
  const element = Object.assign(document.createElement(name), properties);
  element.append(...children);
  return element;
}

/** @param {string} value */
function unquoted(value) {
  return /^(["']).*\1$/.test(value) ? value.slice(1, -1) : '';
}

/** @param {string} text */
function quoted(text) {
  return text.includes('"') ? `'${text}'` : `"${text}"`;
}

/** @param {Key} key */
function makeControl({ key, kind, choices, least, most }) {
  const id = `key-${key}`;
  if (choices.length > 0) {
    const options = choices.map((choice) => make('option', { value: choice, textContent: choice }));
    return make('select', { id }, ...options);
  }
  if (kind === 'number') return make('input', { id, type: 'number', min: least, max: most });
  return make('input', { id, type: 'text', spellcheck: false });
}

/** @param {Key} row */
function makeRow(row) {
  const control = makeControl(row);
  const helpId = `help-${row.key}`;
  control.setAttribute('aria-describedby', helpId);
  control.addEventListener('input', () => writeConfig(row));
  return make(
    'div',
    { className: 'key' },
    make('label', { htmlFor: control.id, textContent: row.key }),
    control,
    make('p', { id: helpId, textContent: `${row.help}. Default: ${row.fallback}` }),
  );
}

/** @type {Map<string, Key>} */
const rows = new Map();

/** @param {Key} row */
function fillRow(row) {
  const { key, kind, value, fallback } = row;
  rows.set(key, row);
  const control = at(`key-${key}`);
  control.parentElement.classList.toggle('chosen', value !== fallback);
  if (control === document.activeElement && kind !== 'word') return;
  const shown = kind === 'text' ? unquoted(value) : value;
  const isOdd = control.options && ![...control.options].some((option) => option.value === shown);
  if (isOdd) control.append(make('option', { value: shown, textContent: shown }));
  if (control.value !== shown) control.value = shown;
}

/**
 * Writes the keys that differ from their defaults, in the order of the table.
 *
 * @param {Key} changed
 */
function writeConfig(changed) {
  const { value } = at(`key-${changed.key}`);
  if (changed.kind === 'number' && !/^\d+$/.test(value)) return;
  const row = /** @type {Key} */ (rows.get(changed.key));
  row.value = changed.kind === 'text' ? quoted(value) : value;
  setConfig(
    [...rows.values()]
      .filter((key) => key.value !== key.fallback)
      .map((key) => `${key.key.padEnd(23)} ${key.value}\n`)
      .join(''),
  );
}

// --- The configuration and the address ---

/** @param {string} text */
function setConfig(text) {
  config.value = text;
  keepInAddress();
  refresh();
}

function keepInAddress() {
  const hash = config.value ? `#config=${encodeURIComponent(config.value)}` : '#';
  history.replaceState(null, '', hash);
}

function readAddress() {
  const [, text] = /^#config=(.*)$/.exec(location.hash) ?? [];
  try {
    config.value = decodeURIComponent(text ?? '');
  } catch {
    config.value = '';
  }
  refresh();
}

// --- Guessing ---

/** @type {Worker | undefined} */
let guesser;

/** @param {string} message */
function endGuess(message) {
  guesser?.terminate();
  guesser = undefined;
  at('guess').textContent = 'Guess from the text';
  at('guessing').hidden = true;
  at('guessed').textContent = message;
}

/** In a worker of its own, which can be stopped: each key is tried on the whole text. */
function guess() {
  guesser = new Worker(workerUrl);
  at('guess').textContent = 'Stop guessing';
  at('guessing').hidden = false;
  at('guessed').textContent = 'Guessing …';
  guesser.addEventListener('message', ({ data }) => {
    if (data) setConfig(data);
    const [, share] = /^# (Lines that would change: .*)/m.exec(data) ?? [];
    endGuess(share ?? 'There is nothing to guess from');
  });
  guesser.addEventListener('error', (event) => endGuess(`Guessing failed: ${event.message}`));
  guesser.postMessage({ text: source.value, isGuess: true });
}

// --- Buttons ---

/** @type {(id: string, type: string, handler: (target: any) => void) => void} */
function on(id, type, handler) {
  at(id).addEventListener(type, (/** @type {Event} */ event) => handler(event.target));
}

/** @type {(button: HTMLElement, text: string) => Promise<void>} */
async function copy(button, text) {
  button.dataset.label ??= button.textContent ?? '';
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    const field = make('textarea', { value: text }); // pages from a file may have no clipboard
    document.body.append(field);
    field.select();
    document.execCommand('copy');
    field.remove();
    button.focus();
  }
  button.textContent = 'Copied';
  setTimeout(() => {
    button.textContent = button.dataset.label ?? '';
  }, 1500);
}

function download() {
  const url = URL.createObjectURL(new Blob([config.value], { type: 'application/octet-stream' }));
  make('a', { href: url, download: 'qornrc' }).click();
  setTimeout(() => URL.revokeObjectURL(url), 60000);
}

const choose = make('option', { value: '', textContent: 'choose a style' });
const names = Object.keys(STYLES).map((name) => make('option', { value: name, textContent: name }));
at('start').append(choose, ...names);
on('start', 'change', (target) => {
  if (target.value) setConfig(STYLES[target.value]);
});
on('load', 'change', async (target) => {
  if (target.files[0]) setConfig(await target.files[0].text());
  target.value = '';
});
let visited = 0;
on('next', 'click', () => {
  const change = showNextMark(result.element, visited);
  if (!change) return;
  visited = change.line;
  result.select(change.line, change.count);
});
on('guess', 'click', () => (guesser ? endGuess('Guessing stopped') : guess()));
on('copy-result', 'click', (target) => copy(target, result.text));
on('copy-config', 'click', (target) => copy(target, config.value));
on('copy-link', 'click', (target) => copy(target, location.href));
on('download', 'click', download);
on('source', 'input', refresh);
on('config', 'input', () => {
  keepInAddress();
  refresh();
});
addEventListener('hashchange', readAddress);

source.value = SAMPLE;
readAddress();
