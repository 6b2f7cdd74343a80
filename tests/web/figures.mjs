// How quick and how light the built site is in Chromium: figures.mjs SITE_FOLDER [seconds of play]
import { readFileSync, readdirSync } from 'node:fs';
import { atTitle, endGame, launch, openPage, serve, sleep, startGame } from './site.mjs';

const [site, seconds = '30'] = process.argv.slice(2);
const ticks = 100; // of processor time in a second

/** Processor seconds and resident megabytes of a process and all its children. */
function used(root) {
  const processes = readdirSync('/proc').filter((name) => /^\d+$/.test(name)).flatMap((pid) => {
    try {
      const fields = readFileSync(`/proc/${pid}/stat`, 'utf8').replace(/^.*\) /s, '').split(' ');
      return [{ pid: Number(pid), parent: Number(fields[1]), time: Number(fields[11]) + Number(fields[12]), pages: Number(fields[21]) }];
    } catch {
      return []; // it has just ended
    }
  });
  const family = new Set([root]);
  for (let size = 0; size !== family.size;) {
    size = family.size;
    for (const { pid, parent } of processes) if (family.has(parent)) family.add(pid);
  }
  const ours = processes.filter(({ pid }) => family.has(pid));
  return { time: ours.reduce((sum, { time }) => sum + time, 0) / ticks, memory: ours.reduce((sum, { pages }) => sum + pages, 0) * 4096 / 1e6 };
}

async function share(pid, forSeconds) {
  const before = used(pid).time;
  await sleep(1000 * forSeconds);
  return `${(100 * (used(pid).time - before) / forSeconds).toFixed(1)} %`;
}

async function firstPicture(context, url, throttled) {
  const page = await openPage(context, []);
  const network = await page.createCDPSession();
  let bytes = 0;
  await network.send('Network.enable');
  network.on('Network.loadingFinished', ({ encodedDataLength }) => { bytes += encodedDataLength; });
  const tenMegabits = { offline: false, latency: 0, downloadThroughput: 10e6 / 8, uploadThroughput: 10e6 / 8 };
  if (throttled) await network.send('Network.emulateNetworkConditions', tenMegabits);
  await page.goto(url, { waitUntil: 'domcontentloaded' });
  await page.waitForFunction(() => globalThis.tarnveil?.state().frames > 0, { polling: 10 });
  const time = await page.evaluate(() => performance.now());
  console.log(`first picture${throttled ? ' at 10 Mbit/s' : ''}: ${Math.round(time)} ms, ${Math.round(bytes / 1000)} kB`);
  await page.close();
}

const server = await serve(site);
const browser = await launch('chrome');
process.on('uncaughtException', async (error) => {
  console.error(error);
  await browser.close();
  await server.stop();
  process.exit(1);
});
const { pid } = browser.process();
for (const throttled of [false, true]) {
  const context = await browser.createBrowserContext();
  await firstPicture(context, server.url, throttled);
  await context.close();
}
const page = await openPage(await browser.createBrowserContext(), []);
await page.setViewport({ width: 800, height: 1080 });
await atTitle(page, server.url);
console.log(`title: ${await share(pid, 5)} of a core`);
await startGame(page);
await page.evaluate(() => {
  globalThis.times = [];
  const take = tarnveil.takeEvents;
  tarnveil.takeEvents = (...args) => { times.push(performance.now()); return take(...args); };
});
const early = used(pid).memory;
console.log(`play at 2 x: ${await share(pid, Number(seconds))} of a core, memory ${Math.round(early)} to ${Math.round(used(pid).memory)} MB`);
const frames = await page.evaluate(() => times.slice(1).map((time, i) => time - times[i]));
const near = frames.filter((time) => Math.abs(time - 39) <= 2).length;
const sorted = frames.toSorted((a, b) => a - b);
console.log(`frames: ${frames.length}, 39 ms +- 2 for ${(100 * near / frames.length).toFixed(1)} %, ` +
  `median ${sorted[sorted.length >> 1].toFixed(1)}, 1 % ${sorted[Math.floor(sorted.length / 100)].toFixed(1)}, 99 % ${sorted[Math.floor(sorted.length * 0.99)].toFixed(1)} ms`);
await endGame(page);
await browser.close();
await server.stop();
