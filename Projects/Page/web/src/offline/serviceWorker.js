// Keeps the files of one build, so that the page opens without a network. A new build has another version and waits until
// every tab of the old one is closed: no page ever mixes two builds.
const version = 'VERSION';
const files = ['FILES'];
const cacheName = `fretline-${version}`;

async function keepFiles() {
    const cache = await caches.open(cacheName);
    await cache.addAll(files.map((file) => new Request(file, { cache: 'no-cache' })));
}

async function dropOtherBuilds() {
    for (const name of await caches.keys())
        if (name.startsWith('fretline-') && name !== cacheName) await caches.delete(name);
    await self.clients.claim();
}

async function answer(request) {
    const cache = await caches.open(cacheName);
    const wanted = request.mode === 'navigate' ? './' : request;
    // Servers say "Vary: Origin", and the files are the same for every origin.
    const kept = await cache.match(wanted, { ignoreSearch: true, ignoreVary: true });
    return kept ?? fetch(request);
}

self.addEventListener('install', (event) => event.waitUntil(keepFiles()));
self.addEventListener('activate', (event) => event.waitUntil(dropOtherBuilds()));
self.addEventListener('fetch', (event) => {
    const isOurs = new URL(event.request.url).origin === self.location.origin;
    if (event.request.method === 'GET' && isOurs) event.respondWith(answer(event.request));
});
