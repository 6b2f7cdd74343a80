// Keeps one whole version of the site: the files of the list, all of them or none. A page always gets its files from
// one version; a new one is fetched in the background and taken when the next page starts.
/** @type {any} a service worker's scope */
const worker = self;

const files = ['FILES'];
const ours = `tarnveil ${worker.registration.scope} `; // other copies of the game on this server have theirs
const version = `${ours}VERSION`;

worker.addEventListener('install', (/** @type {any} */ event) => {
  event.waitUntil(caches.open(version).then((cache) => cache.addAll(files.map((file) => new Request(file, { cache: 'no-cache' })))));
});

worker.addEventListener('activate', (/** @type {any} */ event) => {
  event.waitUntil(caches.keys().then((names) =>
    Promise.all(names.filter((name) => name.startsWith(ours) && name !== version).map((name) => caches.delete(name)))));
});

worker.addEventListener('fetch', (/** @type {any} */ event) => {
  if (event.request.method !== 'GET') return;
  event.respondWith(caches.open(version).then((cache) => cache.match(event.request, { ignoreSearch: true }))
    .then((found) => found ?? fetch(event.request)));
});
