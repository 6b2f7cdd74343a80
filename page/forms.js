// The game's forms and message boxes: a table of controls becomes a dialog with real controls at exactly their places.
// What the user does is only queued; the game carries it out and then says how everything stands.

/** @typedef {{name: string, caption: string, text: string, value: number}} State */
/**
 * @typedef {State & {kind: string, left: number, top: number, width: number, height: number, container: string,
 *   rightAligned: boolean, tabIndex: number, min: number, max: number, smallChange: number, largeChange: number}} Control
 */
/** @typedef {{name: string, caption: string, width: number, height: number, controls: Control[], focus: string}} Form */
/** @typedef {{act: string, name: string, text: string, value: number}} Act */
/** @typedef {{dialog: HTMLDialogElement, controls: Map<string, HTMLElement>, acts: Act[]}} Shown */

/** @type {Shown[]} the last one is on top */
const shown = [];
let wake = () => {};

/** @param {() => void} notify called when the user has done something */
export function onAct(notify) {
  wake = notify;
}

/** @param {Shown} form @param {string} act @param {string} [name] @param {Partial<Act>} [more] */
function queue(form, act, name = '', more = {}) {
  form.acts.push({ act, name, text: '', value: 0, ...more });
  wake();
}

/**

 * Pixels are the desktop's; a class gives what the control looks like.

 * @param {HTMLElement} element @param {Control} control

 */
function place(element, control) {
  Object.assign(element.style, { left: `${control.left}px`, top: `${control.top}px`, width: `${control.width}px`,
    height: `${control.height}px` });
  element.classList.add('control', control.kind);
}

/**

 * Doubled ampersands stand for one.

 * @param {string} caption

 */
function plain(caption) {
  return caption.replaceAll('&&', '&');
}

/**

 * A field is named by the label to its left or above it.

 * @param {Form} form @param {Control} control

 */
function nameFor(form, control) {
  const near = form.controls
    .filter((label) => label.kind === 'label' && label.container === control.container && label.caption !== '')
    .map((label) => ({ label, way: Math.hypot(label.left + label.width - control.left, 2 * (label.top - control.top)) }))
    .sort((a, b) => a.way - b.way)[0];
  const frame = form.controls.find((other) => other.name === control.container);
  return `${frame ? plain(frame.caption) + ' ' : ''}${near ? plain(near.label.caption) : ''} (${control.name})`;
}

/** @param {Shown} form @param {Form} design @param {Control} control */
function makeField(form, design, control) {
  const field = document.createElement('input');
  field.type = 'text';
  field.autocomplete = 'off';
  field.spellcheck = false;
  field.inputMode = 'decimal';
  field.setAttribute('aria-label', nameFor(design, control));
  field.addEventListener('input', () => queue(form, 'type', control.name, { text: field.value }));
  return field;
}

/** @param {Shown} form @param {Control} control */
function makeButton(form, control) {
  const button = document.createElement('button');
  button.type = 'button';
  button.addEventListener('click', () => queue(form, 'click', control.name));
  return button;
}

/**

 * Reports a drag once, when the box is dropped, as the desktop does.

 * @param {Shown} form @param {Form} design @param {Control} control

 */
function makeScroll(form, design, control) {
  const bar = document.createElement('div');
  const range = document.createElement('input');
  range.type = 'range';
  range.min = String(control.min);
  range.max = String(control.max);
  range.step = String(control.smallChange);
  range.setAttribute('aria-label', nameFor(design, control));
  if (control.kind === 'vScroll') range.setAttribute('aria-orientation', 'vertical');
  range.addEventListener('change', () => queue(form, 'scroll', control.name, { value: Number(range.value) }));
  range.addEventListener('keydown', (event) => {
    const keys = /** @type {Record<string, number>} */ ({ ArrowUp: -control.smallChange, ArrowLeft: -control.smallChange,
      ArrowDown: control.smallChange, ArrowRight: control.smallChange, PageUp: -control.largeChange, PageDown: control.largeChange });
    const way = keys[event.key];
    if (way === undefined) return;
    event.preventDefault(); // Left and Up go back, Right and Down go on, whichever way the bar lies
    range.value = String(Number(range.value) + way);
    queue(form, 'scroll', control.name, { value: Number(range.value) });
  });
  for (const way of [-1, 1]) bar.append(makeArrow(form, control, range, way));
  bar.insertBefore(range, bar.lastChild);
  return bar;
}

/** @param {Shown} form @param {Control} control @param {HTMLInputElement} range @param {number} way */
function makeArrow(form, control, range, way) {
  const arrow = document.createElement('button');
  arrow.type = 'button';
  arrow.tabIndex = -1;
  arrow.setAttribute('aria-hidden', 'true');
  arrow.className = `arrow ${way < 0 ? 'back' : 'on'}`;
  arrow.addEventListener('click', () => {
    range.value = String(Number(range.value) + way * control.smallChange);
    queue(form, 'scroll', control.name, { value: Number(range.value) });
  });
  return arrow;
}

