import { fileURLToPath } from 'node:url';
import { defineConfig } from 'vitest/config';

// Beside the tests, programs that use the same browser: --mode measure, --mode picture.
const files: Record<string, string> = { measure: 'measure.ts', picture: 'picture.ts' };

const module = fileURLToPath(new URL('../../../../../build/web/package/index.js', import.meta.url));

export default defineConfig(({ mode }) => ({
    resolve: { alias: { fretline: module } },
    test: {
        include: [`tests/browser/${files[mode] ?? '*.test.ts'}`],
        testTimeout: 60_000,
        hookTimeout: 60_000,
        fileParallelism: false,
    },
}));
