// One piece of music and one effect at a time, through Web Audio. Before the first gesture, and where there is no sound
// at all, everything goes on in silence.
import { assets, pieces } from './assets.js';

const fade = 1 / 60; // s: too fast to be heard as a fade, too slow to click
const effectGain = 85 / 128, effectPeak = 0.5; // the balance the waves are made for
const knee = 0.36, peak = 0.49; // of the music: above the knee peaks are bent towards the peak
const mostDecoded = 2; // pieces; each takes some 25 MB

/** @type {AudioContext | null} */
let context = null;
/** @type {GainNode} */
let master;
/** @type {AudioNode} */
let musicOut;
let volume = 0.8;

/** @type {{name: string, end: number, playing: boolean, from: number, since: number, node: AudioBufferSourceNode | null, gain: GainNode | null} | null} */
let piece = null;
/** @type {Map<string, Promise<AudioBuffer>>} */
const decoded = new Map();
/** @type {AudioBufferSourceNode | null} */
let effect = null;
/** @type {Map<string, AudioBuffer | null>} */
const waves = new Map();

/**

 * As the desktop bends what is too loud for the music's share.

 * @param {AudioContext} audio

 */
function makeBend(audio) {
  const points = 4097;
  const bend = audio.createWaveShaper();
  bend.curve = Float32Array.from({ length: points }, (_, i) => {
    const level = 2 * i / (points - 1) - 1;
    const over = Math.abs(level) - knee;
    return over <= 0 ? level : Math.sign(level) * (knee + (peak - knee) * (1 - Math.exp(-over / (peak - knee))));
  });
  return bend;
}

/** Called at each gesture: only in one may a page begin to sound. */
export function unlock() {
  if (context) return void (context.state === 'suspended' && context.resume());
  try {
    context = new AudioContext();
  } catch {
    return; // no sound on this machine
  }
  master = context.createGain();
  master.gain.value = volume;
  master.connect(context.destination);
  const bend = makeBend(context);
  bend.connect(master);
  musicOut = bend;
  void context.resume();
  if (piece?.playing) start(piece);
}

/** @param {number} share 0..1 */
export function setVolume(share) {
  volume = share;
  if (context) master.gain.setTargetAtTime(share, context.currentTime, fade);
}

/** @param {boolean} paused */
export function setPaused(paused) {
  void (paused ? context?.suspend() : context?.resume());
}

function now() {
  return context ? context.currentTime : performance.now() / 1000;
}

/** @param {AudioContext} audio @param {string} name */
function load(audio, name) {
  const known = decoded.get(name);
  if (known) return known;
  const oldest = decoded.keys().next();
  if (decoded.size >= mostDecoded && !oldest.done) decoded.delete(oldest.value);
  const loading = fetch(assets[`music/${name}.mp3`]).then((answer) => {
    if (!answer.ok) throw new Error(`${name}: ${answer.status}`);
    return answer.arrayBuffer();
  }).then((bytes) => audio.decodeAudioData(bytes));
  decoded.set(name, loading);
  loading.catch(() => decoded.delete(name));
  return loading;
}

/** @param {NonNullable<typeof piece>} wanted */
function start(wanted) {
  if (!context) return;
  const audio = context;
  load(audio, wanted.name).then((buffer) => {
    if (piece !== wanted || !wanted.playing || wanted.node) return;
    const gain = audio.createGain();
    const node = audio.createBufferSource();
    node.buffer = buffer;
    node.connect(gain).connect(musicOut);
    node.start(0, wanted.from);
    wanted.since = audio.currentTime;
    wanted.node = node;
    wanted.gain = gain;
  }).catch((error) => console.info(`${wanted.name}: no music: ${error.message}`));
}

/**

 * Where the piece is, in seconds.

 * @param {NonNullable<typeof piece>} wanted

 */
function position(wanted) {
  return wanted.playing ? wanted.from + now() - wanted.since : wanted.from;
}

function silence() {
  if (!piece?.node || !piece.gain || !context) return;
  piece.gain.gain.setTargetAtTime(0, context.currentTime, fade / 4);
  piece.node.stop(context.currentTime + 2 * fade);
  piece.node = null;
}

/** @param {string} name a file's name, "Stage1.mid" */
export function musicOpen(name) {
  musicClose();
  const end = pieces[name];
  if (end === undefined) return false;
  piece = { name, end, playing: false, from: 0, since: 0, node: null, gain: null };
  if (context) void load(context, name).catch(() => {});
  return true;
}

export function musicPlay() {
  if (!piece || piece.playing) return;
  piece.playing = true;
  piece.since = now();
  start(piece);
}

export function musicStop() {
  if (!piece) return;
  piece.from = Math.min(position(piece), piece.end);
  piece.playing = false;
  silence();
}

export function musicRewind() {
  musicStop();
  if (piece) piece.from = 0;
}

export function musicClose() {
  musicStop();
  piece = null;
}

/** A piece is over at its last event; what still sounds rings out. */
export function musicMode() {
  if (!piece) return '';
  if (piece.playing && position(piece) >= piece.end) {
    piece.playing = false;
    piece.from = piece.end;
    piece.node = null;
  }
  return piece.playing ? 'playing' : 'stopped';
}

/** @param {AudioBuffer} buffer */
function loudest(buffer) {
  let most = 0;
  for (let i = 0; i < buffer.numberOfChannels; ++i) {
    for (const level of buffer.getChannelData(i)) most = Math.max(most, Math.abs(level));
  }
  return most;
}

/** @param {AudioBuffer} buffer */
function sound(buffer) {
  if (!context) return;
  effect?.stop();
  const gain = context.createGain();
  gain.gain.value = Math.min(effectGain, effectPeak / Math.max(loudest(buffer), 0.01));
  effect = context.createBufferSource();
  effect.buffer = buffer;
  effect.connect(gain).connect(master);
  effect.start();
}

/**

 * The same two waves come again and again.

 * @param {Uint8Array} wave

 */
export function playWave(wave) {
  if (!context || context.state !== 'running' || wave.length < 44) return;
  const key = `${wave.length} ${wave.subarray(44, 2000).join()}`;
  const known = waves.get(key);
  if (known !== undefined) return known ? sound(known) : undefined;
  waves.set(key, null);
  context.decodeAudioData(wave.slice().buffer).then((buffer) => {
    waves.set(key, buffer);
    sound(buffer);
  }).catch(() => console.info(`an effect of ${wave.length} bytes cannot be played`));
}

/** For checks: what sounds. */
export function state() {
  return { context: context?.state ?? 'none', piece: piece?.name ?? '', playing: piece?.playing ?? false, sounding: !!piece?.node };
}
