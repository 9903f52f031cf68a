// Keeps the whole page of one version, so that it opens without a network, too.
const kVersion = '@version@';
const kFiles = JSON.parse('@files@');

self.addEventListener('install', (event) => {
  const fresh = kFiles.map((file) => new Request(file, { cache: 'reload' }));
  event.waitUntil(caches.open(kVersion).then((cache) => cache.addAll(fresh)).then(() => self.skipWaiting()));
});

self.addEventListener('activate', (event) => {
  const clean = caches.keys().then((names) =>
    Promise.all(names.filter((name) => name !== kVersion).map((name) => caches.delete(name))));
  event.waitUntil(clean.then(() => self.clients.claim()));
});

self.addEventListener('fetch', (event) => {
  event.respondWith(
    caches.open(kVersion).then((cache) => cache.match(event.request, { ignoreSearch: true }))
      .then((kept) => kept || fetch(event.request)));
});
