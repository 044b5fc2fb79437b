// Files: what a command line names, and putting a new text in the place of an old one.
import {
  accessSync,
  chmodSync,
  chownSync,
  constants,
  readdirSync,
  realpathSync,
  renameSync,
  rmSync,
  statSync,
  writeFileSync,
} from 'node:fs';
import { dirname, join } from 'node:path';

const sourceEnding = /[^/\\]\.(vhd|vhdl|vht)$/i;
const writtenEnding = /[^/\\]\.(vho|vhm|vhi)$/i; // by tools

/**
 * The system's words for a failure.
 *
 * @param {any} error
 * @returns {string}
 */
export function reasonOf(error) {
  const [, words] = /^[A-Z0-9]+: (.+?)(?:, \w|$)/.exec(error.message) ?? [undefined, error.message];
  return words[0].toUpperCase() + words.slice(1);
}

/** @param {string} name */
function isHidden(name) {
  return name.startsWith('.');
}

/**
 * All sources in and below a folder, sorted; hidden names and links to folders are left out.
 *
 * @param {string} folder
 * @param {(file: string) => void} add
 * @param {(path: string, reason: string) => void} complain
 */
function walk(folder, add, complain) {
  const waiting = [folder];
  for (let path = waiting.pop(); path !== undefined; path = waiting.pop()) {
    if (path !== folder && !path.endsWith('/')) {
      add(path);
      continue;
    }
    const stem = path === '.' ? '' : path.replace(/\/*$/, '/');
    try {
      const entries = readdirSync(path, { withFileTypes: true })
        .filter((entry) => !isHidden(entry.name))
        .filter((entry) => entry.isDirectory() || sourceEnding.test(`/${entry.name}`))
        .map((entry) => stem + entry.name + (entry.isDirectory() ? '/' : ''));
      const order = entries.sort((a, b) => Buffer.compare(Buffer.from(a), Buffer.from(b)));
      waiting.push(...order.reverse());
    } catch (error) {
      complain(path, reasonOf(error));
    }
  }
}

/**
 * The files that paths stand for, each once, and what is wrong with the paths.
 *
 * @param {string[]} paths
 * @param {boolean} isForced
 */
export function findSources(paths, isForced) {
  /** @type {Map<string, string>} */
  const files = new Map();
  /** @type {string[]} */
  const trouble = [];
  /** @type {(path: string, reason: string) => void} */
  const complain = (path, reason) => {
    trouble.push(`${path}: ${reason}`);
  };
  /** @type {(path: string) => void} */
  const add = (path) => {
    const known = realpathSync(path);
    if (statSync(known).isFile() && !files.has(known)) files.set(known, path);
  };
  for (const path of paths) {
    try {
      const state = statSync(path);
      if (state.isDirectory()) walk(path, add, complain);
      else if (!state.isFile()) complain(path, 'not a regular file');
      else if (isForced || sourceEnding.test(`/${path}`) || writtenEnding.test(`/${path}`))
        add(path);
      else complain(path, 'not the name of a VHDL file; --force formats it anyway');
    } catch (error) {
      complain(path, reasonOf(error));
    }
  }
  return { files: [...files.values()], trouble };
}

/**
 * Which file it is, and in what state.
 *
 * @param {string} path
 */
export function stateOf(path) {
  return statSync(path, { bigint: true });
}

/** @typedef {ReturnType<typeof stateOf>} State */

/** @type {(a: State, b: State) => boolean} */
function isUnchanged(a, b) {
  return a.dev === b.dev && a.ino === b.ino && a.size === b.size && a.mtimeNs === b.mtimeNs;
}

/**
 * Puts a text in the place of a file, if its state is still that: written beside it, then renamed
 * over it, so that at any moment the file is the old one or the new one, whole. Mode and, where the
 * user may give them, owner and group are kept; a link is followed.
 *
 * @param {string} path
 * @param {State} asRead
 * @param {Uint8Array} text
 * @throws {Error} with the file as it was
 */
export function replaceFile(path, asRead, text) {
  const file = realpathSync(path);
  accessSync(file, constants.W_OK); // renaming would take no right to it
  const beside = join(dirname(file), `.qornfmt-${process.pid}.tmp`);
  try {
    writeFileSync(beside, text, { flag: 'wx', mode: 0o600 });
    giveOwner(beside, asRead);
    chmodSync(beside, Number(asRead.mode) & 0o7777);
    if (!isUnchanged(stateOf(file), asRead)) {
      throw new Error('changed by another program since it was read');
    }
    renameSync(beside, file);
  } catch (error) {
    rmSync(beside, { force: true });
    throw error;
  }
}

/** @type {(path: string, asRead: State) => void} */
function giveOwner(path, asRead) {
  const own = stateOf(path);
  if (own.uid === asRead.uid && own.gid === asRead.gid) return;
  try {
    chownSync(path, Number(asRead.uid), Number(asRead.gid));
  } catch {
    // the user's own then, as with an editor
  }
}
