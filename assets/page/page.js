// The page around the program: what is before it, over it and after it.
const Page = {
  words: Words.here(),
  playing: false,
  sounded: false,  // all sounds are made
  wrong: '',       // the program's last words

  by: (id) => document.getElementById(id),

  say(text, over = false) {
    this.by('note').hidden = !text;
    this.by('note').classList.toggle('over', over);
    this.by('says').textContent = text;
  },

  // Resolves once the program may start.
  async prepare() {
    await this.beAlone();
    await this.lieOnSide();
    const kept = await Files.open('korvane', ['levels', 'sons']);
    Files.onRefusal = () => this.tell(this.words.notKept);
    if (!kept) this.tell(this.words.notKept);
    const canvas = this.by('canvas');
    Clock.open();
    Picture.open(canvas);
    Hand.open(canvas);
    Typing.open(canvas, this.by('typing'));
    this.openBar();
    Levels.open(this.words);
    this.watchTurning();
  },

  // Two pages would each write over the other's records.
  beAlone() {
    if (!navigator.locks) return Promise.resolve();
    return new Promise((alone) => {
      const hold = () => {
        alone();
        return new Promise(() => {});
      };
      navigator.locks.request('korvane', { ifAvailable: true }, (lock) => {
        if (lock) return hold();
        this.say(this.words.elsewhere);
        navigator.locks.request('korvane', () => {
          this.say(this.words.loading);
          return hold();
        });
      }).catch(alone);  // a page without an address has none to lock
    });
  },

  onEdge: () => matchMedia('(pointer: coarse) and (orientation: portrait)').matches,

  lieOnSide() {
    if (!this.onEdge()) return Promise.resolve();
    this.say(this.words.turn);
    return new Promise((lying) => {
      const look = () => {
        if (this.onEdge()) return;
        removeEventListener('resize', look);
        this.say(this.words.loading);
        lying();
      };
      addEventListener('resize', look);
    });
  },

  watchTurning() {
    let turned = false;
    addEventListener('resize', () => {
      if (!this.playing || turned === this.onEdge()) return;
      turned = this.onEdge();
      Clock.stop('turned', turned);
      this.say(turned ? this.words.turn : '', true);
    });
  },

  // The first picture is there.
  begin() {
    performance.mark('first picture');
    this.playing = true;
    this.say('');
    this.by('bar').hidden = false;
    setTimeout(() => {
      Levels.start(makeWorker());
      mayGoOffline(Own.part);
    }, 300);
  },

  // A word over the game, for a while.
  tell(text) {
    const kLong = 8000;  // ms
    const word = this.by('word');
    word.textContent = text;
    word.hidden = false;
    setTimeout(() => (word.hidden = true), kLong);
  },

  openBar() {
    const name = (id, text) => {
      this.by(id).title = text;
      this.by(id).setAttribute('aria-label', text);
    };
    const { words } = this;
    name('open', words.menu);
    name('mute', words.mute);
    name('full', words.full);
    this.by('open').onclick = () => this.openMenu();
    this.by('mute').onclick = () => this.mute(!Voice.mutedByPlayer);
    this.by('full').hidden = !document.documentElement.requestFullscreen;
    this.by('full').onclick = () => this.fullScreen();
    this.showMuted(remembered('muted') === 'true');
    this.by('keys').textContent = words.keys;
    this.by('levels-title').textContent = words.levelsTitle;
    this.by('levels-how').textContent = words.levelsHow;
    for (const id of ['choose', 'take', 'clear', 'close', 'other'])
      if (this.by(id)) this.by(id).textContent = words[id];
    this.by('close').onclick = () => this.by('menu').close();
    this.openKeys();
  },

  button(text, onclick) {
    const button = document.createElement('button');
    return Object.assign(button, { type: 'button', textContent: text, onclick });
  },

  // What has no other key on a phone. The program hears of it once its clock goes again.
  openKeys() {
    let chosen = null;
    for (const [id, key] of Object.entries(Own.actions)) {
      const button = this.button(this.words[id], () => {
        chosen = key;
        this.by('menu').close();
      });
      this.by('actions').append(Object.assign(button, { id }), ' ');
    }
    this.by('menu').addEventListener('close', () => {
      Clock.stop('menu', false);
      Typing.focus();
      if (chosen) Hand.press(...chosen);
      chosen = null;
    });
  },

  openMenu() {
    if (this.by('menu').open) return;
    Clock.stop('menu', true);
    this.by('verdict').textContent = '';
    Levels.show();
    this.by('menu').showModal();
  },

  mute(muted) {
    Voice.open();
    this.showMuted(muted);
    remember('muted', String(muted));
    this.by('mute').blur();
    Typing.focus();
  },

  showMuted(muted) {
    Voice.mute(muted);
    this.by('mute').setAttribute('aria-pressed', String(muted));
  },

  // Esc is the game's as long as the browser lets it be.
  async fullScreen() {
    this.by('full').blur();
    Typing.focus();
    if (document.fullscreenElement) return document.exitFullscreen();
    await document.documentElement.requestFullscreen({ navigationUI: 'hide' }).catch(() => {});
    if (navigator.keyboard && navigator.keyboard.lock) await navigator.keyboard.lock(['Escape']).catch(() => {});
  },

  // Nothing goes on any more.
  broken(why) {
    Page.wrong = String(why);
    console.error(why);
    Page.end();
  },

  // The program has ended.
  end() {
    this.playing = false;
    this.by('bar').hidden = true;
    this.by('canvas').style.cursor = 'default';
    this.say(this.wrong ? this.words.failed + this.wrong : this.words.over, true);
    const again = this.by('again');
    again.textContent = this.words.again;
    again.hidden = false;
    again.onclick = () => location.reload();
    again.focus();
  },
};

// Small things that the browser may keep.
function remembered(name) {
  try {
    return localStorage.getItem(name);
  } catch (error) {
    return null;
  }
}
function remember(name, text) {
  try {
    localStorage.setItem(name, text);
  } catch (error) {
    // Then it does not.
  }
}

var Module = {
  arguments: Own.words,
  keys: Own.keys,
  keysWithCtrl: Own.keysWithCtrl,
  fingersDraw: Own.fingersDraw,
  // Not before: files go into the program's memory, which must be there.
  preRun: [() => {
    addRunDependency('page');
    Page.prepare().then(() => removeRunDependency('page'), Page.broken);
  }],
  printErr: (line) => {
    Page.wrong = line;
    console.error(line);
  },
  onFirstPicture: () => Page.begin(),
  onPointer: (shown) => Page.by('bar').classList.toggle('away', !shown),
  onClose: () => Page.end(),
  onAbort: (why) => Page.broken(why),
};
addEventListener('error', ({ message }) => Page.broken(message));
addEventListener('unhandledrejection', ({ reason }) => Page.broken(reason));
Page.say(typeof WebAssembly === 'object' ? Page.words.loading : Page.words.noWasm);
