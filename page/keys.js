// What is held down, whoever holds it: keyboard, fingers. The game sees virtual keys going down and up.

/** @typedef {{kind: number, code: number, x: number, y: number, buttons: number, item: string}} GameEvent */

// The kinds of events, numbered as the host numbers them.
export const Kind = { keyDown: 0, keyUp: 1, allKeysUp: 2, joystick: 3, joystickOff: 4, menu: 5, closeWindow: 6 };

export const Key = { escape: 27, space: 32, left: 37, up: 38, right: 39, down: 40, x: 88, z: 90 };

/** @type {GameEvent[]} */
let queue = [];
/** @type {Map<string, number>} holder and place, to the virtual key */
const held = new Map();

/** @param {number} kind @param {Partial<GameEvent>} [more] */
export function push(kind, more) {
  queue.push({ kind, code: 0, x: 0, y: 0, buttons: 0, item: '', ...more });
}

export function take() {
  const taken = queue;
  queue = [];
  return taken;
}

/** @param {number} code */
function isDown(code) {
  return [...held.values()].includes(code);
}

/** @param {string} place who holds it, and which of his keys @param {number} code */
export function press(place, code) {
  if (held.has(place)) return;
  if (!isDown(code)) push(Kind.keyDown, { code });
  held.set(place, code);
}

/** @param {string} place */
export function release(place) {
  const code = held.get(place);
  if (code === undefined) return;
  held.delete(place);
  if (!isDown(code)) push(Kind.keyUp, { code });
}

/** @param {string} place @param {number} code @param {boolean} down */
export function set(place, code, down) {
  if (down) press(place, code);
  else release(place);
}

/** @param {string} place @param {number} code */
export function tap(place, code) {
  press(place, code);
  release(place);
}

/** The keyboard is gone: releases will not be seen. */
export function releaseAll() {
  held.clear();
  push(Kind.allKeysUp);
}

/** @type {Record<string, number>} */
const named = {
  Escape: Key.escape, ' ': Key.space, ArrowLeft: Key.left, ArrowUp: Key.up, ArrowRight: Key.right, ArrowDown: Key.down,
  x: Key.x, z: Key.z,
};
/** @type {Record<string, number>} */
const placed = { KeyX: Key.x, KeyZ: Key.z };

/**
 * X and Z are what the layout writes so, and also the two keys side by side at the left of the bottom row, unless the
 * layout writes the other one there.
 * @param {KeyboardEvent} event
 */
export function codeOf(event) {
  return named[event.key.length === 1 ? event.key.toLowerCase() : event.key] ?? placed[event.code] ?? 0;
}

/** Whether the keyboard belongs to something on the page rather than to the game. */
function isElsewhere() {
  const active = document.activeElement;
  return document.querySelector('dialog[open]') !== null ||
    (active !== null && active.closest('#menus, #shelf, dialog, input') !== null);
}

export function listen() {
  addEventListener('keydown', (event) => {
    const code = codeOf(event);
    if (code === 0 || isElsewhere() || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    if (!event.repeat) press(`key ${event.code || event.key}`, code);
  });
  addEventListener('keyup', (event) => release(`key ${event.code || event.key}`));
}