/** @param {Shown} form @param {Form} design @param {Control} control */
function make(form, design, control) {
  if (control.kind === 'textField') return makeField(form, design, control);
  if (control.kind === 'button') return makeButton(form, control);
  if (control.kind === 'hScroll' || control.kind === 'vScroll') return makeScroll(form, design, control);
  if (control.kind === 'frame') {
    const frame = document.createElement('fieldset');
    frame.append(document.createElement('legend'));
    return frame;
  }
  const text = document.createElement('span');
  if (control.rightAligned) text.classList.add('right');
  return text;
}

/**

 * Caption, text and value as the game has them.

 * @param {HTMLElement} element @param {State} state

 */
function syncControl(element, state) {
  const caption = plain(state.caption);
  if (element instanceof HTMLInputElement) {
    if (element.value !== state.text) element.value = state.text;
  } else if (element.matches('.hScroll, .vScroll')) {
    const range = /** @type {HTMLInputElement} */ (element.querySelector('input'));
    if (range.value !== String(state.value)) range.value = String(state.value);
  } else {
    const words = element.querySelector('legend') ?? element;
    if (words.textContent !== caption) words.textContent = caption;
    if (/[^\x20-\x7e]/.test(caption)) words.setAttribute('lang', 'ja');
    if (element.classList.contains('label')) element.title = caption;
  }
}

/** @param {HTMLElement} element */
function focusable(element) {
  return /** @type {HTMLElement | null} */ (element.matches('input, button') ? element : element.querySelector('input'));
}

/** @param {Shown} form @param {string} name empty: the first in tab order */
function focusOn(form, name) {
  const element = name === '' ? null : focusable(form.controls.get(name) ?? form.dialog);
  if (element && document.activeElement !== element) element.focus();
}

/** @param {Form} design */
export function open(design) {
  const dialog = document.createElement('dialog');
  const title = document.createElement('h2');
  const close = document.createElement('button');
  const area = document.createElement('div');
  /** @type {Shown} */
  const form = { dialog, controls: new Map(), acts: [] };
  dialog.className = 'form';
  dialog.dataset.name = design.name;
  dialog.setAttribute('aria-label', design.caption || design.name);
  title.textContent = design.caption;
  close.type = 'button';
  close.className = 'close';
  close.setAttribute('aria-label', 'Close');
  close.addEventListener('click', () => queue(form, 'close'));
  area.className = 'area';
  Object.assign(area.style, { width: `${design.width}px`, height: `${design.height}px` });
  // In tab order, so that Tab and readers go the same way; frames first, so that what lies in them has its parent.
  const order = [...design.controls].sort((a, b) =>
    Number(b.kind === 'frame') - Number(a.kind === 'frame') || a.tabIndex - b.tabIndex);
  for (const control of order) {
    const element = make(form, design, control);
    place(element, control);
    element.dataset.name = control.name;
    element.addEventListener('focusin', () => queue(form, 'focus', control.name));
    syncControl(element, control);
    form.controls.set(control.name, element);
    (form.controls.get(control.container) ?? area).append(element);
  }
  dialog.append(title, close, area);
  dialog.addEventListener('cancel', (event) => {
    event.preventDefault(); // Esc: the game closes the form
    queue(form, 'close');
  });
  document.body.append(dialog);
  shown.push(form);
  dialog.showModal();
  const first = order.find((control) => ['textField', 'button', 'hScroll', 'vScroll'].includes(control.kind));
  focusOn(form, design.focus || (first?.name ?? ''));
}

/** @param {State[]} states @param {string} focus */
export function sync(states, focus) {
  const form = shown.at(-1);
  if (!form) return;
  for (const state of states) {
    const element = form.controls.get(state.name);
    if (element) syncControl(element, state);
  }
  focusOn(form, focus);
}

export function close() {
  const form = shown.pop();
  form?.dialog.close();
  form?.dialog.remove();
}

export function takeActs() {
  const form = shown.at(-1);
  return form ? form.acts.splice(0) : [];
}

const box = /** @type {HTMLDialogElement} */ (document.getElementById('box'));
box.addEventListener('close', () => wake());

/** @param {string} text @param {string} caption */
export function openBox(text, caption) {
  /** @type {HTMLElement} */ (document.getElementById('box-title')).textContent = caption;
  const words = /** @type {HTMLElement} */ (document.getElementById('box-text'));
  words.textContent = text;
  if (/[^\x20-\x7e]/.test(text)) words.setAttribute('lang', 'ja');
  else words.removeAttribute('lang');
  box.showModal();
}

export function boxIsOpen() {
  return box.open;
}
