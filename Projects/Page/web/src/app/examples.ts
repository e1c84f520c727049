const files = import.meta.glob<string>('../../../../../examples/*', { query: '?raw', import: 'default' });

export interface Example {
    name: string;
    title: string;
    load(): Promise<string>;
}

const titleOf = (name: string): string => {
    const words = name.replace(/\.\w+$/, '').replaceAll('-', ' ');
    return words.charAt(0).toUpperCase() + words.slice(1);
};

/** The examples that come with the project. */
export const examples: readonly Example[] = Object.entries(files)
    .filter(([path]) => !path.endsWith('.nvf'))
    .map(([path, load]) => ({ path, load, name: path.split('/').pop()! }))
    .map(({ load, name }) => ({ name, title: titleOf(name), load }));

export const firstExample = examples.find(({ name }) => name === 'when-the-saints.tab')!;
