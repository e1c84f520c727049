import { createHash } from 'node:crypto';
import { existsSync, readFileSync, readdirSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import type { Plugin } from 'vite';

const here = fileURLToPath(new URL('..', import.meta.url));
const publicFolder = join(here, 'public');
const alphaTabFolder = join(here, 'node_modules/@coderline/alphatab/dist');

// Served as they are: the page, the renderer's worker and the player's worklet then share one copy of the library. Its
// files ask for each other without ".min".
const alphaTabFiles: Record<string, string> = {
    'alphaTab.mjs': 'alphaTab.min.mjs',
    'alphaTab.worker.mjs': 'alphaTab.worker.min.mjs',
    'alphaTab.worklet.mjs': 'alphaTab.worklet.min.mjs',
    'alphaTab.core.mjs': 'alphaTab.core.min.mjs',
    'font/Bravura.woff2': 'font/Bravura.woff2',
    'font/Bravura-OFL.txt': 'font/Bravura-OFL.txt',
    'font/Bravura-FONTLOG.txt': 'font/Bravura-FONTLOG.txt',
    'soundfont/sonivox.sf3': 'soundfont/sonivox.sf3',
    'soundfont/LICENSE': 'soundfont/LICENSE',
};
const alphaTabVersion = (
    JSON.parse(readFileSync(join(alphaTabFolder, '../package.json'), 'utf8')) as { version: string }
).version;
/** Where the library's files are, relative to the page. */
export const alphaTabPath = `alphatab-${alphaTabVersion}/`;

export function alphaTab(): Plugin {
    return {
        name: 'fretline-alphatab',
        configureServer(server) {
            server.middlewares.use((request, response, next) => {
                const file = alphaTabFiles[request.url?.split('?')[0]?.split(alphaTabPath)[1] ?? ''];
                if (!file) return next();
                response.setHeader(
                    'Content-Type',
                    file.endsWith('.mjs') ? 'text/javascript' : 'application/octet-stream',
                );
                response.end(readFileSync(join(alphaTabFolder, file)));
            });
        },
        // The page's own script asks for these only once it runs.
        transformIndexHtml: () => [
            ...['alphaTab.mjs', 'alphaTab.core.mjs'].map((name) => ({
                tag: 'link',
                injectTo: 'head' as const,
                attrs: { rel: 'modulepreload', href: `./${alphaTabPath}${name}` },
            })),
            {
                tag: 'link',
                injectTo: 'head' as const,
                attrs: {
                    rel: 'preload',
                    as: 'font',
                    type: 'font/woff2',
                    crossorigin: '',
                    href: `./${alphaTabPath}font/Bravura.woff2`,
                },
            },
        ],
        generateBundle() {
            for (const [name, file] of Object.entries(alphaTabFiles))
                this.emitFile({
                    type: 'asset',
                    fileName: alphaTabPath + name,
                    source: readFileSync(join(alphaTabFolder, file)),
                });
        },
    };
}

/** The service worker keeps exactly the files of this build; its version is a digest of them. */
export function serviceWorker(): Plugin {
    return {
        name: 'fretline-service-worker',
        enforce: 'post',
        generateBundle: {
            order: 'post',
            handler(_options, bundle) {
                const files = new Map<string, string | Uint8Array>();
                for (const name of readdirSync(publicFolder))
                    files.set(name, readFileSync(join(publicFolder, name)));
                for (const [name, output] of Object.entries(bundle))
                    files.set(name, output.type === 'asset' ? output.source : output.code);
                const isLicence = (name: string): boolean => /LICENSE$|\.txt$/.test(name);
                const names = [...files.keys()].filter((name) => !isLicence(name)).sort();
                const digest = createHash('sha256');
                for (const name of names) digest.update(name).update(files.get(name)!);
                const template = readFileSync(join(here, 'src/offline/serviceWorker.js'), 'utf8');
                this.emitFile({
                    type: 'asset',
                    fileName: 'serviceWorker.js',
                    source: template
                        .replace("'VERSION'", JSON.stringify(digest.digest('hex').slice(0, 16)))
                        .replace(
                            "['FILES']",
                            JSON.stringify(['./', ...names.filter((name) => name !== 'index.html')]),
                        ),
                });
            },
        },
    };
}

const hasPackage = (folder: string): boolean => existsSync(join(folder, 'package.json'));

/** The folder of the npm package that a bundled file comes from; null for our own. */
function packageOf(file: string): string | null {
    if (!file.includes('/node_modules/')) return null;
    let folder = dirname(file.split('?')[0]!);
    while (!hasPackage(folder)) folder = dirname(folder);
    return folder;
}

function licenceOf(folder: string): string {
    const { name, version, license } = JSON.parse(readFileSync(join(folder, 'package.json'), 'utf8')) as {
        name: string;
        version: string;
        license: string;
    };
    const file = readdirSync(folder).find((entry) => /^licen[cs]e/i.test(entry));
    const text = file ? readFileSync(join(folder, file), 'utf8').trim() : '';
    return `${name} ${version} (${license})\n\n${text}`.trim();
}

/** Writes the licences of everything that goes into the page, as most of them ask for. */
export function licences(): Plugin {
    return {
        name: 'fretline-licences',
        generateBundle() {
            const folders = new Set(
                [...this.getModuleIds()].map(packageOf).filter((folder) => folder !== null),
            );
            folders.add(join(alphaTabFolder, '..'));
            const texts = [...folders].sort().map(licenceOf);
            const notices = readFileSync(join(here, 'src/app/notices.txt'), 'utf8').trim();
            const rule = `\n\n${'-'.repeat(72)}\n\n`;
            this.emitFile({
                type: 'asset',
                fileName: 'licences.txt',
                source: [...texts, notices].join(rule) + '\n',
            });
        },
    };
}
