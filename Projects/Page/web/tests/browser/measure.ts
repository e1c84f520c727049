// Prints what the page costs: bytes over the wire, time to the first music, time from a key to the picture. npm run measure.
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { gzipSync } from 'node:zlib';
import type { Page } from 'playwright-core';
import { afterAll, beforeAll, it } from 'vitest';
import { builtFolder, closeBrowser, example, openBrowser, Person, textOf } from './person';

const visits = 7;
const keys = 11;

const median = (values: number[]): number => [...values].sort((a, b) => a - b)[values.length >> 1]!;
const inKilobytes = (bytes: number): string => `${Math.round(bytes / 1000)} kB`;

/** Fonts and sounds are compressed in themselves. */
const onTheWire = (file: string): number => {
    const bytes = readFileSync(join(builtFolder, file));
    return /\.(woff2|sf3)$/.test(file) ? bytes.length : gzipSync(bytes, { level: 9 }).length;
};

const drawnAt = (page: Page): Promise<number> =>
    page.evaluate(
        () =>
            new Promise<number>((resolve) => {
                const pane = document.getElementById('music-pane')!;
                const look = (): void => {
                    if (pane.dataset.state === 'drawn') resolve(performance.now());
                    else requestAnimationFrame(look);
                };
                look();
            }),
    );

async function timeOfKey(page: Page): Promise<number> {
    const time = page.evaluate(
        () =>
            new Promise<number>((resolve) => {
                const pane = document.getElementById('music-pane')!;
                const wait = (start: number, hasChanged: boolean): void => {
                    const { state } = pane.dataset;
                    if (hasChanged && state === 'drawn') resolve(performance.now() - start);
                    else requestAnimationFrame(() => wait(start, hasChanged || state !== 'drawn'));
                };
                const begin = (): void => wait(performance.now(), false);
                addEventListener('keydown', begin, { once: true, capture: true });
            }),
    );
    await page.waitForTimeout(300);
    await page.keyboard.press('7');
    return time;
}

/** The example again and again, up to so many lines. */
const bookOf = (lineCount: number): string => {
    const lines = textOf(example('when-the-saints.tab')).trimEnd().split('\n');
    return Array.from({ length: lineCount }, (_, line) => lines[line % lines.length]).join('\n');
};

beforeAll(openBrowser);
afterAll(closeBrowser);

it('measures the bytes of a first visit', async () => {
    const loaded = new Set<string>();
    const person = await Person.open();
    person.page.on('request', (request) =>
        loaded.add(new URL(request.url()).pathname.slice(1) || 'index.html'),
    );
    await person.page.goto('about:blank');
    await person.page.goto(Person.address);
    await person.seesMusic();
    await person.page.waitForLoadState('networkidle');
    const sizes = [...loaded].map((file) => [file, onTheWire(file)] as const).sort((a, b) => b[1] - a[1]);
    for (const [file, size] of sizes.slice(0, 6)) console.log(`${inKilobytes(size).padStart(8)}  ${file}`);
    console.log(
        `${inKilobytes(sizes.reduce((sum, [, size]) => sum + size, 0)).padStart(8)}  until the first music`,
    );
    const sounds = 'alphatab-1.8.4/soundfont/sonivox.sf3';
    console.log(`${inKilobytes(onTheWire(sounds)).padStart(8)}  more for the sounds`);
    await person.leave();
});

it('measures the time to the first music', async () => {
    const first: number[] = [];
    const later: number[] = [];
    for (let visit = 0; visit < visits; ++visit) {
        const person = await Person.open({ serviceWorkers: 'allow' });
        // Time runs from the navigation on.
        const { page } = person;
        await page.evaluate(async () => void (await navigator.serviceWorker.ready));
        await page.goto('about:blank');
        await page.goto(Person.address);
        later.push(await drawnAt(page));
        await person.leave();
        const fresh = await Person.openWithoutWaiting();
        first.push(await drawnAt(fresh.page));
        await fresh.leave();
    }
    console.log(
        `${Math.round(median(first))} ms to the first music, ${Math.round(median(later))} ms on a later visit`,
    );
}, 120_000);

it.each([60, 1000])('measures the time from a key to the picture for %i lines', async (lineCount) => {
    const person = await Person.open();
    await person.drops('book.tab', Buffer.from(bookOf(lineCount)));
    await person.reads(/notes/);
    await person.seesMusic();
    await person.page
        .locator('.cm-line')
        .nth(6)
        .click({ position: { x: 100, y: 5 } });
    const times: number[] = [];
    for (let key = 0; key < keys; ++key) times.push(await timeOfKey(person.page));
    console.log(`${Math.round(median(times))} ms from a key to the picture, ${lineCount} lines`);
    await person.leave();
});
