import { createHash } from 'node:crypto';
import { readFileSync, readdirSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import type { Plugin } from 'vite';
import { defineConfig } from 'vitest/config';

const here = fileURLToPath(new URL('.', import.meta.url));
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
    'soundfont/sonivox.sf3': 'soundfont/sonivox.sf3',
    'soundfont/LICENSE': 'soundfont/LICENSE',
};
const alphaTabVersion = (
    JSON.parse(readFileSync(join(alphaTabFolder, '../package.json'), 'utf8')) as { version: string }
).version;
const alphaTabPath = `alphatab-${alphaTabVersion}/`;

function alphaTab(): Plugin {
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

// The service worker keeps exactly the files of this build; its version is a digest of them.
function serviceWorker(): Plugin {
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
                const names = [...files.keys()].sort();
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

// Where the preset "web" builds it; another build of it can be named.
const fretlinePackage = resolve(here, process.env.FRETLINE_PACKAGE ?? '../../../build/web/package');

export default defineConfig(({ command }) => ({
    root: here,
    // Any folder of any server.
    base: './',
    resolve: { alias: { fretline: join(fretlinePackage, 'index.js') } },
    define: { ALPHATAB_PATH: JSON.stringify(alphaTabPath) },
    plugins: [alphaTab(), ...(command === 'build' ? [serviceWorker()] : [])],
    worker: { format: 'es' as const },
    server: { fs: { allow: [resolve(here, '../../..'), fretlinePackage] } },
    build: {
        outDir: resolve(here, '../../../build/page'),
        emptyOutDir: true,
        target: 'es2022',
        assetsInlineLimit: 0,
        modulePreload: { polyfill: false },
    },
    test: { include: ['tests/unit/**/*.test.ts'] },
}));
