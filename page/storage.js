// The dialog of what is kept: the list, all of it as one zip file, and such a file read back.
import * as kept from './kept.js';
import { notice } from './notices.js';
import { unzip, zip } from './zip.js';

const gamesFile = 'games.json';
const mostOfFile = 4 << 20; // bytes
const fileName = /^[A-Za-z0-9]{1,20}\.(DAT|wav)$/;
const linkWord = /^[A-Za-z0-9_-]{0,16384}$/;

/** @param {string} id */
const element = (id) => /** @type {HTMLElement} */ (document.getElementById(id));

export async function open() {
  const files = await kept.files(), games = await kept.games();
  const rows = files.map(({ name, bytes }) => {
    const item = document.createElement('li'), words = document.createElement('span'), drop = document.createElement('button');
    words.textContent = `${name}, ${bytes.length} bytes`;
    drop.type = 'button';
    drop.textContent = name === 'Scores.DAT' ? 'Forget' : 'Back to the shipped one';
    drop.addEventListener('click', () => void kept.dropFile(name).then(() => location.reload()));
    item.append(words, drop);
    return item;
  });
  const last = document.createElement('li');
  last.textContent = games.length === 1 ? '1 game' : `${games.length} games`;
  element('kept-list').replaceChildren(...rows, last);
  /** @type {HTMLDialogElement} */ (element('kept')).showModal();
}

async function save() {
  const games = new TextEncoder().encode(JSON.stringify(await kept.games()));
  const file = zip([...await kept.files(), { name: gamesFile, bytes: games }]);
  const link = document.createElement('a');
  link.href = URL.createObjectURL(file);
  link.download = 'tarnveil.zip';
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}

/** @param {unknown} list @returns {kept.Game[]} */
function checkedGames(list) {
  if (!Array.isArray(list)) throw new Error(`${gamesFile}: no list of games`);
  return list.slice(0, 100).reverse().map((game) => {
    const numbers = ['level', 'play', 'score', 'frames', 'energy', 'when'].map((name) => [name, Number(game?.[name]) || 0]);
    if (!linkWord.test(String(game?.link))) throw new Error(`${gamesFile}: a link is damaged`);
    return /** @type {kept.Game} */ ({ link: String(game.link), ...Object.fromEntries(numbers) });
  });
}

/** @param {File} file */
async function read(file) {
  if (file.size > mostOfFile) throw new Error('it is too large');
  const files = await unzip(new Uint8Array(await file.arrayBuffer()));
  const list = files.find(({ name }) => name === gamesFile);
  const own = files.filter(({ name }) => name !== gamesFile);
  for (const { name } of own) if (!fileName.test(name)) throw new Error(`${name}: not a file of this game`);
  await kept.replaceAll(own, list ? checkedGames(JSON.parse(new TextDecoder().decode(list.bytes))) : []);
}

export function listen() {
  const input = /** @type {HTMLInputElement} */ (element('import-file'));
  element('export').addEventListener('click', () => void save());
  element('import').addEventListener('click', () => input.click());
  input.addEventListener('change', () => {
    const file = input.files?.[0];
    if (!file) return;
    read(file).then(() => location.reload(), (error) => notice(`${file.name}: ${error.message}. Nothing has changed.`));
    input.value = '';
  });
}
