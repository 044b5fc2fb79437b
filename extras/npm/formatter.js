// The package without the loading of its module, for pages and editors that load it their way.
import { Caller } from './module.js';

const encoder = new TextEncoder();
const decoder = new TextDecoder('utf-8', { ignoreBOM: true });
const verdicts = ['same', 'changed', 'refused'];

/** @param {string | Uint8Array} text */
function bytesOf(text) {
  if (typeof text === 'string') return encoder.encode(text);
  if (ArrayBuffer.isView(text)) return text;
  throw new TypeError('a text has to be a string or a Uint8Array');
}

/** @param {Uint8Array} bytes */
function linesOf(bytes) {
  return decoder.decode(bytes).split('\n').slice(0, -1);
}

/**
 * Names and texts by turns.
 *
 * @param {import('./index.js').Config} config
 */
function argumentsOf(config) {
  const isText = typeof config === 'string' || config instanceof Uint8Array;
  const files = isText ? [{ name: '.qornrc', text: config }] : [config].flat();
  return files.flatMap(({ name, text }) => [bytesOf(name), bytesOf(text)]);
}

/** @param {string} line */
function changeOf(line) {
  const [first, count, newLine, newCount] = line.split(' ').map(Number);
  return { line: first, count, newLine, newCount };
}

/**
 * @template {string | Uint8Array} Text
 * @param {Text} text
 * @param {string} complaint
 * @returns {import('./index.js').FormatResult<Text>}
 */
function refusal(text, complaint) {
  const none = /** @type {Text} */ (typeof text === 'string' ? '' : new Uint8Array());
  const complaints = [complaint];
  return { text, changed: false, refused: true, complaints, changes: [], diff: none };
}

/**
 * The functions of the package over a module.
 *
 * @param {WebAssembly.Module} module
 */
export function createFormatter(module) {
  const caller = new Caller(module);

  /**
   * @template {string | Uint8Array} Text
   * @param {Text} text
   * @param {import('./index.js').FormatOptions} [options]
   * @returns {import('./index.js').FormatResult<Text>}
   */
  function format(text, options = {}) {
    const { config = [], keepIndentation = false, tabSize = 0, lines, name = 'text' } = options;
    if (typeof text === 'string' && /\p{Surrogate}/u.test(text)) {
      return refusal(
        text,
        `${name}:1: half a character (a lone surrogate), which no file can hold`,
      );
    }
    const asked = (lines ?? []).map((range) => range.join(':')).join('\n');
    if (lines?.length === 0) return { ...refusal(text, ''), refused: false, complaints: [] };
    const texts = [bytesOf(name), bytesOf(text), bytesOf(asked), ...argumentsOf(config)];
    try {
      const { status, parts } = caller.call('format', texts, [Number(keepIndentation), tabSize]);
      /** @param {Uint8Array} bytes */
      const shaped = (bytes) =>
        /** @type {Text} */ (typeof text === 'string' ? decoder.decode(bytes) : bytes);
      const changed = verdicts[status] === 'changed';
      return {
        text: changed ? shaped(parts[0]) : text,
        changed,
        refused: verdicts[status] === 'refused',
        complaints: linesOf(parts[1]),
        changes: linesOf(parts[2]).map(changeOf),
        diff: shaped(parts[3]),
      };
    } catch (error) {
      if (!(error instanceof RangeError)) throw error;
      return refusal(text, `${name}:1: ${error.message}`);
    }
  }

  /**
   * @param {import('./index.js').Config} [config]
   * @returns {import('./index.js').KeyTable}
   */
  function readConfig(config = []) {
    const { parts } = caller.call('keys', argumentsOf(config));
    return { ...JSON.parse(decoder.decode(parts[0])), complaints: linesOf(parts[1]) };
  }

  /**
   * @param {number[]} sizes
   * @returns {number[]}
   */
  function drawSample(sizes) {
    const { parts } = caller.call('sample', [encoder.encode(sizes.join('\n'))]);
    return linesOf(parts[0]).map(Number);
  }

  /**
   * @param {(string | Uint8Array)[]} texts
   * @param {number} [fileCount]
   */
  function guessConfig(texts, fileCount = texts.length) {
    const { parts } = caller.call('guess', texts.map(bytesOf), [fileCount]);
    return decoder.decode(parts[0]);
  }

  return { format, readConfig, drawSample, guessConfig };
}
