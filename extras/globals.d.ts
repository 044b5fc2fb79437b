// What build.js puts in.
declare const WORKER: string;
declare const STYLES: Record<string, string>;
declare const SAMPLE: string;

declare module '*.wasm' {
  const bytes: Uint8Array<ArrayBuffer>;
  export default bytes;
}
