import { readFileSync } from 'node:fs';
import { afterAll, beforeAll, describe, expect, it } from 'vitest';
import { closeBrowser, commandLineWrites, example, openBrowser, Person, textOf, untidy } from './person';

const axeSource = readFileSync(new URL('../../node_modules/axe-core/axe.min.js', import.meta.url), 'utf8');

const smallTab = [
    'e|--0--1--3--|--0--------|',
    'B|-----------|-----1-----|',
    'G|-----------|-----------|',
    'D|-----------|-----------|',
    'A|-----------|-----------|',
    'E|-----------|-----------|',
].join('\n');

beforeAll(openBrowser);
afterAll(closeBrowser);

describe('somebody with a tab', () => {
    it('pastes it, and sees what was read as they type', async () => {
        const person = await Person.open();
        await person.pastes(smallTab);
        await person.reads('2 bars, 5 notes');
        await person.page.keyboard.press('Control+Home');
        await person.page.keyboard.press('End');
        for (let key = 0; key < 3; ++key) await person.page.keyboard.press('ArrowLeft');
        await person.page.keyboard.press('Shift+ArrowLeft');
        await person.page.keyboard.type('7');
        await person.reads('2 bars, 6 notes');
        expect(await person.page.locator('.cm-content .read-fret').allTextContents()).toEqual([
            '0',
            '1',
            '3',
            '0',
            '7',
            '1',
        ]);
        await person.leave();
    });

    it('drops a file in the code page of Windows, and gets its bytes back', async () => {
        const person = await Person.open();
        const bytes = Buffer.from(
            `Caf\xe9 \x96 (our own)\r\n\r\n${smallTab.replaceAll('\n', '\r\n')}\r\n`,
            'latin1',
        );
        await person.drops('cafe.tab', bytes);
        await person.reads('2 bars, 5 notes');
        expect(await person.visibleText()).toContain('Café – (our own)');
        const { name, bytes: downloaded } = await person.downloads('Text');
        expect(name).toBe('cafe.tab');
        expect(downloaded.equals(bytes)).toBe(true);
        await person.leave();
    });

    it.each([
        { why: 'nothing', text: '  \n', told: 'There is no text yet' },
        {
            why: 'a novel',
            text: 'It was a dark and stormy night.\n'.repeat(500),
            told: /^This text is no tab: /,
        },
    ])('is told what is wrong with $why, and goes on', async ({ text, told }) => {
        const person = await Person.open();
        await person.pastes(text);
        await person.isTold(told);
        expect(await person.page.getByRole('button', { name: 'Play' }).isEnabled()).toBe(false);
        await person.pastes(smallTab);
        await person.reads('2 bars, 5 notes');
        expect(await person.page.isVisible('#problem')).toBe(false);
        await person.leave();
    });

    it.each([
        {
            why: 'five megabytes',
            name: 'big.tab',
            bytes: Buffer.alloc(5_000_000, '-'),
            told: /big.tab has 5.0 MB. The page takes up to 2.0 MB/,
        },
        {
            why: 'a picture',
            name: 'song.png',
            bytes: Buffer.from([0x89, 0x50, 0x4e, 0x47, 0, 0, 0, 13]),
            told: 'song.png is no text file',
        },
    ])('is told why $why is not opened, and keeps their text', async ({ name, bytes, told }) => {
        const person = await Person.open();
        await person.drops(name, bytes);
        await person.isTold(told);
        expect(await person.visibleText()).toContain('When the Saints');
        expect(await person.page.isVisible('#score svg >> nth=0')).toBe(true);
        await person.leave();
    });

    it('cancels what takes long', async () => {
        const person = await Person.open();
        await person.drops('long.tab', Buffer.from(`${smallTab}\n\n`.repeat(11_000)));
        await person.page.getByRole('button', { name: 'Cancel' }).click();
        await person.reads('Cancelled');
        await person.pastes(smallTab);
        await person.reads('2 bars, 5 notes');
        await person.leave();
    });

    it('is asked before a book is drawn, and has its downloads without that', async () => {
        const person = await Person.open();
        await person.drops('book.tab', Buffer.from(`${smallTab}\n\n`.repeat(1100)));
        await person.isTold('The score has 2200 bars.');
        expect(await person.page.textContent('#summary')).toMatch(/^2200 bars, 5500 notes/);
        expect((await person.downloads('MIDI')).bytes.subarray(0, 4).toString()).toBe('MThd');
        await person.page.getByRole('button', { name: 'Draw it' }).click();
        await person.seesMusic();
        expect(await person.page.isVisible('#problem')).toBe(false);
        await person.leave();
    });

    it('downloads the files that the command line writes', async () => {
        const person = await Person.open();
        const path = example('rising-sun.crd');
        await person.dropsFile(path);
        await person.reads(/notes/);
        for (const [kind, format] of [
            ['MusicXML', 'musicxml'],
            ['MIDI', 'mid'],
            ['LilyPond', 'ly'],
            ['Score', 'nvf'],
        ] as const) {
            const { name, bytes } = await person.downloads(kind);
            expect(name).toBe(`rising-sun.${format}`);
            expect(bytes.equals(commandLineWrites(path, format)), `${kind} as on the command line`).toBe(
                true,
            );
        }
        const { name, bytes } = await person.downloads('Guitar Pro');
        expect(name).toBe('rising-sun.gp');
        expect(bytes.subarray(0, 2).toString()).toBe('PK');
        await person.leave();
    });

    it('shares it by a link', async () => {
        const person = await Person.open();
        await person.pastes(smallTab.replace('e|', 'é|'));
        await person.page.fill('#name', 'my song.tab');
        await person.page.getByRole('radio', { name: 'Always' }).check();
        await person.reads(/5 notes/);
        await person.page.getByRole('button', { name: 'Copy link' }).click();
        await person.reads('The link is copied.');
        const link = await person.page.evaluate(() => navigator.clipboard.readText());
        const other = await Person.open({}, link.slice(link.indexOf('#')));
        expect(await other.visibleText()).toBe(smallTab.replace('e|', 'é|'));
        expect(await other.page.inputValue('#name')).toBe('my song.tab');
        expect(await other.page.getByLabel('Always').isChecked()).toBe(true);
        await other.leave();
        await person.leave();
    });

    it('sees doubts where they are, and tidies the text up', async () => {
        const person = await Person.open();
        await person.pastes(textOf(untidy('gallop.tab')));
        await person.reads(/4 bars, 13 notes, 4 doubts/);
        expect(await person.page.locator('.cm-lintRange-warning').count()).toBeGreaterThan(0);
        expect(await person.page.locator('.cm-lint-marker-warning').count()).toBeGreaterThan(0);
        await person.page.locator('.doubts button').first().click();
        const place = await person.page.locator('.doubts button').first().textContent();
        expect(await person.page.textContent('#at-cursor')).toContain(place);
        await person.page.locator('.cm-lintRange-warning').first().hover();
        await person.page.waitForSelector('.cm-tooltip .cm-diagnostic');

        await person.page.getByRole('button', { name: 'Tidy up' }).click();
        await person.page.getByRole('switch', { name: /^digits/ }).check();
        await person.reads(/4 bars, 23 notes/);
        expect(await person.page.locator('.diff .added').count()).toBe(8);
        expect(await person.visibleText()).toContain('E|-000-33-2-|');
        await person.page.getByRole('button', { name: 'Put the tidied text into the editor' }).click();
        await person.reads(/4 bars, 23 notes/);
        expect(await person.visibleText()).toContain('E|-0-0-0-33-2-|');
        await person.leave();
    });
});

