/** The element of the page with this id; a missing one is a mistake of the page itself. */
export function byId<Type extends HTMLElement = HTMLElement>(id: string): Type {
    const element = document.getElementById(id);
    if (!element) throw new Error(`The page has no element "${id}".`);
    return element as Type;
}

/** A new element with properties and children. */
export function make<Tag extends keyof HTMLElementTagNameMap>(
    tag: Tag,
    properties: Partial<HTMLElementTagNameMap[Tag]> = {},
    ...children: (Node | string)[]
): HTMLElementTagNameMap[Tag] {
    const element = Object.assign(document.createElement(tag), properties);
    element.append(...children);
    return element;
}

export const makeButton = (text: string, action: () => void, className = ''): HTMLButtonElement =>
    make('button', { type: 'button', textContent: text, className, onclick: action });

/** The value of the chosen one of a group of radio buttons, and word of a change. */
export function radioGroup<Value extends string>(name: string, changed: (value: Value) => void) {
    const inputs = [...document.querySelectorAll<HTMLInputElement>(`input[name="${name}"]`)];
    for (const input of inputs) input.addEventListener('change', () => changed(input.value as Value));
    return {
        get value(): Value {
            return inputs.find((input) => input.checked)!.value as Value;
        },
        set value(value: Value) {
            for (const input of inputs) input.checked = input.value === value;
        },
    };
}
