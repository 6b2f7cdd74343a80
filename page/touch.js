// Fingers: the first one drags the ship along and fires, a second one switches weapons, a tap is Space.
import * as keys from './keys.js';
import * as picture from './picture.js';

const tapTime = 250; // ms
const tapWay = 12; // pixels of the page
const reach = { left: 0, top: 0, right: 288, bottom: 432 }; // of the ship's corner, roughly; the game keeps it inside

/** @type {{id: number, startX: number, startY: number, x: number, y: number, time: number, shipX: number, shipY: number, anchored: boolean} | null} */
let finger = null;
const ways = /** @type {const} */ ([['left', keys.Key.left], ['right', keys.Key.right], ['up', keys.Key.up], ['down', keys.Key.down]]);

/** @param {PointerEvent} event */
function down(event) {
  if (event.pointerType === 'mouse' || /** @type {Element} */ (event.target).closest('button')) return;
  event.preventDefault();
  if (finger) return keys.tap('second finger', keys.Key.z);
  finger = { id: event.pointerId, startX: event.clientX, startY: event.clientY, x: event.clientX, y: event.clientY,
    time: event.timeStamp, shipX: 0, shipY: 0, anchored: false };
  keys.press('finger fire', keys.Key.x);
  showButtons();
}

/** @param {PointerEvent} event */
function move(event) {
  if (finger?.id !== event.pointerId) return;
  finger.x = event.clientX;
  finger.y = event.clientY;
}

/** @param {PointerEvent} event */
function up(event) {
  if (finger?.id !== event.pointerId) return;
  const way = Math.hypot(event.clientX - finger.startX, event.clientY - finger.startY);
  if (event.type === 'pointerup' && way < tapWay && event.timeStamp - finger.time < tapTime) {
    keys.tap('finger tap', keys.Key.space);
  }
  letGo();
}

function letGo() {
  finger = null;
  keys.release('finger fire');
  for (const [name] of ways) keys.release(`finger ${name}`);
}

/** @param {number} low @param {number} value @param {number} high */
function between(low, value, high) {
  return Math.max(low, Math.min(value, high));
}

/**
 * Called before each frame with where the ship is: it goes as far from where it was as the finger has gone, by the
 * eight directions of the keys.
 * @param {number} shipX @param {number} shipY pixels of the game @param {number} speed pixels a frame
 */
export function steer(shipX, shipY, speed) {
  if (!finger) return;
  if (!finger.anchored) {
    finger.shipX = shipX;
    finger.shipY = shipY;
    finger.anchored = true;
  }
  const size = picture.scale();
  const x = between(reach.left, finger.shipX + (finger.x - finger.startX) / size, reach.right) - shipX;
  const y = between(reach.top, finger.shipY + (finger.y - finger.startY) / size, reach.bottom) - shipY;
  const enough = Math.max(1, speed / 2);
  const wanted = { left: x < -enough, right: x > enough, up: y < -enough, down: y > enough };
  for (const [name, code] of ways) keys.set(`finger ${name}`, code, wanted[name]);
}

function showButtons() {
  /** @type {HTMLElement} */ (document.getElementById('touch-buttons')).hidden = false;
}

export function listen() {
  const screen = /** @type {HTMLElement} */ (document.getElementById('screen'));
  screen.addEventListener('pointerdown', down);
  addEventListener('pointermove', move);
  addEventListener('pointerup', up);
  addEventListener('pointercancel', up);
  addEventListener('blur', letGo);
  for (const name of ['touchstart', 'touchmove', 'gesturestart', 'contextmenu', 'dblclick']) {
    screen.addEventListener(name, (event) => {
      if (!(/** @type {Element} */ (event.target).closest('button'))) event.preventDefault();
    }, { passive: false });
  }
  const change = /** @type {HTMLElement} */ (document.getElementById('touch-switch'));
  change.addEventListener('pointerdown', (event) => {
    event.preventDefault();
    keys.tap('switch', keys.Key.z);
  });
}