describe('notes and text', () => {
    it('lead to each other', async () => {
        const person = await Person.open();
        const digits = person.page.locator('#score svg text').filter({ hasText: /^3$/ });
        await digits.first().click();
        expect(await person.page.textContent('#at-cursor')).toMatch(/^Line 7, column 22 · fret number/);
        expect(
            await person.page.evaluate(
                () =>
                    getSelection()?.toString() || document.querySelector('.cm-selectionBackground') !== null,
            ),
        ).toBeTruthy();
        expect(await person.marks()).toBe(2);
        const head = (await digits.first().boundingBox())!;
        const mark = (await person.page.locator('.note-marks div').last().boundingBox())!;
        expect(Math.abs(mark.x + mark.width / 2 - head.x - head.width / 2)).toBeLessThan(4);
        expect(Math.abs(mark.y + mark.height / 2 - head.y - head.height / 2)).toBeLessThan(8);

        await person.page.locator('.cm-line').nth(7).locator('.read-fret').first().click();
        await expect.poll(() => person.page.textContent('#at-cursor')).toMatch(/^Line 8/);
        expect(await person.marks()).toBe(2);
        await person.leave();
    });

    it('are joined in every example, at every level of rhythms', async () => {
        const person = await Person.open();
        await person.page.getByRole('radio', { name: 'TAB' }).check();
        await person.page.getByRole('button', { name: 'Examples' }).click();
        const titles = await person.page.locator('#examples .panel button').allInnerTexts();
        await person.page.keyboard.press('Escape');
        expect(titles.length).toBeGreaterThan(10);
        const unjoined: string[] = [];
        for (const title of titles.map((words) => words.split('\n')[0]!))
            for (const rhythms of ['Never', 'When indicated', 'Always']) {
                await person.page.getByRole('radio', { name: rhythms }).check();
                await person.opensExample(title);
                await person.seesMusic();
                await person.editor.focus();
                await person.page.keyboard.press('Control+A');
                const notes = Number(/(\d+) notes/.exec((await person.page.textContent('#summary'))!)![1]);
                const marked = await person.marksSettle(notes);
                if (marked !== notes) unjoined.push(`${title}, ${rhythms}: ${marked} of ${notes}`);
            }
        expect(unjoined).toEqual([]);
        await person.leave();
    }, 180_000);
});

