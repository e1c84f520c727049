/** Keeps the page for use without a network. Where the browser has no such service, it stays online. */
export function keepForOffline(): void {
    if (import.meta.env.DEV || !('serviceWorker' in navigator)) return;
    navigator.serviceWorker
        .register(new URL('serviceWorker.js', document.baseURI), { type: 'classic' })
        .catch((error: unknown) => console.warn('The page is not kept for offline use:', error));
}
