import type { Editor } from '../editor/Editor';
import { decode, encode, encodingFor, type Encoding } from '../text/encoding';
import { lineEndOf, withLineEnds, withLineFeeds, type LineEnd } from '../text/lineEnds';

const nameOfNone = 'untitled.tab';

/** The tab that is open: its text in the editor, what it is called, and how its file was written. */
export class OpenTab {
    private fileEncoding: Encoding = 'utf-8';
    private lineEnd: LineEnd = '\n';

    constructor(
        private readonly editor: Editor,
        private readonly nameField: HTMLInputElement,
    ) {}

    /** Puts another text into the editor, with the line ends of its file. */
    open(text: string, name = nameOfNone, encoding: Encoding = 'utf-8'): void {
        this.fileEncoding = encoding;
        this.lineEnd = lineEndOf(text);
        this.nameField.value = name;
        this.editor.replaceText(withLineFeeds(text));
    }

    openBytes(bytes: Uint8Array, name: string): void {
        const { text, encoding } = decode(bytes);
        this.open(text, name, encoding);
    }

    /** Goes on with another text of the same name, as the reading gave it. */
    replace(bytes: Uint8Array): void {
        const { text, encoding } = decode(bytes);
        this.fileEncoding = encoding;
        this.editor.replaceText(withLineFeeds(text));
    }

    get text(): string {
        return this.editor.text;
    }

    get name(): string {
        return this.nameField.value.trim() || nameOfNone;
    }

    /** That of the file, as long as it holds all characters. */
    get encoding(): Encoding {
        return encodingFor(this.text, this.fileEncoding);
    }

    /** What is read: the lines end in line feeds. */
    get bytes(): Uint8Array {
        return encode(this.text, this.encoding);
    }

    /** What is saved: the lines end as in the file that was opened. */
    get fileBytes(): Uint8Array {
        return encode(withLineEnds(this.text, this.lineEnd), this.encoding);
    }
}
