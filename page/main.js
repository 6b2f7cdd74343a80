// Starts everything: what is kept, the page around the game, the game itself.
import { assets } from './assets.js';
import * as kept from './kept.js';
import * as keys from './keys.js';
import * as page from './page.js';
import * as picture from './picture.js';
import * as share from './share.js';
import * as sound from './sound.js';
import * as storage from './storage.js';
import * as touch from './touch.js';
import { notice } from './notices.js';

/** @param {string} id */
const element = (id) => /** @type {HTMLElement} */ (document.getElementById(id));
/** @type {any} the program, once it runs */
let program = null;

function leaveFocus() {
  /** @type {HTMLElement | null} */ (document.activeElement)?.blur();
}

async function setUpShelf() {
  const volume = /** @type {HTMLInputElement} */ (element('volume'));
  const whole = /** @type {HTMLInputElement} */ (element('whole-pixels'));
  volume.value = String(await kept.option('volume', 80));
  whole.checked = await kept.option('wholePixels', true);
  sound.setVolume(Number(volume.value) / 100);
  picture.setWholePixels(whole.checked);
  volume.addEventListener('input', () => {
    sound.setVolume(Number(volume.value) / 100);
    kept.setOption('volume', Number(volume.value));
  });
  volume.addEventListener('change', leaveFocus);
  whole.addEventListener('change', () => {
    picture.setWholePixels(whole.checked);
    kept.setOption('wholePixels', whole.checked);
  });
  element('open-games').addEventListener('click', () => void share.openGames());
  element('open-kept').addEventListener('click', () => void storage.open());
  element('open-help').addEventListener('click', () => /** @type {HTMLDialogElement} */ (element('help')).showModal());
  element('full-screen').hidden = !document.fullscreenEnabled;
  element('full-screen').addEventListener('click', () => {
    void (document.fullscreenElement ? document.exitFullscreen() : document.documentElement.requestFullscreen());
    leaveFocus();
  });
  element('screen').addEventListener('pointerdown', leaveFocus);
  for (const dialog of document.querySelectorAll('dialog')) dialog.addEventListener('close', () => setTimeout(leaveFocus));
  element('over-again').addEventListener('click', startAgain);
  storage.listen();
}

function startAgain() {
  history.replaceState(null, '', location.pathname + location.search);
  location.reload();
}

/** @param {string} link */
async function startProgram(link) {
  const parameters = new URLSearchParams(location.search);
  const author = parameters.has('author') && link === '';
  const seed = /^\d{1,19}$/.exec(parameters.get('seed') ?? '')?.[0] ?? '';
  element('author-row').hidden = author;
  const [files, { default: start }] = await Promise.all([kept.files(), import(assets['game.mjs'])]);
  const made = page.makePage({ files, link, author, seed });
  Object.assign(globalThis, { tarnveil: made });
  program = await start({ page: made, locateFile: (/** @type {string} */ name) => assets[name] });
}

/** @param {string} name @param {Uint8Array} bytes */
function fileChanged(name, bytes) {
  program?.putPlayerFile(name, bytes);
}

async function main() {
  keys.listen();
  touch.listen();
  page.listen();
  addEventListener('hashchange', () => share.linkInAddress() && location.reload());
  await kept.start(notice, fileChanged);
  await setUpShelf();
  const link = share.linkInAddress();
  const watch = link !== '' && await share.openShared(link);
  await startProgram(watch ? link : '');
  // Last of all: it fetches the music too, which must not hold up the first picture.
  if ('serviceWorker' in navigator) await navigator.serviceWorker.register('sw.js').catch(() => {});
}

main().catch((error) => {
  element('curtain-text').textContent = `Tarnveil cannot start here: ${error.message}`;
});
