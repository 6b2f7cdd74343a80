// The page as the program sees it: what src/host/web calls. All methods answer at once but `give`, for which the program
// stands still.
import { assets } from './assets.js';
import * as forms from './forms.js';
import * as keys from './keys.js';
import * as kept from './kept.js';
import * as menus from './menus.js';
import * as pads from './pads.js';
import * as picture from './picture.js';
import * as share from './share.js';
import * as sound from './sound.js';
import * as touch from './touch.js';
import { notice } from './notices.js';

const standingStep = 50; // ms between two looks while the game stands still
const shortWait = 20; // ms; such waits only save power, and may end a little late
const timerStep = 1; // ms: how coarse the browser's timers are

let wake = () => {};
let paused = false;
let inGame = false;
let frames = 0;
let yields = 0;
let ship = { x: 0, y: 0 };

/** @param {number} ms */
function sleep(ms) {
  return new Promise((resolve) => setTimeout(resolve, ms));
}

const { port1, port2 } = new MessageChannel();
/** @type {(() => void)[]} */
const turns = [];
port2.onmessage = () => turns.shift()?.();

/**

 * Lets the browser take what has happened.

 * @returns {Promise<void>}

 */
function turn() {
  return new Promise((resolve) => {
    turns.push(resolve);
    port1.postMessage(0);
  });
}

/** @returns {Promise<unknown>} */
function refresh() {
  return new Promise((resolve) => requestAnimationFrame(resolve)).then(turn);
}

/** @param {number} time ms of performance.now() */
async function until(time) {
  const left = time - performance.now();
  if (left < shortWait) return sleep(Math.ceil(left + timerStep));
  await sleep(left - timerStep);
  while (performance.now() < time) await turn();
}

/** @returns {Promise<void>} */
function step() {
  return new Promise((resolve) => {
    const alarm = setTimeout(() => resolve(), standingStep);
    wake = () => {
      clearTimeout(alarm);
      resolve();
    };
  });
}

/** @type {((time: number) => Promise<unknown>)[]} numbered as in src/host/web/page.h */
const turnsOf = [turn, refresh, until, step];
forms.onAct(() => wake());

const curtain = /** @type {HTMLElement} */ (document.getElementById('curtain'));
const curtainText = /** @type {HTMLElement} */ (document.getElementById('curtain-text'));

/** @param {string} words nothing: away with it */
function drawCurtain(words) {
  curtain.hidden = words === '';
  curtainText.textContent = words;
}

/** @param {boolean} now */
function setPaused(now) {
  if (paused === now) return;
  paused = now;
  sound.setPaused(now);
  drawCurtain(now ? 'Paused. Press a key or touch to go on.' : '');
  wake();
}

/** The keyboard is gone, and perhaps the player. */
function leave() {
  keys.releaseAll();
  if (inGame) setPaused(true);
}

export function listen() {
  addEventListener('blur', leave);
  document.addEventListener('visibilitychange', () => document.hidden && leave());
  for (const name of ['keydown', 'pointerdown']) {
    addEventListener(name, () => {
      sound.unlock();
      setPaused(false);
    });
  }
}

/** @param {{files: {name: string, bytes: Uint8Array}[], link: string, author: boolean, seed: string}} options */
export function makePage(options) {
  return {
    ...options,
    /** @param {number} what @param {number} time */
    give: (what, time) => turnsOf[what](time),
    /** @param {Uint8Array} pixels @param {number} width @param {number} height */
    show(pixels, width, height) {
      ++frames;
      picture.show(pixels, width, height);
    },
    buildMenus: menus.build,
    syncMenus: menus.sync,
    /** @param {string} caption */
    showWindow(caption) {
      document.title = caption;
      drawCurtain('');
      picture.fit();
    },
    standsStill: () => menus.isOpen() || paused,
    /** @param {number} shipX @param {number} shipY @param {number} speed */
    takeEvents(shipX, shipY, speed) {
      ++yields;
      ship = { x: shipX, y: shipY };
      touch.steer(shipX, shipY, speed);
      pads.poll(offerPad);
      return keys.take();
    },
    openForm: forms.open,
    syncForm: forms.sync,
    closeForm: forms.close,
    takeActs: forms.takeActs,
    /** @param {string} text @param {string} caption */
    openBox(text, caption) {
      if (options.link === '') return forms.openBox(text, caption);
      notice(text); // whoever watches a game need not answer for its player
    },
    boxIsOpen: forms.boxIsOpen,
    musicOpen: sound.musicOpen,
    musicPlay: sound.musicPlay,
    musicStop: sound.musicStop,
    musicRewind: sound.musicRewind,
    musicClose: sound.musicClose,
    musicMode: sound.musicMode,
    playWave: sound.playWave,
    /** @param {string} name @param {Uint8Array} bytes */
    keepFile(name, bytes) {
      void kept.keepFile(name, bytes.slice());
      return '';
    },
    gameStarted() {
      inGame = true;
    },
    /** @param {Omit<kept.Game, 'when'>} game */
    gameOver(game) {
      inGame = false;
      share.gameOver({ ...game, when: Date.now() });
    },
    /** @param {string} reason */
    programEnded(reason) {
      inGame = false;
      sound.musicClose();
      const over = /** @type {HTMLDialogElement} */ (document.getElementById('over'));
      const text = /** @type {HTMLElement} */ (document.getElementById('over-text'));
      text.textContent = reason || (options.link ? 'That was the whole game.' : 'The best scores are kept.');
      over.showModal();
    },
    /** @param {string} line */
    log: (line) => console.info(line),
    /** For checks. */
    state: () => ({ frames, yields, inGame, paused, ship, sound: sound.state() }),
    assets,
  };
}

function offerPad() {
  const item = document.querySelector('[data-name=Menu008]');
  if (item?.getAttribute('aria-checked') === 'false') keys.push(keys.Kind.menu, { item: 'Menu008' });
}
