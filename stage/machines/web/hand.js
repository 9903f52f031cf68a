// The pointer, fingers, keys and text. Events have the kinds of page.h.
const Hand = {
  queue: [],
  x: 0,  // in display pixels
  y: 0,
  pointerShown: true,

  push(event) {
    if (Clock.stopped() && event.kind !== 6 && event.kind !== 7) return;
    // Of a run of moves only the last place counts.
    if (event.kind === 1 && this.queue.length && this.queue[this.queue.length - 1].kind === 1) this.queue.pop();
    this.queue.push(event);
    Clock.inputCame();
  },

  open(canvas) {
    this.canvas = canvas;
    window.addEventListener('mousemove', (event) => this.move(event));
    canvas.addEventListener('mousedown', (event) => {
      event.preventDefault();  // what has the focus keeps it
      Typing.focus();
      Voice.open();
      this.move(event);
      this.button(2, event);
    });
    window.addEventListener('mouseup', (event) => this.button(7, event));
    canvas.addEventListener('contextmenu', (event) => event.preventDefault());
    this.openWheel(canvas);
    this.openFingers(canvas);
    this.openKeys();
  },

  move(event) {
    const box = this.canvas.getBoundingClientRect();
    this.x = ((event.clientX - box.left) * this.canvas.width) / box.width;
    this.y = ((event.clientY - box.top) * this.canvas.height) / box.height;
    this.push({ kind: 1, x: this.x, y: this.y, shift: this.shift(event) });
  },

  // A mouse has others than these three, which mean nothing here.
  button(kind, event) {
    const code = [1, 4, 2][event.button];
    if (code) this.push({ kind, code, shift: this.shift(event) });
  },

  shift(event) {
    return (event.shiftKey ? 1 : 0) | (event.ctrlKey || event.metaKey ? 2 : 0) | (event.altKey ? 4 : 0);
  },

  // With Ctrl the wheel is the browser's.
  openWheel(canvas) {
    const kStep = [100, 3, 1];  // in pixels, lines and pages, one of which the browser counts in
    let turned = 0;
    const turn = (event) => {
      if (event.ctrlKey) return;
      event.preventDefault();
      turned += event.deltaY / kStep[event.deltaMode];
      const steps = Math.trunc(turned);
      turned -= steps;
      if (steps) this.push({ kind: 8, code: -steps, shift: this.shift(event) });
    };
    canvas.addEventListener('wheel', turn, { passive: false });
  },

  // The first finger steers, and a short touch in one place presses; where Module says that fingers draw it presses as
  // long as it touches.
  openFingers(canvas) {
    const kShort = 300;  // ms
    const kOnePlace = 12;
    let first = null;
    const follow = (event) => {
      event.preventDefault();
      const touch = first && [...event.changedTouches].find(({ identifier }) => identifier === first.identifier);
      if (touch) this.move(touch);
      return touch;
    };
    const tip = (kind) => this.push({ kind, code: 1 });
    const listen = (name, what) => canvas.addEventListener(name, what, { passive: false });
    listen('touchstart', (event) => {
      const begins = !first;
      if (begins) {
        const [{ identifier, clientX, clientY }] = event.changedTouches;
        first = { identifier, clientX, clientY, at: event.timeStamp };
      }
      follow(event);
      if (begins && Module.fingersDraw) tip(2);
    });
    listen('touchmove', follow);
    listen('touchend', (event) => {
      Voice.open();
      const touch = follow(event);
      if (!touch) return;
      const way = Math.hypot(touch.clientX - first.clientX, touch.clientY - first.clientY);
      const short = event.timeStamp - first.at < kShort && way < kOnePlace;
      if (short) Typing.focus();
      if (Module.fingersDraw) {
        tip(7);
      } else if (short) {
        tip(2);
        tip(7);
      }
      first = null;
    });
    listen('touchcancel', () => {
      if (first && Module.fingersDraw) tip(7);
      first = null;
    });
  },

  // A code of the program's is the browser's own. Other keys than those that programs know have none. Those that
  // Module names are the program's alone.
  openKeys() {
    const kEditing = [8, 9, 13, 19, 27, 35, 36, 37, 38, 39, 40, 46];
    const kF1 = 112;
    const ours = new Set([...kEditing, ...Module.keys]);
    const oursWithCtrl = new Set(Module.keysWithCtrl);
    const known = (code) =>
      kEditing.includes(code) || code === 32 || (code >= 48 && code <= 57) || (code >= 65 && code <= 90) ||
      (code >= kF1 && code < kF1 + 12);
    const heard = (kind) => (event) => {
      const composing = event.isComposing || event.keyCode === 229;
      if (composing || Clock.stopped() || (event.target.closest && event.target.closest('[data-keys]'))) return;
      if (kind === 3) Voice.open();
      const command = event.ctrlKey || event.metaKey;
      if (command ? oursWithCtrl.has(event.keyCode) : ours.has(event.keyCode) && !event.altKey)
        event.preventDefault();
      this.push({ kind, code: known(event.keyCode) ? event.keyCode : 0, shift: this.shift(event) });
    };
    window.addEventListener('keydown', heard(3));
    window.addEventListener('keyup', heard(4));
  },

  // A key as from the keyboard.
  press(code, shift) {
    this.push({ kind: 3, code, shift });
    this.push({ kind: 4, code, shift });
  },

  showPointer(shown) {
    this.pointerShown = !!shown;
    this.canvas.style.cursor = shown ? 'default' : 'none';
    if (Module.onPointer) Module.onPointer(this.pointerShown);
  },
};

