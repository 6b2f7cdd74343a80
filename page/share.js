// Games as links: the list of the last ones, and the card that a link opens.
import { assets, levels, plays } from './assets.js';
import * as kept from './kept.js';
import { notice } from './notices.js';

/** @typedef {{error?: string, level: number, play: number, score: number, frames: number, invincible: boolean}} Told */
/** @typedef {Told & {agrees: boolean, message: string, spread: number, stage: number, won: boolean, energy: number}} Judged */

const secondsPerFrame = 0.039;
const longestTrial = 30000; // ms; a game of an hour takes some five seconds

/** @param {string} id */
const element = (id) => /** @type {HTMLElement} */ (document.getElementById(id));

/** @param {string} link */
export function addressOf(link) {
  const address = new URL(location.href);
  address.search = '';
  address.hash = `run=${link}`;
  return address.href;
}

/** The link's word in the address the page was opened with, or nothing. */
export function linkInAddress() {
  return /^#run=(.*)$/s.exec(location.hash)?.[1] ?? '';
}

/** @param {number} frames */
function timeOf(frames) {
  const seconds = Math.round(frames * secondsPerFrame);
  return `${Math.floor(seconds / 60)}:${String(seconds % 60).padStart(2, '0')}`;
}

/** @param {{level: number, play: number}} game */
function nameOf(game) {
  return `${plays[game.play] ?? 'Game'}, ${levels[game.level] ?? '?'}`;
}

/** @param {string} link */
async function share(link) {
  const url = addressOf(link);
  try {
    if (navigator.share && matchMedia('(pointer: coarse)').matches) await navigator.share({ title: 'Tarnveil', url });
    else await navigator.clipboard.writeText(url);
    notice('The link is copied.');
  } catch (error) {
    if (/** @type {Error} */ (error).name !== 'AbortError') prompt('The link to this game:', url);
  }
}

/** @param {string} words @param {() => void} act */
function button(words, act) {
  const made = document.createElement('button');
  made.type = 'button';
  made.textContent = words;
  made.addEventListener('click', act);
  return made;
}

/** @param {kept.Game} game */
function row(game) {
  const item = document.createElement('li');
  const words = document.createElement('span');
  const score = document.createElement('b');
  score.textContent = String(game.score);
  words.append(score, ` ${nameOf(game)}, ${timeOf(game.frames)}`);
  item.append(words);
  if (game.link === '') return item;
  const watch = document.createElement('a');
  watch.href = addressOf(game.link);
  watch.textContent = 'Watch';
  watch.addEventListener('click', () => setTimeout(() => location.reload()));
  item.append(button('Share', () => void share(game.link)), watch);
  return item;
}

export async function openGames() {
  const games = await kept.games();
  element('games-list').replaceChildren(...games.map(row));
  element('games-none').hidden = games.length > 0;
  /** @type {HTMLDialogElement} */ (element('games')).showModal();
}

/** @param {kept.Game} game */
export function gameOver(game) {
  void kept.keepGame(game);
  if (game.link === '') return;
  notice(`${nameOf(game)}: ${game.score}`, button('Share this game', () => void share(game.link)));
}

/** @param {[string, string][]} facts */
function showFacts(facts) {
  element('shared-facts').replaceChildren(...facts.flatMap(([name, value]) => {
    const term = document.createElement('dt'), words = document.createElement('dd');
    term.textContent = name;
    words.textContent = value;
    return [term, words];
  }));
}

/** @param {Judged} game */
function weapons(game) {
  const spread = Math.round(100 * game.spread / Math.max(1, game.frames));
  return `twin ${100 - spread} %, spread ${spread} %`;
}

/** @param {Told} told */
function firstFacts(told) {
  /** @type {[string, string][]} */
  const facts = [['Play', nameOf(told)], ['Score', String(told.score)], ['Time', timeOf(told.frames)]];
  if (told.invincible) facts.push(['Mode', 'invincible']);
  return facts;
}

/** @param {string} words @param {'good' | 'bad' | ''} kind */
function verdict(words, kind) {
  const line = element('shared-verdict');
  line.textContent = words;
  line.className = kind;
}

/**
 * Opens the card of a shared game. Answers whether it is to be watched, as soon as the player has chosen.
 * @param {string} link @returns {Promise<boolean>}
 */
export function openShared(link) {
  const card = /** @type {HTMLDialogElement} */ (element('shared'));
  const watch = /** @type {HTMLButtonElement} */ (element('shared-watch'));
  watch.disabled = true;
  card.showModal();
  const worker = new Worker(assets['judge-worker.js'], { type: 'module' });
  const bad = (/** @type {string} */ words) => {
    worker.terminate();
    watch.disabled = true;
    verdict(words, 'bad');
  };
  const alarm = setTimeout(() => bad('This game takes too long to be played through.'), longestTrial);
  worker.addEventListener('error', () => bad('This game cannot be played through here.'));
  worker.addEventListener('message', (event) => {
    const { told, judged } = event.data;
    if (told?.error) return clearTimeout(alarm), bad(`This is no game that can be shown: ${told.error}.`);
    if (told) showFacts(firstFacts(told));
    if (!judged) return;
    clearTimeout(alarm);
    worker.terminate();
    if (judged.error) return bad(`This game cannot be shown: ${judged.error}.`);
    if (!judged.agrees) return bad('Played through, it does not come to the end that the link claims.');
    showFacts([...firstFacts(judged), ['Weapons', weapons(judged)], ['End', judged.won ? 'won' : judged.energy > 0 ? 'left' : `lost in stage ${judged.stage || 'attack'}`]]);
    verdict('Played through: it ends just as it says.', 'good');
    watch.disabled = false;
    watch.focus();
  });
  worker.postMessage({ link, assets });
  return new Promise((resolve) => {
    const choose = (/** @type {boolean} */ wanted) => {
      clearTimeout(alarm);
      worker.terminate();
      card.close();
      resolve(wanted);
    };
    watch.onclick = () => choose(true);
    element('shared-play').onclick = () => choose(false);
    card.addEventListener('cancel', () => choose(false), { once: true });
  });
}
