// A browser's process, and the calls that it has not answered yet. How words get there is each browser's own: `send`.
'use strict';
const { spawn } = require('child_process');

exports.Browser = class {
  constructor(name, program, words, options) {
    Object.assign(this, { name, calls: new Map(), pages: new Map(), last: 0 });
    this.process = spawn(program, words, { ...options, detached: true });
    this.ended = new Promise((done) => this.process.once('exit', done));
    const kill = () => this.kill();
    process.once('exit', kill);
    this.ended.then(() => process.off('exit', kill));
  }

  call(method, params = {}, more = {}) {
    return new Promise((done, fail) => {
      const id = ++this.last;
      this.calls.set(id, { done, fail, method });
      this.send(JSON.stringify({ id, method, params, ...more }));
    });
  }

  // Whether the message answers a call. `fault` says what is wrong with that, if anything is.
  answers({ id, result }, fault) {
    const waiting = this.calls.get(id);
    if (!waiting) return false;
    this.calls.delete(id);
    if (fault) waiting.fail(new Error(`${waiting.method}: ${fault}`));
    else waiting.done(result);
    return true;
  }

  kill() {
    process.kill(-this.process.pid, 'SIGKILL');
    return this.ended;
  }

  // `method` is the call that asks it to end.
  async end(method) {
    await Promise.race([this.call(method).catch(() => {}), this.ended]);
    const late = setTimeout(() => this.kill(), 5000);
    await this.ended;
    clearTimeout(late);
  }
};
