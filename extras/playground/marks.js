// Stripes behind the changed lines of a text. Only those in view exist, so that their number
// does not matter.

/** @typedef {{ line: number, count: number }} Lines */

/** @type {WeakMap<HTMLElement, Lines[]>} */
const marked = new WeakMap();

/** @param {HTMLElement} field */
function measure(field) {
  const { lineHeight, paddingTop } = getComputedStyle(field);
  return { row: Number.parseFloat(lineHeight), top: Number.parseFloat(paddingTop) };
}

/** @param {HTMLElement} field */
function draw(field) {
  const layer = /** @type {HTMLElement} */ (field.previousElementSibling);
  const { row, top } = measure(field);
  const first = (field.scrollTop - top) / row;
  const last = first + field.clientHeight / row;
  const stripes = (marked.get(field) ?? [])
    .filter(({ line, count }) => count > 0 && line - 1 <= last && line - 1 + count >= first)
    .map(({ line, count }) => {
      const stripe = document.createElement('div');
      stripe.style.top = `${top + (line - 1) * row - field.scrollTop}px`;
      stripe.style.height = `${count * row}px`;
      return stripe;
    });
  layer.replaceChildren(...stripes);
}

/**
 * Marks these lines, and no others, from now on.
 *
 * @param {HTMLElement} field
 * @param {Lines[]} lines
 */
export function drawMarks(field, lines) {
  if (!marked.has(field)) {
    field.addEventListener('scroll', () => draw(field), { passive: true });
    new ResizeObserver(() => draw(field)).observe(field);
  }
  marked.set(field, lines);
  draw(field);
}

/**
 * The change after a line, or the first one, scrolled into view.
 *
 * @param {HTMLElement} field
 * @param {number} after
 */
export function showNextMark(field, after) {
  const changes = (marked.get(field) ?? []).filter(({ count }) => count > 0);
  const next = changes.find(({ line }) => line > after) ?? changes[0];
  const { row, top } = measure(field);
  if (next) field.scrollTop = top + (next.line - 3) * row;
  return next;
}
