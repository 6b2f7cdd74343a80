// What is kept between visits: the player's files, the last games, the page's options. In IndexedDB; where that is
// forbidden or full the game plays on and it is said once.

const scoresFile = 'Scores.DAT';
const stores = ['files', 'games', 'options'];
const mostGames = 30;

/** @type {IDBDatabase | null} */
let database = null;
/** @type {(words: string) => void} */
let tell = () => {};
let told = false;
/** @type {(name: string, bytes: Uint8Array) => void} */
let changedElsewhere = () => {};
const channel = 'BroadcastChannel' in globalThis ? new BroadcastChannel('tarnveil') : null;

/** @typedef {{link: string, level: number, play: number, score: number, frames: number, energy: number, when: number}} Game */

/** @template T @param {IDBRequest<T>} request @returns {Promise<T>} */
function done(request) {
  return new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error);
  });
}

/** @param {IDBTransaction} transaction @returns {Promise<void>} */
function complete(transaction) {
  return new Promise((resolve, reject) => {
    transaction.oncomplete = () => resolve();
    transaction.onabort = () => reject(transaction.error);
  });
}

/** @param {unknown} error */
function fail(error) {
  if (told) return;
  told = true;
  tell(`This browser keeps nothing here: ${error instanceof Error ? error.message : error}. ` +
    'The game plays on; scores and tables are gone when the page is closed.');
}

/** @param {(words: string) => void} notice @param {(name: string, bytes: Uint8Array) => void} changed */
export async function start(notice, changed) {
  tell = notice;
  changedElsewhere = changed;
  try {
    const request = indexedDB.open('tarnveil', 1);
    request.onupgradeneeded = () => {
      for (const name of stores) request.result.createObjectStore(name, { autoIncrement: name === 'games' });
    };
    database = await done(request);
    database.onversionchange = () => database?.close();
  } catch (error) {
    fail(error);
  }
  channel?.addEventListener('message', (event) => changedElsewhere(event.data.name, event.data.bytes));
}

/** @returns {Promise<{name: string, bytes: Uint8Array}[]>} */
export async function files() {
  if (!database) return [];
  try {
    const store = database.transaction('files').objectStore('files');
    const [names, contents] = await Promise.all([done(store.getAllKeys()), done(store.getAll())]);
    return names.map((name, i) => ({ name: String(name), bytes: contents[i] }));
  } catch (error) {
    fail(error);
    return [];
  }
}

/**

 * Of two tabs' scores the higher ones stay.

 * @param {Uint8Array} a @param {Uint8Array | undefined} b

 */
function bestOf(a, b) {
  if (!b || b.length !== a.length) return a;
  const one = new DataView(a.buffer, a.byteOffset, a.length), two = new DataView(b.buffer, b.byteOffset, b.length);
  for (let at = 0; at + 4 <= a.length; at += 4) one.setInt32(at, Math.max(one.getInt32(at, true), two.getInt32(at, true)), true);
  return a;
}

/**

 * Keeps a file the game has written.

 * @param {string} name @param {Uint8Array} bytes

 */
export async function keepFile(name, bytes) {
  if (!database) return;
  try {
    const transaction = database.transaction('files', 'readwrite', { durability: 'relaxed' });
    const store = transaction.objectStore('files');
    const merged = name === scoresFile ? bestOf(bytes.slice(), await done(store.get(name))) : bytes;
    store.put(merged, name);
    await complete(transaction);
    channel?.postMessage({ name, bytes: merged });
    changedElsewhere(name, merged);
  } catch (error) {
    told = false;
    fail(error);
  }
}

/** @param {string} name */
export async function dropFile(name) {
  if (!database) return;
  const transaction = database.transaction('files', 'readwrite');
  transaction.objectStore('files').delete(name);
  await complete(transaction);
}

/**

 * Replaces everything.

 * @param {{name: string, bytes: Uint8Array}[]} newFiles @param {Game[]} newGames

 */
export async function replaceAll(newFiles, newGames) {
  if (!database) throw new Error('this browser keeps nothing here');
  const transaction = database.transaction(['files', 'games'], 'readwrite');
  transaction.objectStore('files').clear();
  transaction.objectStore('games').clear();
  for (const { name, bytes } of newFiles) transaction.objectStore('files').put(bytes, name);
  for (const game of newGames) transaction.objectStore('games').add(game);
  await complete(transaction);
}

/**

 * The last games, newest first.

 * @returns {Promise<Game[]>}

 */
export async function games() {
  if (!database) return [];
  return (await done(database.transaction('games').objectStore('games').getAll())).reverse();
}

/** @param {Game} game */
export async function keepGame(game) {
  if (!database) return;
  try {
    const store = database.transaction('games', 'readwrite').objectStore('games');
    store.add(game);
    const keys = await done(store.getAllKeys());
    for (const key of keys.slice(0, -mostGames)) store.delete(key);
  } catch (error) {
    fail(error);
  }
}

/** @template T @param {string} name @param {T} otherwise @returns {Promise<T>} */
export async function option(name, otherwise) {
  if (!database) return otherwise;
  try {
    return (await done(database.transaction('options').objectStore('options').get(name))) ?? otherwise;
  } catch {
    return otherwise;
  }
}

/** @param {string} name @param {unknown} value */
export function setOption(name, value) {
  if (!database) return;
  try {
    database.transaction('options', 'readwrite').objectStore('options').put(value, name);
  } catch (error) {
    fail(error);
  }
}
