#!/usr/bin/env node
// The program that formats files, folders and standard input. One file after the other; signals are
// answered between two of them, so that none is left half done.
import { readFileSync, statSync } from 'node:fs';
import { setImmediate } from 'node:timers/promises';
import { findSources, reasonOf, replaceFile, stateOf } from './command/files.js';
import { readOptions, usage } from './command/options.js';
import { SettingSource } from './command/settingsource.js';
import { drawSample, format, guessConfig, readConfig } from './index.js';

const status = { done: 0, changes: 1, trouble: 2 };

/** @typedef {import('./command/options.js').Options} Options */
/** @typedef {import('./command/settingsource.js').Configuration} Configuration */

/**
 * Settles when the text is written, so that both streams keep their order.
 *
 * @param {NodeJS.WriteStream} stream
 * @param {string | Uint8Array} text
 * @returns {Promise<void>}
 */
function print(stream, text) {
  return new Promise((resolve, reject) => {
    stream.write(text, (error) => (error ? reject(error) : resolve()));
  });
}

/** @param {string} line */
function say(line) {
  return print(process.stderr, `${line}\n`);
}

/** What a run prints, in the order of its files, and how it ends. */
class Report {
  changed = 0;
  left = 0;
  hasTrouble = false;
  /** @type {Set<Configuration>} */
  #told = new Set();

  /** @param {Options} options */
  constructor(options) {
    this.options = options;
    this.isReadOnly = Boolean(options.check || options.diff);
  }

  /** @param {string} line */
  async addTrouble(line) {
    this.hasTrouble = true;
    await say(line);
  }

  /** @param {string} line */
  async leave(line) {
    this.left += 1;
    await say(line);
  }

  /**
   * Complains about a configuration, once. False if nothing is to be formatted by it.
   *
   * @param {Configuration} configuration
   */
  async accepts(configuration) {
    const { trouble, complaints } = configuration;
    if (!this.#told.has(configuration) && (trouble || !this.options.quiet)) {
      for (const line of complaints) await say(line);
    }
    this.#told.add(configuration);
    if (trouble) this.hasTrouble = true;
    return !trouble;
  }

  /** @param {number} total of the files; 0 for standard input, which has no summary */
  async finish(total) {
    /** @type {(part: number) => string} */
    const counted = (part) => (total === 1 ? '1 file' : `${part} of ${total} files`);
    let summary = '';
    if (this.left > 0 && total > 1) summary = `${counted(this.left)} left as they are`;
    if (this.changed > 0) {
      summary += summary ? `, ${this.changed}` : counted(this.changed);
      summary += this.isReadOnly ? ' would change; qornfmt formats ' : ' formatted';
      if (this.isReadOnly) summary += this.changed === 1 ? 'it' : 'them';
    }
    if (summary && total > 0 && !this.options.quiet) await say(summary);
    if (this.hasTrouble || this.left > 0) return status.trouble;
    return this.isReadOnly && this.changed > 0 ? status.changes : status.done;
  }
}

/**
 * Formats a text and says what there is to say about it.
 *
 * @param {string} name
 * @param {Uint8Array} text
 * @param {Configuration} configuration
 * @param {Report} report
 */
async function judge(name, text, configuration, report) {
  const lines = report.options.lines?.map((range) => {
    const [first, last] = range.split(':').map(Number);
    return /** @type {[number, number]} */ ([first, last]);
  });
  const result = format(text, { config: configuration.files, lines, name });
  const about = result.complaints.slice(configuration.complaints.length);
  if (result.refused) {
    for (const line of about.slice(1)) await say(line);
    await report.leave(about[0]);
  } else if (!report.options.quiet) {
    for (const line of about) await say(line);
  }
  if (result.changed) report.changed += 1;
  if (result.changed && report.isReadOnly) {
    await print(process.stdout, report.options.diff ? result.diff : `${name}\n`);
  }
  return result;
}

/**
 * @param {string} file
 * @param {SettingSource} settings
 * @param {Report} report
 */
async function formatFile(file, settings, report) {
  let asRead;
  let text;
  try {
    asRead = stateOf(file);
    text = readFileSync(file);
  } catch (error) {
    await report.leave(`${file}: ${reasonOf(error)}`);
    return;
  }
  const configuration = settings.ofFile(file);
  if (!(await report.accepts(configuration))) {
    report.left += 1;
    return;
  }
  const result = await judge(file, text, configuration, report);
  if (!result.changed || report.isReadOnly) return;
  try {
    replaceFile(file, asRead, result.text);
  } catch (error) {
    report.changed -= 1;
    await report.leave(`${file}: not written: ${reasonOf(error)}`);
  }
}

