// Formats beside the page, so that the page answers to keys whatever the size of a text.
import bytes from '../../build/wasm/qorn.wasm';
import { createFormatter } from '../npm/formatter.js';

const { format, guessConfig, readConfig } = createFormatter(new WebAssembly.Module(bytes));

addEventListener('message', ({ data: { text, config, isGuess } }) => {
  if (isGuess) postMessage(guessConfig([text]));
  else postMessage({ result: format(text, { config, name: 'line' }), table: readConfig(config) });
});
