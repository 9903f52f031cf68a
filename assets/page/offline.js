// Keeps the whole game of one version, and the workshop once it has been opened, so that they open without a
// network, too.
const kVersion = '@version@';
const kParts = JSON.parse('@parts@');

async function keep(part) {
  const cache = await caches.open(kVersion);
  await cache.addAll(kParts[part].map((file) => new Request(file, { cache: 'reload' })));
}

const kept = (part) => caches.match(kParts[part][0]);

self.addEventListener('install', (event) => {
  const fresh = async () => {
    if (await kept('workshop')) await keep('workshop');
    await keep('game');
    await self.skipWaiting();
  };
  event.waitUntil(fresh());
});

self.addEventListener('message', (event) => {
  const part = event.data;
  if (!Object.hasOwn(kParts, part)) return;
  event.waitUntil(kept(part).then((there) => there || keep(part)));
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
