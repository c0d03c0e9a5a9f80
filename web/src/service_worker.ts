/*
 * Keeps the files of the page, so that it works without a network after the first visit. The build
 * puts their names and a hash of their contents in.
 */
/// <reference lib="webworker" />
declare const self: ServiceWorkerGlobalScope;
declare const FILES: string[];
declare const VERSION: string;

const CACHE = `rosetag-${VERSION}`;

self.addEventListener("install", (event) => {
    event.waitUntil(
        caches
            .open(CACHE)
            .then((cache) => cache.addAll(FILES.map((file) => new Request(file, { cache: "reload" }))))
            .then(() => self.skipWaiting()),
    );
});

self.addEventListener("activate", (event) => {
    const clean = async (): Promise<void> => {
        for (const name of await caches.keys()) {
            if (name.startsWith("rosetag-") && name !== CACHE) {
                await caches.delete(name);
            }
        }
        await self.clients.claim();
    };
    event.waitUntil(clean());
});

self.addEventListener("fetch", (event) => {
    if (event.request.method === "GET") {
        event.respondWith(
            caches
                .match(event.request, { ignoreSearch: true, cacheName: CACHE })
                .then((kept) => kept ?? fetch(event.request)),
        );
    }
});

export {};
