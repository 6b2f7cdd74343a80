// Makes the folder of static files that is the game in the browser: site.mjs BUILD_FOLDER OUT_FOLDER SOUNDFONT
//
// What the page fetches carries a piece of its content's hash in its name, and names it by that; index.html, the service
// worker and the manifest keep their names. Everything that shrinks lies there compressed as well (.br, .gz).
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { existsSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { brotliCompressSync, constants, gzipSync } from 'node:zlib';
import { midiSeconds } from './midi_seconds.mjs';

const [build, out, soundFont] = process.argv.slice(2);
const rate = 44100;
const hashDigits = 10;
const page = 'page', data = 'assets/data';

const version = readFileSync('CMakeLists.txt', 'utf8').match(/^project\(tarnveil VERSION ([\d.]+)/m)[1];

const hashOf = (bytes) => createHash('sha256').update(bytes).digest('hex').slice(0, hashDigits);

// Sound files are made once for each content of piece and instrument.
function soundFile(piece) {
  const midi = readFileSync(join(data, piece));
  const known = join(build, 'music', `${piece}.${hashOf(Buffer.concat([midi, Buffer.from(soundFont)]))}.mp3`);
  if (existsSync(known)) return readFileSync(known);
  mkdirSync(join(build, 'music'), { recursive: true });
  const raw = join(build, 'music', `${piece}.raw`);
  execFileSync('fluidsynth', ['-q', '-n', '-i', '-g', '0.45', '-R', '0', '-C', '0', '-o', 'synth.polyphony=48',
    '-r', String(rate), '-T', 'raw', '-O', 's16', '-F', raw, soundFont, join(data, piece)], { stdio: 'ignore' });
  execFileSync('lame', ['--quiet', '-r', '-s', String(rate / 1000), '-V', '5', raw, known]);
  rmSync(raw);
  return readFileSync(known);
}

const pieces = readdirSync(data).filter((name) => /\.mid$/i.test(name));
const names = {};  // what the page calls it, to the name it has
const files = new Map();  // name to bytes

function addHashed(called, bytes) {
  const dot = called.lastIndexOf('.');
  const name = `${called.slice(0, dot)}-${hashOf(bytes)}${called.slice(dot)}`;
  names[called] = name;
  files.set(name, bytes);
  return name;
}

// A module imports others of the page by name; those get theirs first. None imports one that imports it.
const modules = new Map();
function addModule(called) {
  if (modules.has(called)) return modules.get(called);
  let text = called === 'assets.js' ? assetsModule() : readFileSync(join(page, called), 'utf8');
  text = text.replace(/(from\s+')\.\/([\w-]+\.js)'/g, (_, from, other) => `${from}./${addModule(other)}'`);
  const name = addHashed(called, Buffer.from(text));
  modules.set(called, name);
  return name;
}

const { default: startJudge } = await import(pathToFileURL(resolve(build, 'judge.mjs')));
const called = (await startJudge({ wasmBinary: readFileSync(join(build, 'judge.wasm')) })).names();

function assetsModule() {
  const lengths = Object.fromEntries(pieces.map((piece) => [piece, midiSeconds(readFileSync(join(data, piece)))]));
  return `// Made by the build: the files' names, the pieces' lengths in seconds, what the game calls its levels and plays.
const here = new URL('.', import.meta.url);
const names = ${JSON.stringify(names)};
export const assets = Object.fromEntries(Object.entries(names).map(([called, name]) => [called, new URL(name, here).href]));
export const pieces = ${JSON.stringify(lengths)};
export const levels = ${JSON.stringify(called.levels)};
export const plays = ${JSON.stringify(called.plays)};
`;
}

function addPage() {
  let html = readFileSync(join(page, 'index.html'), 'utf8');
  for (const [called, name] of Object.entries(names)) html = html.replaceAll(`"${called}"`, `"${name}"`);
  const early = [...modules.values()].filter((name) => !/^(main|judge-worker)-/.test(name));
  html = html.replace('<script type="module"', early.map((name) => `<link rel="modulepreload" href="${name}">\n`).join('') + '<script type="module"');
  html = html.replace('VERSION<', `${version}<`);
  files.set('index.html', Buffer.from(html));
}

function addWorker() {
  const list = ['./', ...files.keys()].filter((name) => name !== 'index.html');
  const content = hashOf(Buffer.from(list.join() + hashOf(files.get('index.html'))));
  const text = readFileSync(join(page, 'sw.js'), 'utf8').replace('VERSION', content).replace("['FILES']", JSON.stringify(list));
  files.set('sw.js', Buffer.from(text));
}

function write() {
  rmSync(out, { recursive: true, force: true });
  for (const [name, bytes] of files) {
    mkdirSync(join(out, name, '..'), { recursive: true });
    writeFileSync(join(out, name), bytes);
    if (/\.(mp3|png)$/.test(name)) continue;
    const quality = { [constants.BROTLI_PARAM_QUALITY]: constants.BROTLI_MAX_QUALITY, [constants.BROTLI_PARAM_LGWIN]: 24 };
    writeFileSync(join(out, `${name}.br`), brotliCompressSync(bytes, { params: quality }));
    writeFileSync(join(out, `${name}.gz`), gzipSync(bytes, { level: 9 }));
  }
}

for (const program of ['game', 'judge']) {
  addHashed(`${program}.wasm`, readFileSync(join(build, `${program}.wasm`)));
  addHashed(`${program}.mjs`, readFileSync(join(build, `${program}.mjs`)));
}
for (const piece of pieces) addHashed(`music/${piece}.mp3`, soundFile(piece));
for (const icon of ['icon-192.png', 'icon-512.png']) addHashed(icon, readFileSync(join(page, icon)));
addHashed('style.css', readFileSync(join(page, 'style.css')));
const manifest = readFileSync(join(page, 'manifest.webmanifest'), 'utf8')
  .replace(/icon-(192|512)\.png/g, (icon) => names[icon]);
files.set('manifest.webmanifest', Buffer.from(manifest));
addModule('judge-worker.js');
addModule('main.js');
addPage();
addWorker();
write();

const shown = [...files.keys()].filter((name) => !/^(music|judge|icon-512)/.test(name) && name !== 'sw.js');
const sizes = (suffix) => shown.map((name) => readFileSync(existsSync(join(out, name + suffix)) ? join(out, name + suffix) : join(out, name)).length);
const sum = (list) => Math.round(list.reduce((a, b) => a + b, 0) / 1000);
console.log(`${out}: ${files.size} files; before the first picture ${sum(sizes(''))} kB, ${sum(sizes('.gz'))} kB gzip, ` +
  `${sum(sizes('.br'))} kB brotli`);
