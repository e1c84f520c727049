import { byId } from './elements';

const holdsFiles = (event: DragEvent): boolean => event.dataTransfer?.types.includes('Files') ?? false;

/** The whole page takes files that are dropped on it, the editor included. */
export function takeDroppedFiles(open: (file: File) => void): void {
    const zone = byId('drop');
    let depth = 0;
    const setDepth = (value: number): void => {
        depth = Math.max(0, value);
        zone.hidden = depth === 0;
    };
    const options = { capture: true };
    addEventListener('dragenter', (event) => holdsFiles(event) && setDepth(depth + 1), options);
    addEventListener('dragleave', (event) => holdsFiles(event) && setDepth(depth - 1), options);
    addEventListener('dragover', (event) => holdsFiles(event) && event.preventDefault(), options);
    addEventListener(
        'drop',
        (event) => {
            setDepth(0);
            if (!holdsFiles(event)) return;
            event.preventDefault();
            event.stopPropagation();
            const file = event.dataTransfer?.files[0];
            if (file) open(file);
        },
        options,
    );
}
