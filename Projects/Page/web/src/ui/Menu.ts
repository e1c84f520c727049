import { makeButton } from './elements';

export interface MenuItem {
    text: string;
    /** Said in small letters beside it. */
    hint?: string;
    action(): void;
}

/** A button that opens a list of buttons. Escape, a click elsewhere, or leaving it by keyboard closes it. */
export class Menu {
    private readonly opener: HTMLButtonElement;
    private readonly panel: HTMLElement;

    constructor(root: HTMLElement, items: readonly MenuItem[] = []) {
        this.opener = root.querySelector<HTMLButtonElement>('.opener')!;
        this.panel = root.querySelector<HTMLElement>('.panel')!;
        this.panel.id ||= `${root.id}-panel`;
        this.opener.setAttribute('aria-controls', this.panel.id);
        this.setItems(items);
        this.close();
        this.opener.addEventListener('click', () => (this.panel.hidden ? this.open() : this.close()));
        root.addEventListener('keydown', (event) => this.takeKey(event));
        root.addEventListener('focusout', ({ relatedTarget }) => {
            if (relatedTarget instanceof Node && !root.contains(relatedTarget)) this.close();
        });
        document.addEventListener('pointerdown', ({ target }) => {
            if (!root.contains(target as Node)) this.close();
        });
    }

    setItems(items: readonly MenuItem[]): void {
        this.panel.replaceChildren(
            ...items.map(({ text, hint, action }) => {
                const button = makeButton(text, () => {
                    this.close();
                    this.opener.focus();
                    action();
                });
                if (hint)
                    button.append(Object.assign(document.createElement('small'), { textContent: hint }));
                return button;
            }),
        );
    }

    private open(): void {
        this.panel.hidden = false;
        this.opener.setAttribute('aria-expanded', 'true');
    }

    private close(): void {
        this.panel.hidden = true;
        this.opener.setAttribute('aria-expanded', 'false');
    }

    private takeKey(event: KeyboardEvent): void {
        if (event.key === 'Escape' && !this.panel.hidden) {
            this.close();
            this.opener.focus();
        } else if (event.key === 'ArrowDown' || event.key === 'ArrowUp') {
            event.preventDefault();
            this.open();
            this.moveFocus(event.key === 'ArrowDown' ? 1 : -1);
        }
    }

    private moveFocus(step: number): void {
        const buttons = [...this.panel.querySelectorAll('button')];
        const at = buttons.indexOf(document.activeElement as HTMLButtonElement);
        const next = at < 0 ? (step > 0 ? 0 : buttons.length - 1) : at + step;
        buttons[(next + buttons.length) % buttons.length]?.focus();
    }
}
