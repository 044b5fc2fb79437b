// Formatting by a program that the user has: the text goes through it as through a filter.
import { type ExecFileException, execFile } from 'node:child_process';
import { homedir } from 'node:os';
import { dirname, resolve } from 'node:path';
import * as vscode from 'vscode';

const mostBytes = 1 << 30;

/** Of a name without a folder, the system looks for the program; a folder is one of the project. */
function pathOf(program: string, folder = '.'): string {
  if (!/[\\/]/.test(program)) return program;
  return resolve(folder, program.replace(/^~(?=[\\/])/, homedir()));
}

/** Nothing, with a message, where the program fails. */
export async function runNative(
  program: string,
  { scheme, fsPath }: vscode.Uri,
  text: Uint8Array,
  lines: [number, number][] = [],
  folder?: string,
): Promise<Uint8Array | undefined> {
  const isFile = scheme === 'file';
  const args = lines.map((range) => `--lines=${range.join(':')}`);
  if (isFile) args.push(`--stdin-filename=${fsPath}`);
  const cwd = isFile ? dirname(fsPath) : folder;
  const { failure, output, errors } = await run(pathOf(program, folder), [...args, '-'], cwd, text);
  if (failure) {
    const isNone = failure.code === 'ENOENT';
    const reason = isNone ? `there is no program ${program} (the setting qorn.path)` : errors;
    void vscode.window.showErrorMessage(`qorn: ${reason || failure.message}`);
    return undefined;
  }
  if (errors) void vscode.window.showWarningMessage(`qorn: ${errors}`);
  return output;
}

function run(
  program: string,
  args: string[],
  cwd: string | undefined,
  input: Uint8Array,
): Promise<{ failure: ExecFileException | null; output: Uint8Array; errors: string }> {
  return new Promise((resolve) => {
    const options = { cwd, maxBuffer: mostBytes, encoding: 'buffer' as const };
    const child = execFile(program, args, options, (failure, output, errors) =>
      resolve({ failure, output, errors: errors.toString().trim() }),
    );
    child.stdin?.on('error', () => {}); // the exit status says it
    child.stdin?.end(input);
  });
}