// Text comes from a field that nobody sees, so that dead keys, input methods and the keyboards of phones work. It
// holds one blank, which a phone's keyboard takes away for a backspace.
const Typing = {
  field: null,
  canvas: null,
  wanted: false,

  open(canvas, field) {
    this.canvas = canvas;
    this.field = field;
    field.addEventListener('input', (event) => {
      if (event.isComposing) return;
      if (field.value === '') Hand.press(8, 0);
      else if (event.inputType !== 'insertFromPaste' && event.inputType !== 'insertCompositionText')
        this.type(field.value.replace(kBlank, ''));
      this.clear();
    });
    field.addEventListener('compositionend', (event) => {
      this.type(event.data);
      this.clear();
    });
    window.addEventListener('paste', (event) => {
      event.preventDefault();
      this.type(event.clipboardData.getData('text/plain'));
    });
    window.addEventListener('focus', () => this.focus());
    this.clear();
    this.focus();
  },

  clear() {
    this.field.value = kBlank;
    this.field.setSelectionRange(1, 1);
  },

  want(wanted) {
    this.wanted = wanted;
    this.clear();
    this.focus();
  },

  // Only pages that came over a safe line have the clipboard to themselves; others copy as a hand does.
  copy(text) {
    const byHand = () => {
      this.field.value = text;
      this.field.select();
      document.execCommand('copy');
      this.clear();
      this.focus();
    };
    if (navigator.clipboard) navigator.clipboard.writeText(text).catch(byHand);
    else byHand();
  },

  // On a phone the keyboard comes up with it, if a finger has just asked for something.
  focus() {
    const active = document.activeElement;
    if (active && active.closest('[data-keys]')) return;
    (this.wanted ? this.field : this.canvas).focus({ preventScroll: true });
  },

  type(text) {
    const kMost = 1000;  // characters at once
    const kPart = 60;    // in one event, of at most 4 bytes each
    if (!this.wanted || !text) return;
    const letters = [...text].slice(0, kMost);
    for (let i = 0; i < letters.length; i += kPart) Hand.push({ kind: 5, text: letters.slice(i, i + kPart).join('') });
  },
};
const kBlank = '\u00a0';
