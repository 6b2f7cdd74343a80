// The menu bar: the game's items as an accessible menu bar, worked by mouse, touch and keyboard.
import { Kind, push } from './keys.js';

/** @typedef {{name: string, caption: string, popup: boolean, separator: boolean}} Item */

const bar = /** @type {HTMLElement} */ (document.getElementById('menus'));
/** @type {(HTMLElement | null)[]} one for each item of the game's list, null for separators */
let rows = [];
/** @type {HTMLElement | null} the popup's button whose list is open */
let open = null;

/** @param {Element} element @param {string} caption */
function label(element, caption) {
  element.textContent = caption;
  if (/[^\x20-\x7e]/.test(caption)) element.setAttribute('lang', 'ja');
}

/** @param {Item} item */
function makePopup(item) {
  const holder = document.createElement('div');
  const button = document.createElement('button');
  const list = document.createElement('div');
  holder.className = 'popup';
  holder.setAttribute('role', 'none');
  button.type = 'button';
  button.tabIndex = bar.childElementCount ? -1 : 0;
  button.setAttribute('role', 'menuitem');
  button.setAttribute('aria-haspopup', 'menu');
  button.setAttribute('aria-expanded', 'false');
  button.dataset.name = item.name;
  label(button, item.caption);
  list.setAttribute('role', 'menu');
  list.setAttribute('aria-label', item.caption);
  list.hidden = true;
  button.addEventListener('click', () => (open === button ? close() : openList(button, false)));
  button.addEventListener('pointerenter', () => open && open !== button && openList(button, false));
  holder.append(button, list);
  bar.append(holder);
  return button;
}

/** @param {Element} list @param {Item} item */
function makeItem(list, item) {
  const button = document.createElement('button');
  button.type = 'button';
  button.tabIndex = -1;
  button.setAttribute('role', 'menuitem');
  button.dataset.name = item.name;
  label(button, item.caption);
  button.addEventListener('click', () => {
    if (button.getAttribute('aria-disabled') === 'true') return;
    push(Kind.menu, { item: item.name });
    close();
    leave();
  });
  list.append(button);
  return button;
}

/** @param {Item[]} items */
export function build(items) {
  bar.textContent = '';
  /** @type {Element} */
  let list = bar;
  rows = items.map((item) => {
    if (item.popup) {
      const button = makePopup(item);
      list = /** @type {Element} */ (button.nextElementSibling);
      return button;
    }
    if (!item.separator) return makeItem(list, item);
    const line = document.createElement('div');
    line.setAttribute('role', 'separator');
    list.append(line);
    return null;
  });
}

/** @param {string} state a digit for each item: 1 checked, 2 available */
export function sync(state) {
  rows.forEach((row, i) => {
    if (!row) return;
    const digit = Number(state[i]);
    row.setAttribute('aria-disabled', String((digit & 2) === 0));
    if (row.hasAttribute('aria-haspopup')) return;
    row.dataset.checked = String((digit & 1) !== 0);
  });
  for (const list of bar.querySelectorAll('[role=menu]')) tellChecks([...list.querySelectorAll('button')]);
}

/**
 * A list in which something is checked is one of options: of a choice where just one is and there are no groups.
 * @param {HTMLElement[]} items
 */
function tellChecks(items) {
  const checked = items.filter((item) => item.dataset.checked === 'true').length;
  if (checked === 0 && !items.some((item) => item.hasAttribute('aria-checked'))) return;
  const choice = checked === 1 && !items[0].parentElement?.querySelector('[role=separator]');
  for (const item of items) {
    item.setAttribute('role', choice ? 'menuitemradio' : 'menuitemcheckbox');
    item.setAttribute('aria-checked', item.dataset.checked ?? 'false');
  }
}

/** @param {HTMLElement} button @param {boolean} byKeyboard */
function openList(button, byKeyboard) {
  close();
  if (button.getAttribute('aria-disabled') === 'true') return;
  const list = /** @type {HTMLElement} */ (button.nextElementSibling);
  open = button;
  button.setAttribute('aria-expanded', 'true');
  list.hidden = false;
  if (byKeyboard) /** @type {HTMLElement | null} */ (list.querySelector('button'))?.focus();
  else button.focus();
}

function close() {
  if (!open) return;
  open.setAttribute('aria-expanded', 'false');
  /** @type {HTMLElement} */ (open.nextElementSibling).hidden = true;
  open = null;
}

/** The keyboard goes back to the game. */
function leave() {
  /** @type {HTMLElement | null} */ (document.activeElement)?.blur();
}

export function isOpen() {
  return open !== null;
}

/** @param {HTMLElement[]} items @param {number} step */
function moveFocus(items, step) {
  const at = items.indexOf(/** @type {HTMLElement} */ (document.activeElement));
  items[(at + step + items.length) % items.length].focus();
}

/** @param {number} step */
function moveAlongBar(step) {
  const tops = /** @type {HTMLElement[]} */ ([...bar.querySelectorAll('[aria-haspopup]')]);
  const at = tops.findIndex((top) => top.parentElement?.contains(document.activeElement));
  const next = tops[(at + step + tops.length) % tops.length];
  const wasOpen = open !== null;
  close();
  next.focus();
  if (wasOpen) openList(next, true);
}

/** @param {KeyboardEvent} event */
function onKey(event) {
  const target = /** @type {HTMLElement} */ (event.target);
  const top = target.hasAttribute('aria-haspopup');
  const items = open ? /** @type {HTMLElement[]} */ ([...(open.nextElementSibling?.querySelectorAll('button') ?? [])]) : [];
  /** @type {Record<string, () => void>} */
  const acts = {
    ArrowRight: () => moveAlongBar(1),
    ArrowLeft: () => moveAlongBar(-1),
    ArrowDown: () => (top ? openList(target, true) : moveFocus(items, 1)),
    ArrowUp: () => (top ? openList(target, true) : moveFocus(items, -1)),
    Home: () => items[0]?.focus(),
    End: () => items.at(-1)?.focus(),
    Escape: () => { const was = open; close(); if (was && !top) was.focus(); else leave(); },
    Enter: () => (top ? openList(target, true) : target.click()),
    ' ': () => (top ? openList(target, true) : target.click()),
  };
  const act = acts[event.key];
  if (!act) return;
  event.preventDefault();
  event.stopPropagation();
  act();
}

bar.addEventListener('keydown', onKey);
addEventListener('pointerdown', (event) => {
  if (open && !bar.contains(/** @type {Node} */ (event.target))) close();
});
addEventListener('keydown', (event) => {
  if (event.key !== 'F10') return;
  event.preventDefault();
  /** @type {HTMLElement | null} */ (bar.querySelector('button'))?.focus();
});
