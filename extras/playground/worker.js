// Formats beside the page, so that the page answers to keys whatever the size of a text.
import bytes from '../../build/wasm/qorn.wasm';
import { createFormatter } from '../npm/formatter.js';

const { format, readConfig } = createFormatter(new WebAssembly.Module(bytes));

addEventListener('message', ({ data: { text, config } }) => {
  postMessage({
    result: format(text, { config, name: 'line' }),
    table: readConfig(config),
    config,
  });
});
