import { examples } from './app/examples';
import { Page } from './app/Page';
import { keepForOffline } from './offline/register';
import { openAbout } from './ui/about';
import { takeDroppedFiles } from './ui/dropZone';
import { byId } from './ui/elements';
import { Menu, type MenuItem } from './ui/Menu';
import { Reader } from './worker/Reader';
import ReadingWorker from './worker/reading.worker?worker';

const page = new Page(new Reader(() => new ReadingWorker()));

const coloursNow = () => {
    const style = getComputedStyle(document.documentElement);
    const colour = (name: string): string => style.getPropertyValue(name).trim();
    return { ink: colour('--score-ink'), faint: colour('--score-faint'), accent: colour('--score-accent') };
};

new Menu(
    byId('examples'),
    examples.map((example) => ({
        text: example.title,
        hint: example.name,
        action: () => void page.openExample(example),
    })),
);

const downloads: MenuItem[] = [
    { text: 'MusicXML', hint: '.musicxml', action: () => void page.downloadFormat('musicxml') },
    { text: 'MIDI', hint: '.mid', action: () => void page.downloadFormat('mid') },
    { text: 'LilyPond', hint: '.ly', action: () => void page.downloadFormat('ly') },
    { text: 'Guitar Pro', hint: '.gp', action: () => page.downloadGuitarPro() },
    { text: 'Score', hint: '.nvf', action: () => void page.downloadFormat('nvf') },
    { text: 'Text', hint: 'as it stands', action: () => page.downloadText() },
];
new Menu(byId('downloads'), downloads);

const fileInput = byId<HTMLInputElement>('file');
byId('open').addEventListener('click', () => fileInput.click());
fileInput.addEventListener('change', () => {
    const file = fileInput.files?.[0];
    if (file) void page.openFile(file);
    // The same file can be opened again.
    fileInput.value = '';
});
takeDroppedFiles((file) => void page.openFile(file));

document.addEventListener('paste', (event) => {
    const target = event.target as HTMLElement;
    if (target.closest('.cm-editor, input, textarea')) return;
    const text = event.clipboardData?.getData('text/plain');
    if (text) page.openPasted(text);
});

byId('copy-link').addEventListener('click', async () => {
    try {
        await navigator.clipboard.writeText(await page.makeLink());
        page.say('The link is copied.');
    } catch (error) {
        const isTooLong = error instanceof RangeError;
        page.say(isTooLong ? error.message : 'The link stands in the address bar; copy it from there.');
    }
});
byId('print').addEventListener('click', () => page.print());
const screenTitle = document.title;
addEventListener('beforeprint', () => {
    page.layPaper(byId('paper'));
    // Browsers name the file after it.
    document.title = page.title;
});
addEventListener('afterprint', () => (document.title = screenTitle));
byId('about-open').addEventListener('click', openAbout);

for (const button of document.querySelectorAll<HTMLButtonElement>('.views button'))
    button.addEventListener('click', () => {
        document.querySelector('main')!.dataset.view = button.dataset.view!;
        for (const other of document.querySelectorAll('.views button'))
            other.setAttribute('aria-pressed', String(other === button));
    });

document.addEventListener('keydown', (event) => {
    if (!event.altKey || event.ctrlKey || event.metaKey || event.code !== 'KeyP') return;
    event.preventDefault();
    page.togglePlaying();
});

matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => page.setColours(coloursNow()));
void page.start(coloursNow());
keepForOffline();
