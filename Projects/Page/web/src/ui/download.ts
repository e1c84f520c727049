/** Hands a file to the browser, which saves it as people have set it. */
export function download(name: string, bytes: Uint8Array, type = 'application/octet-stream'): void {
    const address = URL.createObjectURL(new Blob([bytes as Uint8Array<ArrayBuffer>], { type }));
    const link = Object.assign(document.createElement('a'), { href: address, download: name });
    document.body.append(link);
    link.click();
    link.remove();
    // The browser has begun to read by then.
    setTimeout(() => URL.revokeObjectURL(address), 10_000);
}

const tabExtension = /\.(tab|btab|crd|txt)$/i;

/** The name of a file made of a tab: another extension, with its dot, in the place of a tab's. */

export const nameWith = (name: string, extension: string): string =>
    `${name.replace(tabExtension, '') || 'untitled'}${extension}`;
