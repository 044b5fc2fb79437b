// A text of any size to read. It stands in blocks of lines, and the browser lays out those in view
// alone; to readers and to the search of the browser it is one text.

const blockLines = 200;

export class TextView {
  text = '';
  /** @type {string[]} with their line ends */
  #blocks = [];

  /** @param {HTMLElement} element */
  constructor(element) {
    this.element = element;
  }

  /** @param {string} text */
  show(text) {
    if (text === this.text) return;
    this.text = text;
    const lines = text.split(/(?<=\n)/);
    const count = Math.ceil(lines.length / blockLines);
    this.#blocks = Array.from({ length: count }, (_, i) =>
      lines.slice(i * blockLines, (i + 1) * blockLines).join(''),
    );
    const { children } = this.element;
    while (children.length > count) children[count].remove();
    for (const [i, block] of this.#blocks.entries()) {
      if (i >= children.length) this.element.append(document.createElement('div'));
      if (children[i].textContent !== block) children[i].textContent = block;
    }
  }

  /**
   * Selects lines, counted from 1.
   *
   * @type {(line: number, count: number) => void}
   */
  select(line, count) {
    const [beginNode, begin] = this.#placeOf(line - 1);
    const [endNode, end] = this.#placeOf(line - 1 + count);
    this.element.focus();
    getSelection()?.setBaseAndExtent(beginNode, begin, endNode, end);
  }

  /**
   * Where a line begins.
   *
   * @param {number} index
   * @returns {[Node, number]}
   */
  #placeOf(index) {
    const block = Math.floor(index / blockLines);
    const node = this.element.children[block]?.firstChild;
    if (!node) return [this.element, this.element.childNodes.length];
    const lines = this.#blocks[block].split(/(?<=\n)/).slice(0, index % blockLines);
    return [node, lines.join('').length];
  }
}
