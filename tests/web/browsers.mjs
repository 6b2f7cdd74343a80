// The built site in real browsers: browsers.mjs SITE_FOLDER BUILD_FOLDER [chrome|firefox] [name of a check]
import assert from 'node:assert/strict';
import { cpSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { atTitle, clickMenu, endGame, kept, launch, openPage, patience, root, serve, sleep, startGame, started } from './site.mjs';

const [site, build, only, onlyCheck] = process.argv.slice(2);
const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const { default: startJudge } = await import(pathToFileURL(resolve(build, 'judge.mjs')));
const judge = await startJudge({ wasmBinary: readFileSync(resolve(build, 'judge.wasm')) });
const runs = readdirSync(resolve(root, 'tests/runs')).filter((name) => name.endsWith('.txt'))
  .map((name) => ({ name, text: readFileSync(resolve(root, 'tests/runs', name), 'utf8') }));

const scoresOf = (files) => files.find(({ key }) => key === 'Scores.DAT')?.value;
const scoreOf = (bytes, at) => new DataView(Uint8Array.from(bytes).buffer).getInt32(4 * at, true);
const checked = (page, item) => page.$eval(`[data-name=${item}]`, (element) => element.getAttribute('aria-checked') === 'true');
const until = async (what, ask) => {
  for (const end = Date.now() + 15000; Date.now() < end; await sleep(50)) if (await ask()) return;
  assert.fail(`waited in vain: ${what}`);
};

const checks = {
  async 'start, the picture, no violation, accessible'({ page, url }) {
    await atTitle(page, url);
    const bright = await page.$eval('#crt', (canvas) => {
      const { data } = canvas.getContext('2d').getImageData(0, 0, 320, 480);
      return data.reduce((sum, value) => sum + (value > 128 ? 1 : 0), 0) - 320 * 480;
    });
    assert.ok(bright > 10000, `the title shows: ${bright} bright values`);
    await page.evaluate(axe);
    for (const open of [null, '#open-help', '#open-kept', '#open-games']) {
      if (open) await page.click(open);
      const found = await page.evaluate(() => globalThis.axe.run().then(({ violations }) => violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html).join(' ')}`)));
      assert.deepEqual(found, [], `accessibility with ${open ?? 'the title'}`);
      if (open) await page.keyboard.press('Escape');
    }
  },

  async 'the picture is shown in whole multiples at every size'({ page, url }) {
    await atTitle(page, url);
    for (const [width, height, density, factor] of [[390, 844, 3, 3], [1366, 768, 1, 1], [1440, 900, 2, 3], [3840, 2160, 1, 4]]) {
      await page.setViewport({ width, height, deviceScaleFactor: density });
      await until(`${width} x ${height}`, () => page.$eval('#crt', (canvas, wanted) =>
        Math.abs(canvas.getBoundingClientRect().width * devicePixelRatio / 320 - wanted) < 0.01, factor));
      const inside = await page.$eval('#crt', (canvas) => {
        const box = canvas.getBoundingClientRect();
        return box.left >= 0 && box.top >= 0 && box.right <= innerWidth && box.bottom <= innerHeight;
      });
      assert.ok(inside, `all of it is seen at ${width} x ${height}`);
    }
  },

  async 'every menu item, by mouse and by keyboard'({ page, url }) {
    await atTitle(page, `${url}?author`);
    for (const item of ['Menu002', 'Menu003', 'Menu004', 'Menu006']) {
      const before = await checked(page, item);
      for (const wanted of [!before, before]) {
        await clickMenu(page, 'Menu001', item);
        await until(`${item} ${wanted}`, async () => await checked(page, item) === wanted);
      }
    }
    for (const [popup, items] of [['MENU100', ['MENU101', 'MENU103', 'MENU102']], ['Menu400', ['Menu402', 'Menu403', 'Menu404', 'Menu401']]]) {
      for (const item of items) {
        await clickMenu(page, popup, item);
        await until(`${item} alone`, async () => {
          const marks = await Promise.all(items.map((each) => checked(page, each)));
          return marks.every((mark, i) => mark === (items[i] === item));
        });
      }
    }
    await clickMenu(page, 'Menu001', 'Menu008');
    await page.waitForSelector('#box[open]');
    assert.equal(await page.$eval('#box-text', (text) => text.textContent), 'ジョイスティックを検出出来ませんでした');
    await page.keyboard.press('Enter');
    for (const [item, name] of [['Menu201', 'Editor1'], ['Menu202', 'EnemyDataEdit'], ['Menu203', 'EnemyMoveEdit']]) {
      await clickMenu(page, 'Menu200', item);
      await page.waitForSelector(`dialog.form[data-name=${name}]`);
      await page.keyboard.press('Escape');
      await until(`${name} closes`, async () => await page.$('dialog.form') === null);
    }
    await clickMenu(page, 'Menu300', 'Menu301');
    await page.keyboard.press('F10');
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('Enter');
    await page.keyboard.press('Enter');
    await until('Easy by keyboard', () => checked(page, 'MENU101'));
    await clickMenu(page, 'Menu300', 'Menu303');
    await page.waitForSelector('#over[open]');
    await page.click('#over-again');
    await started(page);
  },

  async 'a game by keys; it keeps its score, and verifies elsewhere'({ page, url }) {
    await atTitle(page, `${url}?seed=7`);
    await startGame(page);
    await page.keyboard.down('x');
    const before = await page.evaluate(() => tarnveil.state().ship);
    await page.keyboard.down('ArrowLeft');
    await until('the ship goes left', () => page.evaluate((x) => tarnveil.state().ship.x < x - 20, before.x));
    await page.keyboard.up('ArrowLeft');
    await page.keyboard.down('ArrowRight');
    await sleep(2500);
    await page.keyboard.up('ArrowRight');
    await sleep(3000);
    await page.keyboard.up('x');
    await endGame(page);
    await until('the score is kept', async () => scoresOf(await kept(page, 'files')) !== undefined);
    const [game] = (await kept(page, 'games')).map(({ value }) => value);
    assert.ok(game.score > 0);
    assert.equal(scoreOf(scoresOf(await kept(page, 'files')), 1), game.score);
    const judged = judge.judge(game.link);
    assert.deepEqual([judged.error, judged.agrees, judged.score], [undefined, true, game.score]);
    await page.reload();
    await started(page);
    assert.equal(scoreOf(scoresOf(await kept(page, 'files')), 1), game.score, 'after reloading');
    await page.click('#open-games');
    assert.match(await page.$eval('#games-list', (list) => list.textContent), new RegExp(String(game.score)));
    await page.keyboard.press('Escape');
  },

  async 'losing the keyboard pauses and lets go'({ page, url }) {
    await atTitle(page, url);
    await startGame(page);
    await page.keyboard.down('ArrowLeft');
    await page.evaluate(() => dispatchEvent(new Event('blur')));
    await sleep(200);
    const { frames } = await page.evaluate(() => tarnveil.state());
    await sleep(400);
    const after = await page.evaluate(() => tarnveil.state());
    assert.deepEqual([after.paused, after.frames], [true, frames]);
    await page.keyboard.up('ArrowLeft');
    await page.keyboard.press('Shift');
    const { x } = (await page.evaluate(() => tarnveil.state())).ship;
    await until('play goes on', () => page.evaluate((before) => tarnveil.state().frames > before + 5, frames));
    assert.equal((await page.evaluate(() => tarnveil.state())).ship.x, x, 'no key is down any more');
    await endGame(page);
  },

  async 'a game by touch'({ page, url }) {
    await atTitle(page, url);
    const touch = (type, x, y, id = 1) => page.evaluate((kind, clientX, clientY, pointerId) => {
      document.elementFromPoint(clientX, clientY).dispatchEvent(new PointerEvent(kind,
        { pointerType: 'touch', pointerId, clientX, clientY, bubbles: true, cancelable: true }));
    }, type, x, y, id);
    await touch('pointerdown', 500, 500);
    await touch('pointerup', 500, 500);
    await page.waitForFunction(() => tarnveil.state().inGame, { timeout: patience, polling: 20 });
    await until('the ship has come', () => page.evaluate(() => tarnveil.state().ship.y > 300));
    const { ship } = await page.evaluate(() => tarnveil.state());
    await touch('pointerdown', 500, 700);
    await sleep(200);
    const size = await page.$eval('#crt', (canvas) => canvas.clientWidth / 320);
    await touch('pointermove', 500 + 60 * size, 700 - 80 * size);
    await until('the ship goes where the finger goes', () => page.evaluate((from) => {
      const now = tarnveil.state().ship;
      return Math.abs(now.x - from.x - 60) < 5 && Math.abs(now.y - from.y + 80) < 5;
    }, ship));
    await touch('pointerdown', 400, 400, 2);
    await touch('pointerup', 400, 400, 2);
    await sleep(2500);
    await touch('pointerup', 500 + 60 * size, 700 - 80 * size);
    await endGame(page);
    const game = (await kept(page, 'games')).at(-1).value;
    const judged = judge.judge(game.link);
    assert.ok(judged.agrees && judged.spread > 20, 'the second finger switched weapons');
  },

  async 'a game by a pad'({ page, url }) {
    await page.evaluateOnNewDocument(() => {
      const buttons = Array.from({ length: 17 }, () => ({ pressed: false, touched: false, value: 0 }));
      globalThis.pad = { connected: false, mapping: 'standard', axes: [0, 0, 0, 0], buttons };
      navigator.getGamepads = () => (globalThis.pad.connected ? [globalThis.pad] : []);
    });
    await atTitle(page, url);
    await page.evaluate(() => { pad.connected = true; });
    await until('the item is checked', () => checked(page, 'Menu008'));
    await sleep(100);
    await page.evaluate(() => { pad.buttons[1].pressed = true; });
    await page.waitForFunction(() => tarnveil.state().inGame, { timeout: patience, polling: 20 });
    const { ship } = await page.evaluate(() => tarnveil.state());
    await page.evaluate(() => { pad.axes[0] = 0.8; });
    await until('the stick steers', () => page.evaluate((x) => tarnveil.state().ship.x > x + 10, ship.x));
    await page.evaluate(() => { pad.axes[0] = 0; pad.buttons[14].pressed = true; });
    const { x } = (await page.evaluate(() => tarnveil.state())).ship;
    await until('so does the cross', () => page.evaluate((from) => tarnveil.state().ship.x < from - 10, x));
    await page.evaluate(() => { pad.connected = false; });
    await endGame(page);
  },

  async 'an editor changes the table that the next game uses, and it stays'({ page, url }) {
    const press = (name) => page.click(`dialog.form [data-name=${name}]`);
    const field = 'dialog.form [data-name="Text1(5)"]'; // the score of the kind shown
    const open = async () => {
      await clickMenu(page, 'Menu200', 'Menu202');
      await page.waitForSelector('dialog.form');
      await press('Command2');
      await sleep(150);
      return page.$eval(field, (element) => element.value);
    };
    const close = async () => {
      await page.keyboard.press('Escape');
      await until('closed', async () => await page.$('dialog.form') === null);
    };
    await atTitle(page, `${url}?author`);
    assert.notEqual(await open(), '33');
    await page.click(field, { count: 3 });
    await page.keyboard.type('33');
    await press('Command1');
    await press('Command3');
    await until('saved', async () => (await kept(page, 'files')).some(({ key }) => key === 'EnemyData.DAT'));
    await close();
    await page.reload();
    await started(page);
    assert.equal(await open(), '33', 'after reloading');
    await close();
    await startGame(page);
    await sleep(500);
    await endGame(page);
    const game = (await kept(page, 'games')).at(-1).value;
    assert.match(judge.judge(game.link).error, /other tables/, 'the game used it');
  },

  async 'two tabs leave each other their scores'({ context, url, complaints }) {
    const [one, two] = [await openPage(context, complaints), await openPage(context, complaints)];
    const put = (page, scores) => page.evaluate((numbers) => {
      tarnveil.keepFile('Scores.DAT', new Uint8Array(new Int32Array(numbers).buffer));
    }, scores);
    await one.bringToFront();
    await atTitle(one, url);
    await two.bringToFront();
    await atTitle(two, url);
    await put(one, [500, 10, 0, 0]);
    await until('kept', async () => scoresOf(await kept(two, 'files')) !== undefined);
    await put(two, [20, 900, 0, 7]);
    const scores = async () => { const bytes = scoresOf(await kept(one, 'files')); return [0, 1, 2, 3].map((i) => scoreOf(bytes, i)); };
    await until('the higher ones stay', async () => String(await scores()) === '500,900,0,7');
    await one.close();
    await two.close();
  },

  async 'all recorded games have the fingerprints of the desktop'({ page, url, report }) {
    await atTitle(page, url);
    for (const { name, text } of runs) {
      const judged = await page.evaluate((recording) => new Promise((done, fail) => {
        const worker = new Worker(tarnveil.assets['judge-worker.js'], { type: 'module' });
        worker.onerror = () => fail(new Error('the worker failed'));
        worker.onmessage = ({ data }) => { if (data.judged || data.told?.error) { worker.terminate(); done(data.judged ?? data.told); } };
        worker.postMessage({ link: recording, assets: tarnveil.assets });
      }), text);
      const wanted = BigInt('0x' + /digest=([0-9a-f]+)\s*$/.exec(text)[1]);
      assert.deepEqual([name, judged.agrees, BigInt(judged.digest ?? 0)], [name, true, wanted]);
      report(`${name} ${wanted.toString(16)}`);
    }
  },

  async 'a shared game tells what it is, is tried, and plays to its end'({ page, url }) {
    await atTitle(page, `${url}?seed=3`);
    await startGame(page);
    await page.keyboard.down('x');
    await sleep(2500);
    await page.keyboard.up('x');
    await endGame(page);
    const game = (await kept(page, 'games')).at(-1).value;
    await page.goto('about:blank');
    await page.goto(`${url}#run=${game.link}`);
    await page.waitForSelector('#shared-verdict.good', { timeout: patience });
    assert.match(await page.$eval('#shared-facts', (facts) => facts.textContent), new RegExp(`Nomal.*${game.score}.*twin 100 %`, 's'));
    await page.click('#shared-watch');
    await page.waitForSelector('#over[open]', { timeout: patience });
    assert.equal(await page.$eval('#over-text', (text) => text.textContent), 'That was the whole game.');
    assert.deepEqual((await kept(page, 'games')).length, 1, 'a watched game is nobody\'s');
  },

  async 'a won game fits a link; hostile links are told and harm nothing'({ page, url }) {
    const won = judge.linkOf(runs.find(({ name }) => name === 'nomal-game.txt').text);
    assert.ok(`${url}#run=${won}`.length <= 4096, `${won.length} characters`);
    const changed = won.slice(0, 900) + (won[900] === 'x' ? 'y' : 'x') + won.slice(901);
    for (const link of ['A', 'Zabc', '<img src=x onerror=alert(1)>', won.slice(0, 500), changed, 'A'.repeat(200000), `${won}=`]) {
      await page.goto('about:blank');
      await page.goto(`${url}#run=${link}`);
      await page.waitForSelector('#shared-verdict.bad', { timeout: patience });
      assert.ok(await page.$eval('#shared-watch', (button) => button.disabled));
      await page.click('#shared-play');
      await started(page);
    }
  },

  async 'where nothing can be kept that is told, and the game plays on'({ context, page, url, complaints }) {
    const played = async (tab, words) => {
      await atTitle(tab, url);
      await startGame(tab);
      await endGame(tab);
      await tab.waitForFunction((told) => document.getElementById('notices').textContent.includes(told), { timeout: patience, polling: 50 }, words);
      await startGame(tab);
      await endGame(tab);
    };
    await page.evaluateOnNewDocument(() => {
      IDBFactory.prototype.open = () => { throw new DOMException('forbidden here', 'SecurityError'); };
    });
    await played(page, 'forbidden here. The game plays on');
    await page.goto('about:blank');
    const full = await openPage(context, complaints);
    await full.evaluateOnNewDocument(() => {
      IDBObjectStore.prototype.put = () => { throw new DOMException('the disk is full', 'QuotaExceededError'); };
      IDBObjectStore.prototype.add = IDBObjectStore.prototype.put;
    });
    await played(full, 'the disk is full. The game plays on');
    await full.close();
  },

  async 'what is kept goes out and comes back as one file'({ page, url }) {
    await atTitle(page, url);
    await page.evaluate(() => tarnveil.keepFile('Scores.DAT', new Uint8Array(new Int32Array([1, 2, 3, 4]).buffer)));
    const read = (bytes) => page.evaluate(async (content) => {
      const transfer = new DataTransfer();
      transfer.items.add(new File([Uint8Array.from(content)], 'tarnveil.zip'));
      const input = document.getElementById('import-file');
      input.files = transfer.files;
      input.dispatchEvent(new Event('change'));
    }, [...bytes]);
    const saved = await page.evaluate(() => new Promise((done) => {
      const make = URL.createObjectURL;
      URL.createObjectURL = (blob) => { void blob.arrayBuffer().then((bytes) => done([...new Uint8Array(bytes)])); return make(blob); };
      HTMLAnchorElement.prototype.click = () => {};
      document.getElementById('export').click();
    }));
    await page.evaluate(() => tarnveil.keepFile('Scores.DAT', new Uint8Array(new Int32Array([9, 9, 9, 9]).buffer)));
    await read([80, 75, 1, 2, 3]);
    await page.waitForFunction(() => document.getElementById('notices').textContent.includes('Nothing has changed'));
    await Promise.all([page.waitForNavigation(), read(saved)]);
    await started(page);
    await until('read back', async () => { const bytes = scoresOf(await kept(page, 'files').catch(() => [])); return bytes && scoreOf(bytes, 0) === 1; });
  },

  async 'a new version is taken when the game next starts, not before'({ context, complaints }) {
    const folder = mkdtempSync(join(tmpdir(), 'tarnveil-site-'));
    cpSync(site, folder, { recursive: true });
    const own = await serve(folder);
    const change = (name, from, to) => {
      writeFileSync(join(folder, name), readFileSync(join(folder, name), 'utf8').replace(from, to));
      for (const coding of ['br', 'gz']) rmSync(join(folder, `${name}.${coding}`));
    };
    const isNext = (tab) => tab.evaluate(() => document.documentElement.dataset.version === 'next');
    const page = await openPage(context, complaints);
    await atTitle(page, own.url);
    await page.evaluate(() => navigator.serviceWorker.ready.then(() => undefined));
    await page.reload(); // the first visit was before the worker
    await started(page);
    change('index.html', '<html', '<html data-version="next"');
    change('sw.js', 'const version = `', 'const version = `next ');
    await page.evaluate(async () => {
      const registration = await navigator.serviceWorker.getRegistration();
      await registration.update();
      const fresh = registration.installing ?? registration.waiting;
      while (fresh.state === 'installing') await new Promise((done) => fresh.addEventListener('statechange', done, { once: true }));
    });
    await page.reload();
    await started(page);
    assert.ok(!await isNext(page), 'while a page is open there is one version');
    await page.close();
    await until('the new version', async () => {
      const later = await openPage(context, complaints);
      await atTitle(later, own.url);
      const taken = await isNext(later) && (await later.evaluate(() => caches.keys())).length === 1;
      await later.close();
      return taken;
    });
    await own.stop();
    rmSync(folder, { recursive: true });
  },

  async 'it plays without a network after the first visit'({ page, url, server }) {
    await atTitle(page, url);
    await page.evaluate(() => navigator.serviceWorker.ready.then(() => undefined));
    await server.stop();
    await page.reload();
    await started(page);
    await startGame(page);
    await endGame(page);
    await server.restart();
  },
};

async function runBrowser(name) {
  const browser = await launch(name);
  const serving = { current: await serve(site) };
  const { url, port } = serving.current;
  const server = { stop: () => serving.current.stop(), restart: async () => { serving.current = await serve(site, port); } };
  let failed = 0, passed = 0;
  for (const [check, run] of Object.entries(checks)) {
    if (onlyCheck && !check.includes(onlyCheck)) continue;
    const context = await browser.createBrowserContext();
    const complaints = [];
    const before = Date.now();
    const notes = [];
    try {
      const page = await openPage(context, complaints);
      await run({ page, context, url, server, complaints, report: (note) => notes.push(note) });
      complaints.push(...await page.evaluate(() => globalThis.violations ?? []));
      assert.deepEqual(complaints, [], 'nothing to complain of');
      ++passed;
      console.log(`ok      ${name} ${((Date.now() - before) / 1000).toFixed(1)} s  ${check}${notes.map((note) => `\n          ${note}`).join('')}`);
    } catch (error) {
      ++failed;
      console.log(`FAILED  ${name}  ${check}\n${error.stack}\n${complaints.join('\n')}`);
    }
    await context.close().catch(() => {});
  }
  await serving.current.stop();
  await browser.close();
  return { passed, failed };
}

const results = await Promise.all((only ? [only] : ['chrome', 'firefox']).map(runBrowser));
const sum = (what) => results.reduce((all, result) => all + result[what], 0);
console.log(`${sum('passed')} passed, ${sum('failed')} failed`);
process.exit(sum('failed') ? 1 : 0);
