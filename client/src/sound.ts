interface Tone {
    start: number;
    frequency: number;
    length: number;
}

/** Nothing is heard where the browser allows no sound yet. */
function sound(shape: OscillatorType, loudness: number, tones: readonly Tone[]): void {
    const context = new AudioContext();
    const volume = context.createGain();
    volume.gain.value = loudness;
    volume.connect(context.destination);
    for (const { start, frequency, length } of tones) {
        const tone = context.createOscillator();
        tone.type = shape;
        tone.frequency.value = frequency;
        tone.connect(volume);
        tone.start(context.currentTime + start);
        tone.stop(context.currentTime + start + length);
    }
    setTimeout(() => void context.close(), 1000);
}

/** Is heard across a workshop: two low tones. */
export const soundAlarm = () =>
    sound("square", 0.25, [
        { start: 0, frequency: 440, length: 0.18 },
        { start: 0.22, frequency: 330, length: 0.3 },
    ]);

/** A short high tone: what was read is taken. */
export const soundGood = () => sound("sine", 0.15, [{ start: 0, frequency: 1320, length: 0.07 }]);
