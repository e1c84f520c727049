import type { AlphaTabApi, synth } from '@coderline/alphatab';
import { byId, make, makeButton } from '../ui/elements';
import { libraryFile } from './library';

export interface PlayerEvents {
    started(): void;
    stopped(): void;
    /** The notes that the selection of the text holds; null where it holds none. */
    selectedRange(): { startTick: number; endTick: number; firstBar: number; lastBar: number } | null;
}

const slowest = 25;
const fastest = 200;

const clock = (milliseconds: number): string => {
    const seconds = Math.max(0, Math.floor(milliseconds / 1000));
    return `${Math.floor(seconds / 60)}:${String(seconds % 60).padStart(2, '0')}`;
};

/** The bar of play, position, tempo, metronome and loop. The sound font is loaded when it is first asked to play. */
export class Player {
    private readonly root = byId('player');
    private readonly play = makeButton('Play', () => this.playOrPause(), 'primary');
    private readonly stop = makeButton('Stop', () => this.api?.stop());
    private readonly position = make('input', {
        type: 'range',
        min: '0',
        max: '1000',
        value: '0',
        step: '1',
    });
    private readonly time = make('output', { className: 'time' }, '0:00 / 0:00');
    private readonly tempo = make('input', {
        type: 'range',
        min: String(slowest),
        max: String(fastest),
        value: '100',
        step: '5',
    });
    private readonly tempoWords = make('output', { className: 'tempo' }, '100 %');
    private readonly metronome = makeButton('Metronome', () => this.toggleMetronome());
    private readonly loop = makeButton('Loop', () => this.toggleLoop());
    private readonly words = make('p', { className: 'player-words' });
    private api: AlphaTabApi | null = null;
    private isFontAsked = false;
    private isWantedToPlay = false;
    private beatsAMinute = 0;

    constructor(private readonly events: PlayerEvents) {
        this.words.setAttribute('role', 'status');
        this.position.setAttribute('aria-label', 'Position');
        this.tempo.setAttribute('aria-label', 'Tempo');
        for (const toggle of [this.metronome, this.loop]) toggle.setAttribute('aria-pressed', 'false');
        this.root.append(
            make('div', { className: 'transport' }, this.play, this.stop, this.position, this.time),
            make(
                'div',
                { className: 'options' },
                make('label', {}, 'Tempo ', this.tempo, this.tempoWords),
                this.metronome,
                this.loop,
            ),
            this.words,
        );
        this.position.addEventListener('change', () => this.seek());
        this.tempo.addEventListener('input', () => this.setTempo());
        this.setEnabled(false);
    }

    connect(api: AlphaTabApi): void {
        this.api = api;
        api.playerStateChanged.on((state) => this.showState(state));
        api.playerPositionChanged.on((position) => this.showPosition(position));
        api.playerReady.on(() => this.becomeReady());
    }

    /** A score is there, or none. `beatsAMinute` is its tempo. */
    setEnabled(isEnabled: boolean, beatsAMinute = 0): void {
        this.beatsAMinute = beatsAMinute;
        for (const control of [this.play, this.stop, this.position, this.metronome, this.loop])
            control.disabled = !isEnabled;
        if (!isEnabled) {
            this.api?.stop();
            this.time.textContent = '0:00 / 0:00';
        }
        if (this.api?.playbackRange) this.setLoop(false);
        this.setTempo();
    }

    /** Playing begins here when it is asked for next. */
    moveTo(tick: number): void {
        if (this.api && !this.isPlaying) this.api.tickPosition = tick;
    }

    get isPlaying(): boolean {
        return this.api?.playerState === 1;
    }

    playOrPause(): void {
        if (!this.api) return;
        if (this.api.isReadyForPlayback) {
            this.api.playPause();
            return;
        }
        this.isWantedToPlay = true;
        this.words.textContent = 'Loading the sounds …';
        if (this.isFontAsked) return;
        this.isFontAsked = true;
        this.api.loadSoundFont(libraryFile('soundfont/sonivox.sf3'));
    }

    private becomeReady(): void {
        this.root.dataset.ready = 'true';
        this.words.textContent = '';
        if (!this.isWantedToPlay) return;
        this.isWantedToPlay = false;
        this.api?.play();
    }

    private showState({ state, stopped }: synth.PlayerStateChangedEventArgs): void {
        this.play.textContent = this.isPlaying ? 'Pause' : 'Play';
        const silent = stopped ? 'stopped' : 'paused';
        document.body.dataset.player = this.isPlaying ? 'playing' : silent;
        if (state === 1) this.events.started();
        else if (stopped) this.events.stopped();
    }

    private showPosition({ currentTime, endTime }: synth.PositionChangedEventArgs): void {
        this.time.textContent = `${clock(currentTime)} / ${clock(endTime)}`;
        this.position.value = String(endTime > 0 ? Math.round((1000 * currentTime) / endTime) : 0);
        this.position.setAttribute('aria-valuetext', `${clock(currentTime)} of ${clock(endTime)}`);
        this.root.dataset.milliseconds = String(Math.round(currentTime));
    }

    private seek(): void {
        if (this.api) this.api.timePosition = (Number(this.position.value) / 1000) * this.api.endTime;
    }

    private setTempo(): void {
        const percent = Number(this.tempo.value);
        if (this.api) this.api.playbackSpeed = percent / 100;
        const beats =
            this.beatsAMinute > 0 ? ` · ${Math.round((this.beatsAMinute * percent) / 100)} a minute` : '';
        this.tempoWords.textContent = `${percent} %${beats}`;
        this.tempo.setAttribute('aria-valuetext', `${percent} percent${beats}`);
    }

    private toggleMetronome(): void {
        if (!this.api) return;
        const isOn = this.metronome.getAttribute('aria-pressed') !== 'true';
        this.metronome.setAttribute('aria-pressed', String(isOn));
        this.api.metronomeVolume = isOn ? 1 : 0;
    }

    private toggleLoop(): void {
        this.setLoop(this.loop.getAttribute('aria-pressed') !== 'true');
    }

    private setLoop(isOn: boolean): void {
        if (!this.api) return;
        this.loop.setAttribute('aria-pressed', String(isOn));
        this.api.isLooping = isOn;
        const range = isOn ? this.events.selectedRange() : null;
        // A range that was drawn in the score itself is kept.
        if (range) this.api.playbackRange = range;
        else if (!isOn) this.api.playbackRange = null;
        this.words.textContent = isOn ? loopWords(range, this.api.playbackRange !== null) : '';
    }
}

function loopWords(range: { firstBar: number; lastBar: number } | null, isDrawn: boolean): string {
    if (!range)
        return isDrawn
            ? 'The selected bars are looped.'
            : 'The whole piece is looped. Select some text to loop a part.';
    const { firstBar, lastBar } = range;
    return firstBar === lastBar
        ? `Bar ${firstBar + 1} is looped.`
        : `Bars ${firstBar + 1} to ${lastBar + 1} are looped.`;
}
