// Which configuration applies to a file: the one that was named; else all that the folders of
// $QORNRC hold; else the nearest .qornrc in the file's folder or above it, up to the root of a work
// tree or the home directory.
import { existsSync, lstatSync, readFileSync, realpathSync, statSync } from 'node:fs';
import { delimiter, dirname, isAbsolute, join, parse, relative, resolve } from 'node:path';
import { reasonOf } from './files.js';

const configName = '.qornrc';

/**
 * @typedef {object} Configuration
 * @property {{ name: string, text: Uint8Array }[]} files
 * @property {string[]} complaints about what has no effect
 * @property {string} [trouble] why a file can't be read; nothing is to be formatted then
 */

/** @param {string} path */
function canonical(path) {
  try {
    return realpathSync(path);
  } catch {
    return resolve(path);
  }
}

/** @param {string} file */
function shownName(file) {
  const below = relative(process.cwd(), resolve(file));
  return below === '' || below.startsWith('..') || isAbsolute(below) ? file : below;
}

/** @param {string} file */
function holdsConfiguration(file) {
  if (!existsSync(file))
    return lstatSync(file, { throwIfNoEntry: false })?.isSymbolicLink() ?? false;
  return statSync(file).isFile();
}

/** @typedef {typeof import('../index.js').readConfig} ReadConfig */

/** @type {(names: string[], readConfig: ReadConfig) => Configuration} */
function read(names, readConfig) {
  const files = [];
  for (const file of names) {
    const name = shownName(file);
    try {
      files.push({ name, text: readFileSync(file) });
    } catch (error) {
      const trouble = `${name}: ${reasonOf(error)}`;
      return { files: [], complaints: [trouble], trouble };
    }
  }
  return { files, complaints: readConfig(files).complaints };
}

export class SettingSource {
  /** @type {Configuration | undefined} */
  #forAll;
  #home = '';
  #readConfig;
  /** @type {Map<string, Configuration>} */
  #found = new Map();

  /**
   * @param {string | undefined} named
   * @param {ReadConfig} readConfig
   */
  constructor(named, readConfig) {
    this.#readConfig = readConfig;
    const { QORNRC: folders, HOME, USERPROFILE } = process.env;
    if (named) {
      this.#forAll = read([named], readConfig);
    } else if (folders !== undefined) {
      const files = folders.split(delimiter).map((folder) => folder && join(folder, configName));
      const held = files.filter((file) => file && holdsConfiguration(file));
      this.#forAll = read(held, readConfig);
    } else if (HOME || USERPROFILE) {
      this.#home = canonical(HOME || USERPROFILE || '');
    }
  }

  /** @param {string} file */
  ofFile(file) {
    const isLink = lstatSync(file, { throwIfNoEntry: false })?.isSymbolicLink();
    return this.ofFolder(dirname(isLink ? canonical(file) : file));
  }

  /** @param {string} folder */
  ofFolder(folder) {
    return this.#forAll ?? this.#nearest(canonical(folder));
  }

  /**
   * @param {string} folder
   * @returns {Configuration}
   */
  #nearest(folder) {
    const known = this.#found.get(folder);
    if (known) return known;
    const file = join(folder, configName);
    const isEnd =
      folder === this.#home || folder === parse(folder).root || existsSync(join(folder, '.git'));
    const answer =
      isEnd || holdsConfiguration(file)
        ? read(holdsConfiguration(file) ? [file] : [], this.#readConfig)
        : this.#nearest(dirname(folder));
    this.#found.set(folder, answer);
    return answer;
  }
}
