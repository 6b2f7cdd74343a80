// The built site on a port of its own, and the two browsers.
import { spawn } from 'node:child_process';
import { dirname, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import puppeteer from 'puppeteer-core';

export const root = resolve(dirname(fileURLToPath(import.meta.url)), '../..');
const programs = { chrome: '/usr/bin/chromium', firefox: '/usr/bin/firefox-esr' };

/** Serves `folder`; port 0 takes any. Answers {url, port, stop}. */
export function serve(folder, port = 0) {
  const server = spawn('python3', [resolve(root, 'scripts/serve.py'), folder, String(port)], { stdio: ['ignore', 'pipe', 'inherit'] });
  return new Promise((done, fail) => {
    process.once('exit', () => server.kill());
    server.once('exit', (code) => fail(new Error(`the server ended with ${code}`)));
    server.stdout.once('data', (line) => {
      const url = String(line).trim();
      const stop = () => new Promise((gone) => { server.once('exit', gone); server.kill(); });
      done({ url, port: Number(new URL(url).port), stop });
    });
  });
}

export async function launch(browser) {
  const args = browser === 'chrome' ? ['--no-sandbox', '--autoplay-policy=document-user-activation-required'] : [];
  const launched = await puppeteer.launch({ browser, executablePath: programs[browser], headless: true, args, timeout: 60000 });
  // What it prints has to be taken: Firefox names pages by their whole address, and stands still when the pipe is full.
  for (const stream of [launched.process().stdout, launched.process().stderr]) stream?.resume();
  return launched;
}

/** How long a page may take for what comes at once on an idle machine; ms. */
export const patience = 90000;

export const sleep = (ms) => new Promise((done) => setTimeout(done, ms));

/** A page that notes what must not happen: errors, failed requests, violations of its policy. */
export async function openPage(context, complaints) {
  const page = await context.newPage();
  await page.setViewport({ width: 1000, height: 1060 });
  page.on('console', (message) => ['error', 'warn'].includes(message.type()) && complaints.push(`console: ${message.text()}`));
  page.on('pageerror', (error) => complaints.push(`error: ${error.message}`));
  await page.evaluateOnNewDocument(() => {
    globalThis.violations = [];
    addEventListener('securitypolicyviolation', (event) => globalThis.violations.push(`${event.violatedDirective} ${event.blockedURI}`));
  });
  return page;
}

export async function atTitle(page, url) {
  await page.goto(url);
  await started(page);
}

// The title yields only when it stands.
export async function started(page) {
  await page.waitForFunction(() => globalThis.tarnveil?.state().yields > 1, { timeout: patience, polling: 50 });
}

/** Starts a game by the keyboard and waits for its first frames. */
export async function startGame(page) {
  await page.keyboard.press(' ');
  await page.waitForFunction(() => tarnveil.state().inGame, { timeout: patience, polling: 20 });
}

export async function endGame(page) {
  await page.keyboard.press('Escape');
  await page.waitForFunction(() => !tarnveil.state().inGame, { timeout: patience, polling: 20 });
}

export async function clickMenu(page, popup, item) {
  await page.click(`[data-name=${popup}]`);
  await page.click(`[data-name=${item}]`);
}

/** What is kept, by store. */
export function kept(page, store) {
  return page.evaluate((name) => new Promise((done, fail) => {
    const open = indexedDB.open('tarnveil');
    open.onerror = () => fail(open.error);
    open.onsuccess = () => {
      const table = open.result.transaction(name).objectStore(name);
      const keys = table.getAllKeys(), values = table.getAll();
      values.onsuccess = () => {
        open.result.close();
        done(keys.result.map((key, i) => ({ key, value: values.result[i]?.length >= 0 ? [...values.result[i]] : values.result[i] })));
      };
    };
  }), store);
}
