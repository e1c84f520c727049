import { byId, make, makeButton } from './elements';

const libraries: readonly [name: string, licence: string, purpose: string][] = [
    ['alphaTab 1.8.4', 'MPL-2.0', 'engraves and plays the score'],
    ['Bravura', 'OFL-1.1', 'the music font in it'],
    ['Sonivox sound set', 'Apache-2.0', 'the sounds in it'],
    ['CodeMirror 6', 'MIT', 'the editor'],
    ['pugixml 1.13', 'MIT', 'writes MusicXML'],
    ['nlohmann-json 3.11', 'MIT', 'writes JSON'],
    ['Emscripten 3.1', 'MIT', 'runs the reading in the browser'],
];

const keys: readonly [keys: string, does: string][] = [
    ['Tab', 'from one control to the next, out of the editor too'],
    ['F8', 'in the text: to the next doubt'],
    ['Ctrl F', 'in the text: find'],
    ['Alt P', 'play and pause'],
    ['Shift and arrows', 'select text; Loop then plays that part again and again'],
];

/** Fills the dialog that says what this is, and opens it. */
export function openAbout(): void {
    const dialog = byId<HTMLDialogElement>('about');
    const version = dialog.dataset.version;
    dialog.replaceChildren(
        make(
            'h2',
            { id: 'about-heading', tabIndex: -1, autofocus: true },
            version ? `Fretline ${version}` : 'Fretline',
        ),
        make(
            'p',
            {},
            'Turns guitar and bass tabs that people typed into scores. The text is read here, in your browser; nothing is sent anywhere. The link in the address bar holds the tab itself.',
        ),
        make('h3', {}, 'Keys'),
        make(
            'dl',
            {},
            ...keys.flatMap(([key, does]) => [make('dt', {}, make('kbd', {}, key)), make('dd', {}, does)]),
        ),
        make('h3', {}, 'Made with'),
        make(
            'ul',
            {},
            ...libraries.map(([name, licence, purpose]) =>
                make('li', {}, `${name} (${licence}): ${purpose}`),
            ),
        ),
        make(
            'p',
            {},
            make('a', { href: './licences.txt', target: '_blank', rel: 'noopener' }, 'All licences'),
        ),
        makeButton('Close', () => dialog.close(), 'primary'),
    );
    dialog.showModal();
}
