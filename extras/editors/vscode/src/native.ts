// Formatting by a program that the user has: the text goes through it as through a filter.
import { execFile } from 'node:child_process';
import { dirname } from 'node:path';
import * as vscode from 'vscode';

const mostBytes = 1 << 30;

export async function runNative(
  program: string,
  document: vscode.TextDocument,
  lines: [number, number][] = [],
  folder?: string,
): Promise<{ text?: string; complaints: string[] }> {
  const isFile = document.uri.scheme === 'file';
  const args = lines.map((range) => `--lines=${range.join(':')}`);
  if (isFile) args.push(`--stdin-filename=${document.uri.fsPath}`);
  const cwd = isFile ? dirname(document.uri.fsPath) : folder;
  const { failure, output, errors } = await run(program, [...args, '-'], cwd, document.getText());
  if (failure) {
    const reason = errors.trim() || failure.message;
    void vscode.window.showErrorMessage(`qorn: ${reason}`);
    return { complaints: [] };
  }
  if (errors) void vscode.window.showWarningMessage(`qorn: ${errors.trim()}`);
  return { text: output, complaints: [] };
}

function run(
  program: string,
  args: string[],
  cwd: string | undefined,
  input: string,
): Promise<{ failure: Error | null; output: string; errors: string }> {
  return new Promise((resolve) => {
    const child = execFile(
      program,
      args,
      { cwd, maxBuffer: mostBytes },
      (failure, output, errors) => resolve({ failure, output, errors }),
    );
    child.stdin?.on('error', () => {}); // the exit status says it
    child.stdin?.end(input);
  });
}
