import { execFileSync } from 'node:child_process';
import { mkdtempSync, readdirSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { chromium, type Browser, type BrowserContextOptions, type Page } from 'playwright-core';
import { expect } from 'vitest';
import { preview, type PreviewServer } from 'vite';

const root = resolve(fileURLToPath(new URL('.', import.meta.url)), '../../../../..');
/** What the build made. */
export const builtFolder = join(root, 'build/page');
const host = process.env.FRETLINE_HOST ?? join(root, 'build/release/Projects/ReferenceHost/fretline-host');

export const example = (name: string): string => join(root, 'examples', name);
export const examplePaths = (): string[] =>
    readdirSync(example(''))
        .filter((name) => !name.endsWith('.nvf'))
        .map(example);
export const untidy = (name: string): string => join(root, 'tests/untidy', name);
export const textOf = (path: string): string => readFileSync(path, 'utf8');

/** What the command line makes of a file. */
export function commandLineWrites(path: string, format: string): Buffer {
    const folder = mkdtempSync(join(tmpdir(), 'fretline-page-'));
    try {
        const target = join(folder, `out.${format}`);
        const options = ['--rhythms', 'indicated', '--config', folder, '--quiet', '-o', target];
        execFileSync(host, [path, ...options], { stdio: 'ignore' });
        return readFileSync(target);
    } finally {
        rmSync(folder, { recursive: true });
    }
}

let server: PreviewServer;
let browser: Browser;

/** Serves the built page, and starts the browser. */
export async function openBrowser(): Promise<void> {
    server = await preview({
        configFile: false,
        root: builtFolder,
        build: { outDir: builtFolder },
        preview: { host: '127.0.0.1', port: 4300 },
        logLevel: 'error',
    });
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
        args: [
            ...['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-sync'],
            ...['--disable-background-networking', '--disable-component-update'],
        ],
    });
}

export async function closeBrowser(): Promise<void> {
    await browser.close();
    await server.close();
}

/** Somebody who uses the page: what they do, and what they see. */
export class Person {
    private readonly complaints: string[] = [];

    private constructor(readonly page: Page) {
        page.on('pageerror', (error) => this.complaints.push(`error: ${error.message}`));
        page.on('console', (message) => {
            if (message.type() === 'error') this.complaints.push(`console: ${message.text()}`);
        });
    }

    /** Opens the page in a browser of its own, and waits for the first music. */
    static async open(options: BrowserContextOptions = {}, fragment = ''): Promise<Person> {
        const person = await Person.openWithoutWaiting(options, fragment);
        await person.seesMusic();
        return person;
    }

    static async openWithoutWaiting(options: BrowserContextOptions = {}, fragment = ''): Promise<Person> {
        const context = await browser.newContext({
            viewport: { width: 1440, height: 900 },
            serviceWorkers: 'block',
            permissions: ['clipboard-read', 'clipboard-write'],
            acceptDownloads: true,
            ...options,
        });
        const person = new Person(await context.newPage());
        await person.page.goto(Person.address + fragment);
        return person;
    }

    static get address(): string {
        return server.resolvedUrls!.local[0]!;
    }

    /** Goes away; nothing may have gone wrong unseen. */
    async leave(): Promise<void> {
        expect(this.complaints).toEqual([]);
        await this.page.context().close();
    }

    async seesMusic(): Promise<void> {
        await this.page.waitForSelector('#music-pane[data-state="drawn"]', { state: 'attached' });
    }

    get editor() {
        return this.page.locator('.cm-content');
    }

    /** The text as the editor has it, line by line; only what is in view is drawn. */
    async visibleText(): Promise<string> {
        return (await this.page.locator('.cm-line').allTextContents()).join('\n');
    }

    async pastes(text: string): Promise<void> {
        await this.page.evaluate((words) => navigator.clipboard.writeText(words), text);
        await this.editor.focus();
        await this.page.keyboard.press('Control+A');
        await this.page.keyboard.press('Control+V');
    }

    /** Drops a file somewhere on the page. */
    async drops(name: string, bytes: Uint8Array): Promise<void> {
        await this.page.evaluate(
            ({ fileName, base64 }) => {
                const content = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
                const dataTransfer = new DataTransfer();
                dataTransfer.items.add(new File([content], fileName));
                const target = document.querySelector('.cm-content')!;
                for (const type of ['dragenter', 'dragover', 'drop'])
                    target.dispatchEvent(
                        new DragEvent(type, { dataTransfer, bubbles: true, cancelable: true }),
                    );
            },
            { fileName: name, base64: Buffer.from(bytes).toString('base64') },
        );
    }

    async dropsFile(path: string): Promise<void> {
        await this.drops(basename(path), readFileSync(path));
    }

    async opensExample(title: string): Promise<void> {
        await this.page.getByRole('button', { name: 'Examples' }).click();
        const button = this.page.locator('#examples .panel button').filter({ hasText: title });
        const file = (await button.locator('small').textContent())!;
        await button.click();
        await expect.poll(() => this.page.inputValue('#name')).toBe(file);
    }

    async downloads(kind: string): Promise<{ name: string; bytes: Buffer }> {
        await this.page.getByRole('button', { name: 'Download' }).click();
        const [download] = await Promise.all([
            this.page.waitForEvent('download'),
            this.page.getByRole('button', { name: kind, exact: false }).first().click(),
        ]);
        return { name: download.suggestedFilename(), bytes: readFileSync(await download.path()) };
    }

    /** Presses the page's own button; nobody would answer the browser's dialog, so that only its events come. */
    async prints(): Promise<void> {
        await this.page.evaluate(() => {
            window.print = () => {
                dispatchEvent(new Event('beforeprint'));
                document.documentElement.setAttribute('data-printed', '');
            };
        });
        await this.page.getByRole('button', { name: 'Print' }).click();
        await this.page.waitForSelector('html[data-printed]');
    }

    async reads(expected: string | RegExp): Promise<void> {
        await expect.poll(() => this.page.textContent('#summary'), { timeout: 15_000 }).toMatch(expected);
    }

    async isTold(expected: string | RegExp): Promise<void> {
        await expect.poll(() => this.page.textContent('#problem p'), { timeout: 15_000 }).toMatch(expected);
        expect(await this.page.isVisible('#problem')).toBe(true);
    }

    /** How many note heads are marked in the score. */
    marks(): Promise<number> {
        return this.page.locator('.note-marks div').count();
    }

    /** The same once it is as expected, or some seconds later. */
    async marksSettle(expected: number): Promise<number> {
        for (let attempt = 0; attempt < 60 && (await this.marks()) !== expected; ++attempt)
            await this.page.waitForTimeout(50);
        return this.marks();
    }

    focused(): Promise<string> {
        return this.page.evaluate(() => {
            const element = document.activeElement as HTMLElement;
            return element.id || element.getAttribute('aria-label') || element.textContent?.trim() || '';
        });
    }
}