/** @type {(paths: string[], settings: SettingSource, report: Report) => Promise<number>} */
async function formatPaths(paths, settings, report) {
  const { files, trouble } = findSources(paths, Boolean(report.options.force));
  for (const line of trouble) await report.addTrouble(line);
  for (const file of files) {
    await formatFile(file, settings, report);
    await setImmediate(); // lets signals in
  }
  if (files.length === 0 && trouble.length === 0 && !report.options.quiet) {
    await say('qornfmt: no VHDL files there');
  }
  return report.finish(files.length);
}

/** @type {(settings: SettingSource, report: Report) => Promise<number>} */
async function formatInput(settings, report) {
  const chunks = [];
  for await (const chunk of process.stdin) chunks.push(chunk);
  const text = Buffer.concat(chunks);
  const name = report.options['stdin-filename'];
  const configuration = name ? settings.ofFile(name) : settings.ofFolder('.');
  if (!(await report.accepts(configuration))) return status.trouble;
  const result = await judge(name ?? '<standard input>', text, configuration, report);
  if (report.isReadOnly || result.refused) return report.finish(0);
  await print(process.stdout, result.text);
  return status.done;
}

/** @type {(path: string, settings: SettingSource) => Promise<number>} */
async function showSettings(path, settings) {
  const isFolder = statSync(path, { throwIfNoEntry: false })?.isDirectory();
  const configuration = isFolder ? settings.ofFolder(path) : settings.ofFile(path);
  for (const { key, value, place } of readConfig(configuration.files).keys) {
    const row = `${key.padEnd(23)} ${value.padEnd(11)} # ${place || 'default'}\n`;
    await print(process.stdout, row);
  }
  for (const line of configuration.complaints) await say(line);
  if (configuration.trouble) return status.trouble;
  return configuration.complaints.length > 0 ? status.changes : status.done;
}

/** @type {(paths: string[], isForced: boolean) => Promise<number>} */
async function guess(paths, isForced) {
  const { files, trouble } = findSources(paths.length > 0 ? paths : ['.'], isForced);
  for (const line of trouble) await say(`qornfmt: ${line}`);
  const texts = drawSample(files.map((file) => statSync(file).size)).flatMap((place) => {
    try {
      return [readFileSync(files[place])];
    } catch {
      return []; // others tell enough
    }
  });
  const config = guessConfig(texts, files.length);
  if (!config) throw new Error('there are no VHDL files to guess from');
  await print(process.stdout, config);
  return trouble.length > 0 ? status.trouble : status.done;
}

/** @returns {string} */
function versionText() {
  const { version } = JSON.parse(readFileSync(new URL('./package.json', import.meta.url), 'utf8'));
  return `qornfmt version: ${version}\n`;
}

/** @param {string[]} args */
function read(args) {
  try {
    return readOptions(args);
  } catch (error) {
    const { message } = /** @type {Error} */ (error);
    const [complaint] = message.split('. To specify'); // and advice that helps nobody here
    throw new Error(`${complaint}\nqornfmt --help lists the options`);
  }
}

/** @type {(args: string[]) => Promise<number>} */
async function run(args) {
  const { options, paths } = read(args);
  if (options.help || options.version) {
    await print(process.stdout, options.help ? usage : versionText());
    return status.done;
  }
  if (options.guess) return guess(paths, Boolean(options.force));
  const settings = new SettingSource(options.config, readConfig);
  if (options.settings) return showSettings(paths[0] ?? '.', settings);
  const report = new Report(options);
  if (paths.length > 0 && paths[0] !== '-') return formatPaths(paths, settings, report);
  if (paths.length === 0 && process.stdin.isTTY) {
    await print(process.stderr, usage);
    return status.trouble;
  }
  return formatInput(settings, report);
}

process.on('SIGINT', () => process.exit(130));
process.on('SIGTERM', () => process.exit(143));
for (const stream of [process.stdout, process.stderr]) stream.on('error', () => {}); // told by print

try {
  process.exitCode = await run(process.argv.slice(2));
} catch (error) {
  process.exitCode = status.trouble;
  const { message, code } = /** @type {NodeJS.ErrnoException} */ (error);
  if (code !== 'EPIPE') await say(`qornfmt: ${message}`).catch(() => {});
}
