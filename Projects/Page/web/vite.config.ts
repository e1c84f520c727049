import { join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vitest/config';
import { alphaTab, alphaTabPath, licences, serviceWorker } from './build/plugins';

const here = fileURLToPath(new URL('.', import.meta.url));

// Where the preset "web" builds it; another build of it can be named.
const fretlinePackage = resolve(here, process.env.FRETLINE_PACKAGE ?? '../../../build/web/package');

export default defineConfig(({ command }) => ({
    root: here,
    // Any folder of any server.
    base: './',
    resolve: { alias: { fretline: join(fretlinePackage, 'index.js') } },
    define: { ALPHATAB_PATH: JSON.stringify(alphaTabPath) },
    plugins: [alphaTab(), ...(command === 'build' ? [licences(), serviceWorker()] : [])],
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
