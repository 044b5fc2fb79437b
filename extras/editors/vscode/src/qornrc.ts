// Help with configurations: completion, explanation, and what has no effect. All from the table of
// keys that the formatter reads by.
import * as vscode from 'vscode';
import type { Config, Key, KeyTable } from '../../../npm/index.js';

type ReadConfig = (config?: Config) => KeyTable;

/** The problem that a complaint "NAME:LINE: ..." tells. */
export function problemOf(document: vscode.TextDocument, complaint: string): vscode.Diagnostic {
  const [, line, message] = /:(\d+): (.*)$/.exec(complaint) ?? [undefined, '1', complaint];
  const index = Math.min(Number(line), document.lineCount) - 1;
  const problem = new vscode.Diagnostic(
    document.lineAt(index).range,
    message,
    vscode.DiagnosticSeverity.Warning,
  );
  problem.source = 'qorn';
  return problem;
}

function valuesOf({ kind, choices, least, most }: Key): string {
  if (choices.length > 0) return choices.join(', ');
  return kind === 'number' ? `${least} to ${most}` : 'a quoted text';
}

/** appendText() would glue the words together by blanks that don't break. */
function plain(text: string): string {
  return text.replace(/[\\`*_{}[\]()<>#+\-.!~|&]/g, '\\$&');
}

function explain(key: Key): vscode.MarkdownString {
  const [help, values, fallback] = [key.help, valuesOf(key), key.fallback].map(plain);
  return new vscode.MarkdownString(
    `**${key.key}**: ${help}\n\nValues: ${values}. Default: ${fallback}`,
  );
}

/** In the order of the table. */
function placeOf(index: number): string {
  return String(index).padStart(3, '0');
}

function keyItem(key: Key, index: number): vscode.CompletionItem {
  const item = new vscode.CompletionItem(key.key, vscode.CompletionItemKind.Property);
  item.detail = `default ${key.fallback}`;
  item.documentation = explain(key);
  item.insertText = `${key.key} `;
  item.sortText = placeOf(index);
  item.command = { command: 'editor.action.triggerSuggest', title: 'values' };
  return item;
}

function valueItem(value: string, index: number, key: Key): vscode.CompletionItem {
  const item = new vscode.CompletionItem(value, vscode.CompletionItemKind.EnumMember);
  item.sortText = placeOf(index);
  if (value === key.fallback) item.detail = 'default';
  return item;
}

export function helpWithConfigurations(readConfig: ReadConfig): vscode.Disposable[] {
  const { keys, ignored } = readConfig();
  const findKey = (word: string) => keys.find(({ forms }) => forms.includes(word.toUpperCase()));
  const problems = vscode.languages.createDiagnosticCollection('qornrc');
  const check = (document: vscode.TextDocument) => {
    if (document.languageId !== 'qornrc') return;
    const { complaints } = readConfig([{ name: 'rc', text: document.getText() }]);
    problems.set(
      document.uri,
      complaints.map((line) => problemOf(document, line)),
    );
  };
  vscode.workspace.textDocuments.forEach(check);

  return [
    problems,
    vscode.workspace.onDidOpenTextDocument(check),
    vscode.workspace.onDidChangeTextDocument(({ document }) => check(document)),
    vscode.workspace.onDidCloseTextDocument(({ uri }) => problems.delete(uri)),
    vscode.languages.registerCompletionItemProvider('qornrc', {
      provideCompletionItems(document, position) {
        const before = document.lineAt(position).text.slice(0, position.character);
        if (before.includes('#')) return [];
        const [, word] = /([A-Za-z]+)[\s=]+\S*$/.exec(before) ?? [];
        const key = word === undefined ? undefined : findKey(word);
        if (key === undefined) return keys.map(keyItem);
        const values = key.choices.length > 0 ? key.choices : [key.fallback];
        return values.map((value, index) => valueItem(value, index, key));
      },
    }),
    vscode.languages.registerHoverProvider('qornrc', {
      provideHover(document, position) {
        const range = document.getWordRangeAtPosition(position);
        const word = range ? document.getText(range) : '';
        const key = findKey(word);
        if (key) return new vscode.Hover(explain(key), range);
        const isIgnored = ignored.includes(word.toUpperCase());
        return isIgnored ? new vscode.Hover('Accepted, and without effect.', range) : undefined;
      },
    }),
  ];
}
