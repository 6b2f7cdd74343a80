// Plays recorded games in node and compares them with their fingerprints: digests.mjs BUILD_FOLDER RECORDING...
import { readFileSync } from 'node:fs';
import { resolve } from 'node:path';
import { pathToFileURL } from 'node:url';

const [folder, ...recordings] = process.argv.slice(2);
const { default: start } = await import(pathToFileURL(resolve(folder, 'judge.mjs')));
const judge = await start({ wasmBinary: readFileSync(resolve(folder, 'judge.wasm')) });

let failed = 0;
for (const file of recordings) {
  const text = readFileSync(file, 'utf8');
  const wanted = BigInt('0x' + /digest=([0-9a-f]+)\s*$/.exec(text)[1]);
  const before = performance.now();
  const played = judge.judge(text);
  const seconds = (performance.now() - before) / 1000;
  const link = judge.linkOf(text);
  const shared = judge.judge(link);
  const good = played.agrees && shared.agrees && BigInt(played.digest) === wanted && shared.digest === played.digest;
  if (!good) ++failed;
  console.log(`${good ? 'agrees ' : 'DIFFERS'} ${file.split('/').pop()} ${played.frames} frames, ` +
    `${Math.round(played.frames / seconds)}/s, ${wanted.toString(16)}, link ${link.length} characters ` +
    (played.error ?? played.message) + (shared.error ?? shared.message));
}
console.log(`${recordings.length - failed} passed, ${failed} failed`);
process.exit(failed ? 1 : 0);