describe('somebody who listens', () => {
    it('hears it, sees where it is, and loops a part of it', async () => {
        const person = await Person.open();
        await person.page.getByRole('button', { name: 'Play' }).click();
        await person.page.waitForSelector('#player[data-ready="true"]');
        const milliseconds = () =>
            person.page.evaluate(() => Number(document.getElementById('player')!.dataset.milliseconds));
        await expect.poll(milliseconds, { timeout: 15_000 }).toBeGreaterThan(700);
        await person.page.waitForSelector('.note-played');
        await person.page.getByRole('button', { name: 'Pause' }).click();
        await person.page.waitForSelector('body[data-player="paused"]');

        await person.page.getByRole('button', { name: 'Stop' }).click();
        await person.page.locator('.cm-line').nth(15).click();
        await person.page.keyboard.press('Home');
        for (let key = 0; key < 24; ++key) await person.page.keyboard.press('Shift+ArrowRight');
        await person.page.getByRole('button', { name: 'Loop' }).click();
        expect(await person.page.textContent('.player-words')).toMatch(/^Bars 5 to 6 are looped/);
        await person.page.getByLabel('Tempo').fill('200');
        expect(await person.page.textContent('.tempo')).toBe('200 % · 240 a minute');
        await person.page.getByRole('button', { name: 'Metronome' }).click();
        await person.page.getByRole('button', { name: 'Play' }).click();
        await expect.poll(milliseconds, { timeout: 15_000 }).toBeGreaterThan(8000 / 2);
        await person.leave();
    });
});

