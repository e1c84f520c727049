import { wordsOf, type Doubt } from '../editor/doubts';
import { byId, make, makeButton } from './elements';

/** More are counted, not listed: nobody reads them, and the page stays light. */
const mostListed = 100;

/** The doubts as a list, for reading them one after the other; choosing one goes to its place. */
export class DoubtList {
    private readonly root = byId('doubts');
    private readonly heading = byId('doubts-heading');
    private readonly list = this.root.querySelector('ul')!;

    constructor(private readonly goTo: (doubt: Doubt) => void) {}

    show(doubts: readonly Doubt[]): void {
        this.root.hidden = doubts.length === 0;
        const more = doubts.length > mostListed ? `, the first ${mostListed} of them here` : '';
        this.heading.textContent = `${doubts.length === 1 ? '1 doubt' : `${doubts.length} doubts`}${more}`;
        this.list.replaceChildren(...doubts.slice(0, mostListed).map((doubt) => this.itemOf(doubt)));
    }

    private itemOf(doubt: Doubt): HTMLLIElement {
        const { what, attempt } = wordsOf(doubt);
        const button = makeButton(`Line ${doubt.line}`, () => this.goTo(doubt));
        const words = make(
            'p',
            {},
            what,
            ...(attempt ? [' ', make('span', { className: 'attempt' }, attempt)] : []),
        );
        return make('li', {}, button, words);
    }
}
