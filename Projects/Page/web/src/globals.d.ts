/** Where the build puts the notation library's files, relative to the page. */
declare const ALPHATAB_PATH: string;