describe('somebody who prints', () => {
    it('gets the score alone, dark on white, on the pages that it needs', async () => {
        const person = await Person.open({ colorScheme: 'dark' });
        await person.drops('book.tab', Buffer.from(`${smallTab}\n\n`.repeat(100)));
        await person.reads('200 bars, 500 notes');
        await person.seesMusic();
        await person.prints();
        const { page: paper } = person;
        await paper.emulateMedia({ media: 'print' });
        const texts = await paper.locator('#paper svg text').allTextContents();
        expect(texts.filter((text) => /^[013]$/.test(text))).toHaveLength(500);
        expect(await paper.locator(':is(button, input, .cm-editor, #score):visible').count()).toBe(0);
        const { inks, heights } = await paper.evaluate(() => {
            const drawn = [...document.querySelectorAll('#paper svg *')].map((element) =>
                getComputedStyle(element),
            );
            const systems = [...document.querySelectorAll('#paper .at-surface > div')];
            return {
                inks: [...new Set(drawn.flatMap(({ fill, stroke }) => [fill, stroke]))].sort(),
                heights: systems.map((system) => system.getBoundingClientRect().height),
            };
        });
        // What is not shown is transparent: the metre, where there is none.
        expect(inks).toEqual(['none', 'rgb(0, 0, 0)', 'rgb(85, 85, 85)', 'rgba(0, 0, 0, 0)']);

        const pdf = (await paper.pdf({ format: 'A4' })).toString('latin1');
        const sizes = [...pdf.matchAll(/\/MediaBox \[0 0 ([\d.]+) ([\d.]+)\]/g)];
        for (const [, width, height] of sizes) {
            expect(Number(width)).toBeCloseTo(595, -1);
            expect(Number(height)).toBeCloseTo(842, -1);
        }
        const pageHeight = (297 / 25.4) * 96;
        const total = heights.reduce((sum, height) => sum + height);
        expect(sizes.length).toBeGreaterThanOrEqual(Math.ceil(total / pageHeight));
        // No line of music is cut in two: the next page has it.
        expect(sizes.length).toBeLessThanOrEqual(Math.ceil(total / (pageHeight - Math.max(...heights))));
        expect(sizes.length).toBeGreaterThan(3);
        await paper.emulateMedia({ media: 'screen' });

        await person.pastes('Only words.');
        await person.isTold(/./);
        await person.page.getByRole('button', { name: 'Print' }).click();
        await person.reads('There is no score to print.');
        await person.leave();
    });

    it.each(['light', 'dark'] as const)(
        "gets the score alone by the browser's own print, or else the text, in %s",
        async (colorScheme) => {
            const person = await Person.open({ colorScheme });
            const printed = async (): Promise<{ words: string; alone: boolean; colours: string[] }> => {
                await person.page.pdf({ format: 'A4' });
                await person.page.emulateMedia({ media: 'print' });
                const seen = await person.page.evaluate(() => {
                    const { color, backgroundColor } = getComputedStyle(document.body);
                    const visible = [...document.body.children].filter((child) => child.checkVisibility());
                    return {
                        words: visible.map((child) => child.textContent).join(''),
                        alone:
                            visible.length === 1 && !visible[0]!.querySelector('button, input, .cm-editor'),
                        colours: [color, backgroundColor],
                    };
                });
                await person.page.emulateMedia({ media: 'screen' });
                return seen;
            };
            const blackOnWhite = { alone: true, colours: ['rgb(0, 0, 0)', 'rgb(255, 255, 255)'] };
            await person.pastes(smallTab);
            await person.reads('2 bars, 5 notes');
            await person.seesMusic();
            const score = await printed();
            expect(score).toMatchObject(blackOnWhite);
            expect(score.words).not.toContain('|--');
            expect(
                await person.page
                    .locator('#paper svg text')
                    .filter({ hasText: /^[013]$/ })
                    .count(),
            ).toBe(5);

            const text = 'Only words.\n\n\n  And others.\n';
            await person.pastes(text);
            await person.isTold(/./);
            expect(await printed()).toEqual({ ...blackOnWhite, words: text });
            await person.leave();
        },
    );
});

