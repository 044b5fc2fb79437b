// The command line, as that of the native qornfmt, short of what needs git.
import { parseArgs } from 'node:util';

export const usage = `usage: qornfmt [OPTION...] [PATH...]

Formats VHDL: files in place, folders with all *.vhd, *.vhdl and *.vht in them, or
standard input, which is what "-" names, to standard output. Every result is compared
with its source before it is written: only blanks, line ends, letter case and the
layout of comments may differ.

      --check               change nothing, list what would change
      --diff                change nothing, print what would change, for patch -p1
      --lines A:B           only these lines of one file, from 1; may be repeated
      --stdin-filename NAME what standard input is called, for settings and messages
  -c, --config FILE         settings from this file alone; else from $QORNRC, or from the
                            nearest .qornrc in the folder of a file or above
      --settings [PATH]     print the settings that apply there, and what has no effect
      --guess               print the settings that suit the sources as they are
  -j, --jobs N              without effect here
  -q, --quiet               print no summaries and no warnings
      --force               format files with any suffix
  -h, --help                print this text
      --version             print the version

Status: 0 nothing to do, or done; 1 --check or --diff found changes; 2 trouble.
`;

/** @type {import('node:util').ParseArgsConfig['options']} */
const known = {
  check: { type: 'boolean' },
  diff: { type: 'boolean' },
  lines: { type: 'string', multiple: true },
  'stdin-filename': { type: 'string' },
  config: { type: 'string', short: 'c' },
  settings: { type: 'boolean' },
  guess: { type: 'boolean' },
  jobs: { type: 'string', short: 'j' },
  quiet: { type: 'boolean', short: 'q' },
  force: { type: 'boolean' },
  help: { type: 'boolean', short: 'h' },
  version: { type: 'boolean' },
};

/**
 * @typedef {object} Options
 * @property {boolean} [check]
 * @property {boolean} [diff]
 * @property {string[]} [lines]
 * @property {string} [stdin-filename]
 * @property {string} [config]
 * @property {boolean} [settings]
 * @property {boolean} [guess]
 * @property {boolean} [quiet]
 * @property {boolean} [force]
 * @property {boolean} [help]
 * @property {boolean} [version]
 */

/** @param {string} text */
function isRange(text) {
  const [, first, last] = /^(\d+):(\d+)$/.exec(text) ?? [];
  return Number(first) >= 1 && Number(first) <= Number(last);
}

/**
 * What means nothing together, the first that applies.
 *
 * @param {Options} options
 * @param {string[]} paths
 */
function findContradiction(options, paths) {
  const hasInput = paths.includes('-');
  const wrong = options.lines?.find((text) => !isRange(text));
  const isJudging = options.check || options.diff || options.lines;
  /** @type {[unknown, string][]} */
  const rows = [
    [wrong !== undefined, `--lines needs FIRST:LAST, counted from 1: ${wrong}`],
    [options.config === '', '-c needs the name of a file'],
    [hasInput && paths.length > 1, "standard input (-) can't be formatted along with files"],
    [options.lines && paths.length > 1, '--lines needs one file, or standard input'],
    [
      options.guess && (isJudging || options.settings || hasInput || options.config !== undefined),
      '--guess looks at files and prints settings',
    ],
    [options.settings && isJudging, '--settings prints settings and formats nothing'],
    [options.settings && paths.length > 1, '--settings needs one path'],
    [
      options['stdin-filename'] && paths.length > 0 && !hasInput,
      '--stdin-filename is for standard input alone',
    ],
  ];
  return rows.find(([applies]) => applies)?.[1];
}

/**
 * @param {string[]} args
 * @returns {{ options: Options, paths: string[] }}
 * @throws {Error} with what is wrong
 */
export function readOptions(args) {
  const ofGit = args.find((arg) => /^--(staged|changed)\b/.test(arg));
  if (ofGit) throw new Error(`${ofGit} is an option of the native qornfmt alone`);
  const { values, positionals } = parseArgs({ args, options: known, allowPositionals: true });
  const options = /** @type {Options} */ (values);
  const complaint = findContradiction(options, positionals);
  if (complaint) throw new Error(complaint);
  return { options, paths: positionals };
}
