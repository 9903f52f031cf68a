// The game as a page shows it: what a player does, and what is to be seen.
'use strict';

// Waits until `what` gives something; what it gives.
async function until(what, why, most = 30000) {
  const end = Date.now() + most;
  for (;;) {
    const got = await what();
    if (got) return got;
    if (Date.now() > end) throw new Error('in vain waited for: ' + why);
    await new Promise((done) => setTimeout(done, 30));
  }
}

function demand(holds, what) {
  if (!holds) throw new Error(what);
}

class Game {
  constructor(page) {
    this.page = page;
  }

  evaluate(what, ...words) {
    return this.page.evaluate(what, ...words);
  }

  // A condition of the page's own, as text.
  sees(condition, why = condition, most = undefined) {
    return until(() => this.evaluate(`(() => { try { return !!(${condition}); } catch (e) { return false; } })()`),
                 why, most);
  }

  async begun() {
    await this.sees('Page.playing', 'the opening');
    await until(async () => (await this.look(0, 0.7, 1, 0.86)).lit, 'the last lines of the help screen');
    await this.still('the help screen');
  }

  // Nothing has been painted for a while.
  async still(why) {
    let last = -1;
    await until(async () => {
      const now = await this.evaluate('Picture.presented');
      if (now === last) return true;
      last = now;
      await new Promise((done) => setTimeout(done, 250));
      return false;
    }, 'a still picture: ' + why);
  }

  // From the page's opening to the field, with the ball held.
  async toField() {
    await this.begun();
    await this.press('Escape', 27);
    await until(() => this.paddle(), 'the paddle');
  }

  press(key, code, more) {
    return this.page.key(key, code, more);
  }

  // Display pixels of a part of the picture, given in parts of its size: rows of [red, green, blue].
  look(left, top, right, bottom) {
    return this.evaluate((left, top, right, bottom) => {
      const { width, height } = Picture.canvas;
      const [x, y] = [Math.round(left * width), Math.round(top * height)];
      const w = Math.max(1, Math.round((right - left) * width));
      const h = Math.max(1, Math.round((bottom - top) * height));
      const { data } = Picture.context.getImageData(x, y, w, h);
      let lit = 0;
      let first = -1;
      let last = -1;
      let sum = 0;
      for (let i = 0; i < w * h; ++i) {
        if (data[4 * i] + data[4 * i + 1] + data[4 * i + 2] < 60) continue;
        ++lit;
        sum = (sum * 31 + i + data[4 * i]) % 1000003;
        const column = i % w;
        if (first < 0 || column < first) first = column;
        if (column > last) last = column;
      }
      return { lit, first: (x + first) / width, last: (x + last) / width, sum, all: w * h };
    }, left, top, right, bottom);
  }

  // Where the paddle lies, in parts of the width; nothing if it is not seen.
  async paddle() {
    const { lit, first, last } = await this.look(0, 0.866, 1, 0.868);
    return lit ? { left: first, right: last } : null;
  }

  async point(x, y = 0.7) {
    await this.page.move(x * this.page.width, y * this.page.height);
  }

  async click(x, y = 0.7) {
    await this.page.click(x * this.page.width, y * this.page.height);
  }

  blocks() {
    return this.look(0, 0.05, 1, 0.52);
  }

  // The workshop is there, with nothing under way.
  async toDrawing() {
    await this.sees("Own.part === 'workshop' && Page.playing", 'the workshop');
    await this.still('the workshop');
  }

  // A place of the grid, by its column and row, on the page.
  cell([column, row]) {
    return [(column * 490 + 610) / 12000 * this.page.width * 0.99375004, (row * 260 + 890) / 10000 * this.page.height];
  }

  // Paints from one place of the grid to another, or a block in one.
  async draw(from, to = from) {
    await this.page.drag(this.cell(from), this.cell(to));
  }

  // The same with a finger.
  async trace(from, to = from) {
    const [begin, end] = [this.cell(from), this.cell(to)];
    await this.page.touch('touchStart', begin);
    for (let part = 0.1; part <= 1; part += 0.1)
      await this.page.touch('touchMove', begin.map((place, i) => place + (end[i] - place) * part));
    await this.page.touch('touchMove', end);
    await this.page.touch('touchEnd');
  }

  // The drawing's address, as the workshop copies it.
  async address() {
    await this.evaluate(() => {
      const { copy } = Typing;
      Typing.copy = (text) => {
        Page.copied = text;
        copy.call(Typing, text);
      };
    });
    await this.press('l', 76, { ctrl: true });
    return until(() => this.evaluate('Page.copied'), 'the address');
  }

  // Shoots every ball at the blocks and lets it fall, until the name is asked for.
  async lose() {
    await until(async () => {
      await this.click(0.5, 0.8);
      await this.point(0.95, 0.8);
      await new Promise((done) => setTimeout(done, 1000));
      return this.evaluate('Typing.wanted');
    }, 'the end of the game', 120000);
  }

  // What the records file holds, a character a byte.
  records() {
    return this.evaluate(() => {
      const bytes = Files.read(Files.own + '/kv_his.dat');
      return bytes ? String.fromCharCode(...bytes) : '';
    });
  }
}

module.exports = { Game, until, demand };