describe('the page', () => {
    it('opens without a network once it was there', async () => {
        const person = await Person.open({ serviceWorkers: 'allow' });
        await person.page.evaluate(async () => {
            await navigator.serviceWorker.ready;
        });
        await expect
            .poll(() => person.page.evaluate(() => navigator.serviceWorker.controller !== null))
            .toBe(true);
        await person.page.context().setOffline(true);
        await person.page.goto(Person.address);
        await person.seesMusic();
        await person.pastes(smallTab);
        await person.reads('2 bars, 5 notes');
        await person.page.getByRole('button', { name: 'Play' }).click();
        await person.page.waitForSelector('#player[data-ready="true"]');
        await person.leave();
    });

    it('fits a phone', async () => {
        const person = await Person.open({
            viewport: { width: 360, height: 740 },
            isMobile: true,
            hasTouch: true,
        });
        const outside = () =>
            person.page.evaluate(() =>
                [...document.querySelectorAll('button, input, summary, .cm-editor, #score')]
                    .filter(
                        (element) =>
                            element.checkVisibility({ visibilityProperty: true }) &&
                            !element.closest('.skip'),
                    )
                    .filter((element) => {
                        const { left, right } = element.getBoundingClientRect();
                        return left < 0 || right > innerWidth + 0.5;
                    })
                    .map((element) => element.id || element.textContent),
            );
        expect(await person.page.evaluate(() => document.documentElement.scrollWidth)).toBeLessThanOrEqual(
            360,
        );
        expect(await outside()).toEqual([]);
        expect(await person.page.isVisible('#score')).toBe(false);
        await person.page.getByRole('button', { name: 'Music' }).tap();
        expect(await person.page.isVisible('#score svg >> nth=0')).toBe(true);
        expect(await person.page.isVisible('.cm-editor')).toBe(false);
        expect(await outside()).toEqual([]);
        await person.leave();
    });

    it('is used by keyboard alone', async () => {
        const person = await Person.open();
        const keyboard = person.page.keyboard;
        const tabTo = async (name: string): Promise<void> => {
            for (let key = 0; key < 40; ++key) {
                if ((await person.focused()).includes(name)) return;
                await keyboard.press('Tab');
            }
            throw new Error(`"${name}" is not reached by Tab`);
        };
        await keyboard.press('Tab');
        expect(await person.focused()).toBe('Skip to the text');
        expect(await person.page.locator('.skip').first().boundingBox()).toMatchObject({ y: 8 });
        await tabTo('Examples');
        await keyboard.press('ArrowDown');
        await keyboard.press('Escape');
        expect(await person.focused()).toBe('Examples');
        await keyboard.press('Enter');
        for (let key = 0; key < 2; ++key) await keyboard.press('ArrowDown');
        await keyboard.press('Enter');
        await person.reads(/24 notes|notes/);
        for (const control of ['open', 'copy-link', 'Download', 'print', 'about-open', 'name'])
            await tabTo(control);
        await tabTo('Tab text');
        await keyboard.press('Control+A');
        await keyboard.insertText(smallTab);
        await person.reads('2 bars, 5 notes');
        await keyboard.press('Tab');
        expect(await person.focused()).not.toBe('Tab text');
        for (const control of ['score-scroller', 'Play', 'Stop', 'Position', 'Tempo', 'Metronome', 'Loop'])
            await tabTo(control);
        await keyboard.press('Alt+p');
        await person.page.waitForSelector('body[data-player="playing"]');
        await person.leave();
    });

    it.each([
        { how: 'light', options: {} },
        { how: 'dark', options: { colorScheme: 'dark' as const } },
        { how: 'on a phone', options: { viewport: { width: 390, height: 844 }, isMobile: true } },
    ])('has no serious fault of accessibility, $how', async ({ options }) => {
        const person = await Person.open({ ...options, bypassCSP: true });
        await person.pastes(textOf(untidy('gallop.tab')));
        await person.reads(/doubts/);
        await person.page.getByRole('button', { name: 'Tidy up' }).click();
        await person.page.getByRole('switch', { name: /^digits/ }).check();
        await person.page.waitForSelector('.diff');
        await person.page.getByText('What the colours mean').click();
        await person.page.evaluate(axeSource);
        const findings = async (): Promise<string[]> =>
            person.page.evaluate(async () => {
                const { axe } = globalThis as unknown as { axe: typeof import('axe-core') };
                const { violations, passes } = await axe.run(document);
                if (passes.length < 10) throw new Error('axe looked at nothing');
                return violations
                    .filter(({ impact }) => impact === 'serious' || impact === 'critical')
                    .map(
                        ({ id, nodes }) =>
                            `${id}: ${nodes.map(({ html }) => html.slice(0, 120)).join(' | ')}`,
                    );
            });
        expect(await findings()).toEqual([]);
        await person.page.getByRole('button', { name: 'About' }).click();
        expect(await findings()).toEqual([]);
        await person.leave();
    });

    it('draws the score light on dark where people have it so', async () => {
        const ink = async (colorScheme: 'light' | 'dark'): Promise<string> => {
            const person = await Person.open({ colorScheme });
            const fill = await person.page.locator('#score svg text').first().getAttribute('fill');
            await person.page.emulateMedia({ colorScheme: colorScheme === 'dark' ? 'light' : 'dark' });
            await expect
                .poll(() => person.page.locator('#score svg text').first().getAttribute('fill'))
                .not.toBe(fill);
            await person.leave();
            return fill!;
        };
        expect(await ink('light')).not.toBe(await ink('dark'));
    });
});
