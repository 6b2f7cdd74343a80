// Short words at the edge of the page that go away by themselves.

const list = /** @type {HTMLElement} */ (document.getElementById('notices'));
const staying = 9000; // ms

/** @param {string} words @param {HTMLElement} [act] */
export function notice(words, act) {
  const item = document.createElement('div');
  const text = document.createElement('span');
  text.textContent = words;
  item.append(text);
  if (act) item.append(act);
  list.append(item);
  while (list.childElementCount > 3) list.firstElementChild?.remove();
  setTimeout(() => item.remove(), staying);
}
