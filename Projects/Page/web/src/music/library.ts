/** The library that engraves and plays, without its code: that comes when it is needed. */
export type Library = typeof import('@coderline/alphatab');

export const libraryFile = (name: string): string => new URL(ALPHATAB_PATH + name, document.baseURI).href;

let library: Promise<Library> | null = null;

/** Loads the library once. */
export function loadLibrary(): Promise<Library> {
    library ??= import(/* @vite-ignore */ libraryFile('alphaTab.mjs')) as Promise<Library>;
    return library;
}
