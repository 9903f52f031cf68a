// The program's clock and the one place where it gives way. Both stand still while there is a reason to: nobody
// can see the page, the page asks its player something, or the browser is too busy to wake the program up. Times
// are in milliseconds.
const Clock = {
  rate: 60,       // frames a second
  lastFrame: -1,  // when the last frame began, by the program's clock
  reasons: new Set(),
  stoppedAt: 0,
  stoppedFor: 0,
  midnight: 0,  // by the program's clock
  waiting: null,

  open() {
    const day = new Date();
    const since = ((day.getHours() * 60 + day.getMinutes()) * 60 + day.getSeconds()) * 1000 + day.getMilliseconds();
    this.midnight = this.now() - since;
    const follow = () => this.stop('hidden', document.hidden);
    document.addEventListener('visibilitychange', follow);
    follow();
    this.measureRate();
  },

  now() {
    return (this.reasons.size ? this.stoppedAt : performance.now()) - this.stoppedFor;
  },

  secondsOfDay() {
    const kDay = 24 * 60 * 60;
    return ((this.now() - this.midnight) / 1000) % kDay;
  },

  // Stops for this reason, or goes on as far as it is concerned.
  stop(reason, stopped) {
    const stood = this.reasons.size > 0;
    if (stopped) this.reasons.add(reason);
    else this.reasons.delete(reason);
    const stands = this.reasons.size > 0;
    if (stood === stands) return;
    if (stands) {
      this.stoppedAt = performance.now();
    } else {
      this.stoppedFor += performance.now() - this.stoppedAt;
      Hand.push({ kind: 6 });
    }
    if (this.waiting) this.waiting.arm();
  },

  stopped() {
    return this.reasons.size > 0;
  },

  wait(until, onInput, wake) {
    const kSoon = 100;  // a longer wait is none for a frame
    const due = Math.max(until, this.now());
    let timer = 0;
    let frame = 0;
    const wait = {
      onInput,
      arm: () => {
        clearTimeout(timer);
        cancelAnimationFrame(frame);
        if (this.stopped()) return;
        const left = until - this.now();
        timer = setTimeout(wait.end, Math.max(0, Math.min(left, 60000)));
        if (onInput && left < kSoon) frame = requestAnimationFrame(wait.frame);
      },
      frame: (time) => {
        this.passOver(due);
        this.lastFrame = time - this.stoppedFor;
        wait.end();
      },
      end: () => {
        if (this.waiting !== wait || this.stopped()) return;
        clearTimeout(timer);
        cancelAnimationFrame(frame);
        this.waiting = null;
        this.passOver(due);
        wake();
      },
    };
    this.waiting = wait;
    if (onInput && Hand.queue.length && !this.stopped()) timer = setTimeout(wait.end, 0);
    else wait.arm();
  },

  // Forgets the time since then if it is more than a moment. The program takes the time of a ball's way for the
  // machine's speed, and a browser that was busy meanwhile would make the ball too fast for good.
  passOver(due) {
    const kMoment = 32;
    const late = this.now() - due;
    if (late > kMoment && !this.stopped()) this.stoppedFor += late;
  },

  inputCame() {
    if (this.waiting && this.waiting.onInput) this.waiting.end();
  },

  // The usual time from frame to frame tells the rate.
  measureRate() {
    const kFrames = 40;
    const kLeast = 30;
    const kMost = 500;
    const times = [];
    const look = (time) => {
      times.push(time);
      if (times.length < kFrames) return requestAnimationFrame(look);
      const steps = times.slice(1).map((at, i) => at - times[i]).sort((a, b) => a - b);
      this.rate = Math.min(Math.max(Math.round(1000 / steps[steps.length >> 1]), kLeast), kMost);
    };
    requestAnimationFrame(look);
  },
};
