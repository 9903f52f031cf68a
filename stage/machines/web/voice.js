// Sound, one at a time. A browser lets nothing sound before its user has done something.
const Voice = {
  context: null,
  volume: null,
  mutedByPlayer: false,
  playing: null,
  decoded: new Map(),  // by file, once they are
  started: 0,          // sounds

  // To be called from within what the player does.
  open() {
    if (!this.context) {
      const Context = window.AudioContext || window.webkitAudioContext;
      if (!Context) return;
      this.context = new Context({ latencyHint: 'interactive' });
      this.volume = this.context.createGain();
      this.volume.connect(this.context.destination);
      this.mute(this.mutedByPlayer);
      for (const name of Files.names(Files.installed + '/sons')) this.decode(Files.installed + '/sons/' + name);
    }
    if (this.context.state !== 'running') this.context.resume();
  },

  mute(muted) {
    this.mutedByPlayer = muted;
    if (this.volume) this.volume.gain.value = muted ? 0 : 1;
  },

  // Files have changed.
  forget() {
    this.decoded.clear();
  },

  // A sound of the program's own, made meanwhile.
  bring(name, bytes) {
    const folder = Files.installed + '/sons';
    FS.mkdirTree(folder);
    FS.writeFile(folder + '/' + name, bytes);
    this.decoded.delete(folder + '/' + name);
    this.decode(folder + '/' + name);
  },

  decode(file) {
    if (!this.context) return Promise.resolve(null);
    if (!this.decoded.has(file)) {
      const bytes = Files.read(file);
      const sound = bytes ? this.context.decodeAudioData(bytes.slice().buffer) : Promise.resolve(null);
      this.decoded.set(file, sound.catch(() => null));
    }
    return this.decoded.get(file);
  },

  async play(file) {
    const turn = (this.turn = (this.turn || 0) + 1);
    const sound = await this.decode(file);
    if (turn !== this.turn) return;  // another one has been started meanwhile
    this.cutOff();
    if (!sound || this.context.state !== 'running') return;
    const source = this.context.createBufferSource();
    const level = this.context.createGain();
    source.buffer = sound;
    source.connect(level).connect(this.volume);
    source.start();
    this.playing = { source, level };
    ++this.started;
  },

  // What still plays leaves within 4 ms, instead of stopping in the middle of a wave.
  cutOff() {
    if (!this.playing) return;
    const { source, level } = this.playing;
    const end = this.context.currentTime + 0.004;
    level.gain.setValueAtTime(1, this.context.currentTime);
    level.gain.linearRampToValueAtTime(0, end);
    source.stop(end);
    this.playing = null;
  },
};
