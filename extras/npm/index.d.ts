/** A configuration, with the name that complaints give it. */
export interface ConfigText {
  name: string;
  text: string | Uint8Array;
}

/** The text of a configuration, or several that behave like one long text. */
export type Config = string | Uint8Array | ConfigText | ConfigText[];

export interface FormatOptions {
  /** What a `.qornrc` says; without it, the defaults hold. */
  config?: Config;
  /** Format a part of a file, whose indentation stays. */
  keepIndentation?: boolean;
  /** Columns between tab stops of the text; else the configuration has it. */
  tabSize?: number;
  /** Format these lines alone: first and last, counted from 1. */
  lines?: [first: number, last: number][];
  /** What complaints and diffs call the text. */
  name?: string;
}

/** Lines of the old text, and those that take their place. */
export interface Change {
  line: number;
  count: number;
  newLine: number;
  newCount: number;
}

export interface FormatResult<Text> {
  /** The formatted text, or the old one where nothing changed. */
  text: Text;
  changed: boolean;
  /** Formatting would have done harm, or there was no memory: the complaints say why. */
  refused: boolean;
  /** "NAME:LINE: ...", about the text and the configuration. */
  complaints: string[];
  changes: Change[];
  /** A unified diff for `patch -p1`. */
  diff: Text;
}

/**
 * Formats VHDL until another pass changes nothing. Only blanks, line ends, letter case and the
 * layout of comments change; a result of which that is not true is refused. Byte order mark and
 * line ends stay of their kind. Bytes may be in any encoding that contains ASCII.
 */
export function format<Text extends string | Uint8Array>(
  text: Text,
  options?: FormatOptions,
): FormatResult<Text>;

/** A key of the configuration. */
export interface Key {
  key: string;
  /** All ways to write it. */
  forms: string[];
  kind: 'word' | 'number' | 'truth' | 'text';
  help: string;
  value: string;
  /** The value without a configuration. */
  fallback: string;
  /** "NAME:LINE" of the value, or empty. */
  place: string;
  choices: string[];
  /** The range that makes sense, of numbers. */
  least: number;
  most: number;
}

export interface KeyTable {
  keys: Key[];
  /** Keys that may be given and have no effect. */
  ignored: string[];
  /** All value words. */
  words: string[];
  complaints: string[];
}

/** Every key, with the value that a configuration gives it, and what is wrong with that. */
export function readConfig(config?: Config): KeyTable;

/**
 * The configuration with which formatting changes the fewest lines of these texts; an empty text if
 * none of them can be read. Takes seconds for a megabyte. Its first line names the number of files
 * of which they are a sample.
 */
export function guessConfig(texts: (string | Uint8Array)[], fileCount?: number): string;

/** Which of many files to guess from, by their sizes: evenly spread, and no more than needed. */
export function drawSample(sizes: number[]): number[];
