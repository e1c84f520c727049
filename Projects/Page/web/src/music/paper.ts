import type { model, Settings } from '@coderline/alphatab';
import type { Library } from './library';

/** Pixels of style sheets: between the margins of A4, which Letter is wide enough for. The style sheet has the margins. */
const widthOfMusic = Math.floor((186 / 25.4) * 96);

/**
 * Engraves a score at once, without a worker: a browser that is about to print does not wait.
 * One element for the heading and one for each line of music, so that none is cut by the end of a page.
 */
export function engraveAtOnce(library: Library, score: model.Score, settings: Settings): HTMLElement[] {
    const lines: HTMLElement[] = [];
    settings.core.enableLazyLoading = false;
    const renderer = new library.rendering.ScoreRenderer(settings);
    renderer.width = widthOfMusic;
    renderer.error.on((error) => {
        throw error;
    });
    renderer.partialRenderFinished.on(({ renderResult }) => {
        const line = document.createElement('div');
        line.innerHTML = String(renderResult);
        lines.push(line);
    });
    renderer.renderScore(
        score,
        score.tracks.map((track) => track.index),
    );
    renderer.destroy();
    return lines;
}
