// Formatting of VHDL documents, whole or by lines, and help with configurations.
import { dirname } from 'node:path';
import * as vscode from 'vscode';
import wasm from '../../../../build/wasm/qorn.wasm';
import { SettingSource } from '../../../npm/command/settingsource.js';
import { createFormatter } from '../../../npm/formatter.js';
import type { Config, FormatOptions } from '../../../npm/index.js';
import { runNative } from './native.js';
import { helpWithConfigurations, problemOf } from './qornrc.js';

const { format, readConfig } = createFormatter(new WebAssembly.Module(wasm));

interface Outcome {
  text?: string;
  complaints: string[];
}

type Lines = FormatOptions['lines'];

/** Files in a code page of single bytes are formatted in it, as widths are counted in bytes. */
function bytesOf(document: vscode.TextDocument): {
  bytes: Uint8Array;
  encoding: 'latin1' | 'utf8';
} {
  const { encoding = 'utf8' } = document as { encoding?: string };
  const text = document.getText();
  const isLatin = /^(iso88591|windows1252)$/.test(encoding) && !/[^\0-\xff]/.test(text);
  const own = isLatin ? 'latin1' : 'utf8';
  return { bytes: Buffer.from(text, own), encoding: own };
}

/** The folder whose configuration applies to a document without a file. */
function workspaceFolder(): string | undefined {
  return vscode.workspace.workspaceFolders?.find(({ uri }) => uri.scheme === 'file')?.uri.fsPath;
}

let lastNotice = '';

/** Says once what of a configuration has no effect. */
function notify(complaints: string[]): void {
  const notice = complaints.join('; ');
  if (notice && notice !== lastNotice) void vscode.window.showWarningMessage(`qorn: ${notice}`);
  lastNotice = notice;
}

/** Nothing, with a message, where a configuration can't be read. */
function configurationOf(document: vscode.TextDocument): Config | undefined {
  const { scheme, fsPath } = document.uri;
  const source = new SettingSource(undefined, readConfig);
  const folder = scheme === 'file' ? dirname(fsPath) : workspaceFolder();
  if (folder === undefined) return [];
  const { files, complaints, trouble } =
    scheme === 'file' ? source.ofFile(fsPath) : source.ofFolder(folder);
  if (trouble) void vscode.window.showErrorMessage(`qorn: ${trouble}`);
  else notify(complaints);
  return trouble ? undefined : files;
}

function formatHere(document: vscode.TextDocument, lines: Lines): Outcome {
  const config = configurationOf(document);
  if (config === undefined) return { complaints: [] };
  const { bytes, encoding } = bytesOf(document);
  const { text, changed, refused, complaints } = format(bytes, { config, lines, name: 'line' });
  const about = complaints.filter((line) => line.startsWith('line:'));
  if (refused) void vscode.window.showErrorMessage(`qorn: ${about[0]?.replace(':', ' ')}`);
  return { text: changed ? Buffer.from(text).toString(encoding) : undefined, complaints: about };
}

const problems = vscode.languages.createDiagnosticCollection('qorn');

async function edit(document: vscode.TextDocument, lines?: Lines): Promise<vscode.TextEdit[]> {
  const program = vscode.workspace.getConfiguration('qorn', document).get<string>('path');
  const { version } = document;
  const outcome = program
    ? await runNative(program, document, lines, workspaceFolder())
    : formatHere(document, lines);
  problems.set(
    document.uri,
    outcome.complaints.map((line) => problemOf(document, line)),
  );
  if (outcome.text === undefined || document.version !== version) return [];
  const all = new vscode.Range(0, 0, document.lineCount, 0); // the editor reduces it to what differs
  return [vscode.TextEdit.replace(all, outcome.text)];
}

/** The lines of a selection; one that ends before the first character of a line leaves it out. */
function linesOf({ start, end, isEmpty }: vscode.Range): [number, number] {
  const isLastOut = !isEmpty && end.character === 0 && end.line > start.line;
  return [start.line + 1, isLastOut ? end.line : end.line + 1];
}

export function activate(context: vscode.ExtensionContext): void {
  context.subscriptions.push(
    problems,
    vscode.languages.registerDocumentFormattingEditProvider('vhdl', {
      provideDocumentFormattingEdits: (document) => edit(document),
    }),
    vscode.languages.registerDocumentRangeFormattingEditProvider('vhdl', {
      provideDocumentRangeFormattingEdits: (document, range) => edit(document, [linesOf(range)]),
      provideDocumentRangesFormattingEdits: (document, ranges) =>
        edit(document, ranges.map(linesOf)),
    }),
    vscode.workspace.onDidChangeTextDocument(({ document }) => problems.delete(document.uri)),
    vscode.workspace.onDidCloseTextDocument(({ uri }) => problems.delete(uri)),
    ...helpWithConfigurations(readConfig),
  );
}
