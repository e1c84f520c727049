import { defineConfig } from 'vitest/config';

// Beside the tests, programs that use the same browser: --mode measure, --mode picture.
const files: Record<string, string> = { measure: 'measure.ts', picture: 'picture.ts' };

export default defineConfig(({ mode }) => ({
    test: {
        include: [`tests/browser/${files[mode] ?? '*.test.ts'}`],
        testTimeout: 60_000,
        hookTimeout: 60_000,
        fileParallelism: false,
    },
}));
