import type { Kind } from 'fretline';
import { byId, make } from './elements';

/** Lists the colours of the text with their names. */
export function showLegend(kinds: readonly Kind[]): void {
    byId('legend').replaceChildren(
        ...kinds.map(({ id, name }) => make('li', {}, make('span', { className: `read-${id}` }, name))),
    );
}
