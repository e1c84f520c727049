import { StateEffect, StateField } from '@codemirror/state';
import { Decoration, EditorView, type DecorationSet } from '@codemirror/view';
import type { Range } from './places';

/** Shows which notes sound now. */
export const setPlayed = StateEffect.define<readonly Range[]>();

const mark = Decoration.mark({ class: 'note-played' });

export const playedNotes = StateField.define<DecorationSet>({
    create: () => Decoration.none,
    update(marks, transaction) {
        let next = marks.map(transaction.changes);
        for (const effect of transaction.effects)
            if (effect.is(setPlayed))
                next = Decoration.set(
                    effect.value
                        .filter(({ from, to }) => from < to)
                        .map(({ from, to }) => mark.range(from, to)),
                    true,
                );
        return next;
    },
    provide: (field) => EditorView.decorations.from(field),
});
