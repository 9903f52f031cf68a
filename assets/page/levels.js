// The player's own files: levels come in by hand, everything goes out as a zip or file by file.
const Levels = {
  kMostBytes: 1 << 20,
  words: null,
  worker: null,
  answers: [],  // who waits for a verdict, in turn

  open(words) {
    this.words = words;
    const by = (id) => document.getElementById(id);
    by('choose').onclick = () => by('chosen').click();
    by('chosen').onchange = () => {
      this.takeIn([...by('chosen').files]);
      by('chosen').value = '';
    };
    by('take').onclick = () => this.handOut('korvane.zip', this.zip());
    by('clear').onclick = () => {
      if (!confirm(words.clearAsk)) return;
      Files.clear();
      this.show();
    };
    window.addEventListener('dragover', (event) => event.preventDefault());
    window.addEventListener('drop', (event) => {
      event.preventDefault();
      if (!Page.playing || !event.dataTransfer.files.length) return;
      Page.openMenu();
      this.takeIn([...event.dataTransfer.files]);
    });
  },

  show() {
    document.getElementById('files').replaceChildren(...Files.all().map((name) => {
      const item = document.createElement('li');
      const file = Files.own + '/' + name;
      item.append(Page.button(name, () => this.handOut(name.split('/').pop(), new Blob([Files.read(file)]))));
      return item;
    }));
  },

  zip() {
    return zipOf(Files.all().map((name) => ({ name, bytes: Files.read(Files.own + '/' + name) })));
  },

  handOut(name, blob) {
    const link = document.createElement('a');
    link.download = name;
    link.href = URL.createObjectURL(blob);
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  },

  // The first number without a level.
  nextNumber() {
    const there = new Set([...Files.names(Files.own + '/levels'), ...Files.names(Files.installed + '/levels')]);
    let number = 1;
    while (there.has(number + '.sav')) ++number;
    return number;
  },

  async takeIn(chosen) {
    const lines = [];
    for (const file of chosen) {
      lines.push(file.name + ': ' + (await this.takeInOne(file)));
      document.getElementById('verdict').textContent = lines.join('\n');
    }
    this.show();
  },

  async takeInOne(file) {
    if (file.size > this.kMostBytes) return this.words.tooLarge;
    const map = !/\.sav$/i.test(file.name);
    const bytes = await file.arrayBuffer().catch(() => null);
    if (!bytes) return this.words.unreadable;
    const verdict = await this.ask({ map, bytes: new Uint8Array(bytes) });
    if (!verdict.good) return verdict.said;
    const [, own] = /^([1-9]\d{0,3})\.\w+$/.exec(file.name) || [];
    const number = own || this.nextNumber();
    Files.write(`${Files.own}/levels/${number}.sav`, verdict.bytes);
    return `${this.words.put}${number}, ${verdict.said}`;
  },

  ask(level) {
    return new Promise((answer) => {
      this.answers.push(answer);
      this.worker.postMessage({ level });
    });
  },

  // The worker makes the sounds, too, once the game is seen.
  start(worker) {
    this.worker = worker;
    worker.onmessage = ({ data }) => {
      if (data.ready) worker.postMessage({ sounds: true });
      else if (data.sound) Voice.bring(data.sound, data.bytes);
      else if (data.sounded) Page.sounded = true;
      else this.answers.shift()(data);
    };
  },
};
