/** An alarm that is heard across a workshop: two low tones. Nothing where the browser allows no sound yet. */
export function soundAlarm(): void {
    const context = new AudioContext();
    const volume = context.createGain();
    volume.gain.value = 0.25;
    volume.connect(context.destination);
    for (const [start, frequency] of [[0, 440], [0.22, 330]] as const) {
        const tone = context.createOscillator();
        tone.type = "square";
        tone.frequency.value = frequency;
        tone.connect(volume);
        tone.start(context.currentTime + start);
        tone.stop(context.currentTime + start + 0.18);
    }
    setTimeout(() => void context.close(), 1000);
}
