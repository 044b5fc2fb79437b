// Formatting of VHDL documents, whole or by lines, and help with configurations.
import { resolve } from 'node:path';
import * as vscode from 'vscode';
import wasm from '../../../../build/wasm/qorn.wasm';
import { type Configuration, SettingSource } from '../../../npm/command/settingsource.js';
import { createFormatter } from '../../../npm/formatter.js';
import type { Config, FormatOptions } from '../../../npm/index.js';
import { runNative } from './native.js';
import { helpWithConfigurations, problemOf } from './qornrc.js';

const { format, readConfig } = createFormatter(new WebAssembly.Module(wasm));

type Lines = FormatOptions['lines'];

interface Text {
  bytes: Uint8Array;
  encoding: 'latin1' | 'utf8';
}

/** Files in a code page of single bytes are formatted in it, as widths are counted in bytes. */
function textOf(document: vscode.TextDocument): Text {
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
async function notify({ files, complaints }: Configuration): Promise<void> {
  const notice = complaints.map((line) => vscode.workspace.asRelativePath(line)).join('; ');
  const isNews = notice !== lastNotice;
  lastNotice = notice;
  if (!notice || !isNews) return;
  const answer = await vscode.window.showWarningMessage(`qorn: ${notice}`, 'Open');
  if (answer) await vscode.window.showTextDocument(vscode.Uri.file(resolve(files[0].name)));
}

/** Nothing, with a message, where a configuration can't be read. */
function configurationOf({ uri: { scheme, fsPath } }: vscode.TextDocument): Config | undefined {
  const source = new SettingSource(undefined, readConfig);
  const folder = workspaceFolder();
  if (scheme !== 'file' && folder === undefined) return [];
  const found = scheme === 'file' ? source.ofFile(fsPath) : source.ofFolder(folder ?? '');
  if (found.trouble) void vscode.window.showErrorMessage(`qorn: ${found.trouble}`);
  else void notify(found);
  return found.trouble ? undefined : found.files;
}

const problems = vscode.languages.createDiagnosticCollection('qorn');

/** Nothing where the text stays as it is. */
function formatHere(document: vscode.TextDocument, bytes: Uint8Array, lines: Lines) {
  const config = configurationOf(document);
  if (config === undefined) return undefined;
  const { text, changed, refused, complaints } = format(bytes, { config, lines, name: 'line' });
  const about = complaints.filter((line) => line.startsWith('line:'));
  if (refused) void vscode.window.showErrorMessage(`qorn: ${about[0]?.replace(':', ' ')}`);
  problems.set(
    document.uri,
    about.map((line) => problemOf(document, line)),
  );
  return changed ? text : undefined;
}

async function edit(document: vscode.TextDocument, lines?: Lines): Promise<vscode.TextEdit[]> {
  const program = vscode.workspace.getConfiguration('qorn', document).get<string>('path');
  const { version } = document;
  const { bytes, encoding } = textOf(document);
  if (/\p{Surrogate}|\ufffd/u.test(document.getText())) {
    void vscode.window.showErrorMessage(
      'qorn: wrong encoding (\ufffd): reopen the file with its own',
    );
    return [];
  }
  const result = program
    ? await runNative(program, document.uri, bytes, lines, workspaceFolder())
    : formatHere(document, bytes, lines);
  if (result === undefined || document.version !== version) return [];
  const all = new vscode.Range(0, 0, document.lineCount, 0); // the editor reduces it to what differs
  return [vscode.TextEdit.replace(all, Buffer.from(result).toString(encoding))];
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
