// Plays the game in a browser, as a player would, and looks at what is seen: node play.js BUILD-WEB BUILD [firefox]
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { execFileSync } = require('child_process');
const { serve } = require('./server.js');
const { Game, until, demand } = require('./game.js');
const png = require('./png.js');

const [built, native, which] = process.argv.slice(2);
const Browser = require(which === 'firefox' ? './firefox.js' : './chromium.js');
const shots = path.join(built, 'shots');
fs.mkdirSync(shots, { recursive: true });
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'korvane-web-'));
const kDesk = { width: 1280, height: 720, ratio: 1 };
const kLarge = { width: 1920, height: 1080, ratio: 2 };
const kPhone = { width: 844, height: 390, ratio: 3, touch: true };
const later = (time) => new Promise((done) => setTimeout(done, time));

// A player with a browser, which starts with the first page.
class Visit {
  constructor(name, site) {
    Object.assign(this, { profile: path.join(scratch, name), site, pages: [], browser: null });
  }

  async open(look = kDesk, url = this.site.url) {
    const { ratio } = look;
    this.browser ??= await Browser.start(this.profile, { ratio, preferences: this.preferences });
    const page = await this.browser.open(url, look);
    this.pages.push(page);
    return page;
  }

  // The next page opens in a new browser that finds what this one has left.
  async kill() {
    this.judge();
    this.pages = [];
    await this.browser.kill();
    for (const name of ['SingletonLock', 'SingletonSocket', 'SingletonCookie'])
      fs.rmSync(path.join(this.profile, name), { force: true });
    this.browser = null;
  }

  // No page has complained or asked for anything outside.
  judge() {
    for (const page of this.pages) {
      demand(!page.wrong.length, 'the page complains: ' + page.wrong.join('; '));
      const outside = page.asked.filter((url) => !/^(data|blob|about|file):/.test(url) &&
                                                 !url.startsWith('http://127.0.0.1:'));
      demand(!outside.length, 'asks outside: ' + outside.join(' '));
    }
  }

  async close() {
    if (this.browser) await this.browser.close();
  }
}

// The share of pixels that differ clearly between a screenshot and the native picture of the same moment.
function difference(shot, picture) {
  demand(shot.width === picture.width && shot.height === picture.height,
         `a picture of ${shot.width}x${shot.height}, not of ${picture.width}x${picture.height}`);
  const kClear = 40;
  let different = 0;
  for (let y = 0; y < shot.height; y += 2) {
    for (let x = 0; x < shot.width; x += 2) {
      const [a, b] = [shot.at(x, y), picture.at(x, y)];
      if (a.some((part, i) => Math.abs(part - b[i]) > kClear)) ++different;
    }
  }
  return (4 * different) / (shot.width * shot.height);
}

// What the native program shows: the help screen, and the field with the paddle at this part of the width.
function nativePictures({ width, height, ratio }, paddle) {
  const lines = 600;
  const names = ['help', 'field'].map((name) => path.join(scratch, name + '.png'));
  const across = (9000 * width) / height;
  const script = [`screen ${across} 9000`, `scale ${(height * ratio) / lines}`, 'start', `picture ${names[0]}`,
    'key 27', `move ${across * paddle} 8000`, 'beats 8', `picture ${names[1]}`, ''].join('\n');
  execFileSync(path.join(native, 'korvane-replay'), { input: script });
  return names.map((name) => png.read(fs.readFileSync(name)));
}

async function keep(page, name) {
  const file = await page.screenshot();
  fs.writeFileSync(path.join(shots, `${page.browser.name}-${name}.png`), file);
  return png.read(file);
}

async function wholeGame(visit, look) {
  const page = await visit.open(look);
  const game = new Game(page);
  const tag = `${look.width}x${look.height}@${look.ratio}-`;
  const places = [0.25, 0.7];
  const [help, field] = nativePictures(look, places[1]);
  const compare = async (name, picture, most) => {
    await game.evaluate("Page.by('bar').style.visibility = 'hidden'");
    const apart = difference(await keep(page, tag + name), picture);
    await game.evaluate("Page.by('bar').style.visibility = ''");
    demand(apart < most, `${name} is not the native one: ${(100 * apart).toFixed(2)} % differ`);
  };
  await game.begun();
  await compare('help', help, 0.02);
  await game.press('Escape', 27);
  await until(() => game.paddle(), 'the field');
  for (const x of places) {
    await game.point(x);
    await until(async () => Math.abs((await game.paddle()).left - x) < 0.005, 'the paddle under the pointer');
  }
  await compare('field', field, 0.002);
  const whole = await game.blocks();
  await game.point(0.3);
  await game.click(0.3);
  const block = whole.lit / 200;
  await until(async () => (await game.blocks()).lit < whole.lit - block, 'a broken block', 60000);
  await keep(page, tag + 'flight');
  await game.press('p', 80, { text: 'p' });
  await game.still('under the pause');
  await keep(page, tag + 'pause');
  await game.press('p', 80, { text: 'p' });
  await game.sees('!Hand.pointerShown', 'play after the pause');
  const before = await game.look(0.8, 0.93, 0.92, 1);
  await game.press('a', 65, { ctrl: true });
  await game.sees('Typing.wanted', 'the question for a level');
  await keep(page, tag + 'level');
  await page.insert('2');
  await game.press('Enter', 13, { text: '\r' });
  await until(async () => (await game.look(0.8, 0.93, 0.92, 1)).sum !== before.sum, 'another level');
}

const tests = {
  'the whole game': (visit) => wholeGame(visit, kDesk),
  'the whole game on a large display': (visit) => wholeGame(visit, kLarge),

  async 'a record with an accent, the table, the end, and a reload'(visit) {
    const page = await visit.open();
    const game = new Game(page);
    await game.toField();
    await game.lose();
    await page.insert('Jo');
    await page.insert('ã');
    await page.insert('o');
    await keep(page, 'name');
    await game.press('Enter', 13, { text: '\r' });
    await until(async () => (await game.records()).includes('Jo\xe3o'), 'the record');
    await game.still('the table');
    await keep(page, 'table');
    await game.press('Escape', 27);
    for (let i = 0; i < 20 && !(await game.evaluate("!Page.by('again').hidden")); ++i) {
      await game.press('Escape', 27);
      await later(250);
    }
    await game.sees("!Page.by('again').hidden", 'the offer of another game');
    await keep(page, 'end');
    await page.reload();
    await game.begun();
    demand((await game.records()).includes('Jo\xe3o'), 'the record is gone after a reload');
  },

  async 'a second page waits for the first'(visit) {
    const first = await visit.open();
    await new Game(first).begun();
    const second = await visit.open();
    const game = new Game(second);
    await game.sees("Page.by('says').textContent === Page.words.elsewhere", 'word of the other page');
    demand(!(await game.evaluate('Page.playing')), 'two pages play at once');
    await keep(second, 'second');
    await first.close();
    await game.sees('Page.playing', 'its turn');
  },

  async 'a hidden tab stands still'(visit) {
    const page = await visit.open();
    const game = new Game(page);
    await game.toField();
    await game.click(0.5);
    const other = await visit.open(kDesk, 'about:blank');
    await other.show();
    await game.sees('document.hidden && Clock.waiting', 'the hidden tab, and the program at rest');
    const stood = await game.evaluate(() => new Promise((done) => {
      const [at, day, pictures] = [Clock.now(), Clock.secondsOfDay(), Picture.presented];
      const told = () => [at - Clock.now(), day - Clock.secondsOfDay(), pictures - Picture.presented].join(' ');
      setTimeout(() => done(told() === '0 0 0' ? '' : told()), 1500);
    }));
    demand(stood === '', `time passes in a hidden tab: ${stood}`);
    await page.show();
    const then = await game.evaluate('Clock.now()');
    await game.sees(`Clock.now() > ${then + 100}`, 'time to go on');
  },

  async 'a busy browser holds the clock'(visit) {
    const game = new Game(await visit.open());
    await game.toField();
    await game.click(0.5);
    const kBusy = 1000;  // ms
    const counted = await game.evaluate(async (busy) => {
      const before = Clock.now();
      const end = performance.now() + busy;
      while (performance.now() < end);
      await new Promise((done) => setTimeout(done, 50));
      return Clock.now() - before;
    }, kBusy);
    demand(counted > 0 && counted < kBusy, `${counted} ms have passed`);
  },

  async 'the menu has the keys that a phone lacks'(visit) {
    const game = new Game(await visit.open());
    await game.toField();
    const choose = (id) => game.evaluate((id) => {
      Page.openMenu();
      Page.by(id).click();
    }, id);
    await choose('help');
    await until(async () => !(await game.paddle()), 'the bonuses instead of the field');
    await game.press('Escape', 27);
    await until(() => game.paddle(), 'the field again');
    await choose('jump');
    await game.sees('Typing.wanted', 'the question for a level');
    await game.press('Escape', 27);
    await game.sees('!Typing.wanted', 'the field without the question');
    await choose('leave');
    await until(async () => !(await game.paddle()), 'the records instead of the field');
    await choose('leave');
    await game.sees("!Page.by('again').hidden", 'the offer of another game');
  },

  async 'own levels'(visit) {
    const page = await visit.open();
    const game = new Game(page);
    await game.toField();
    const before = await game.blocks();
    const good = path.join(scratch, '1.txt');
    const bad = path.join(scratch, '9.sav');
    fs.writeFileSync(good, 'name: Mine\nmap:\n......ddddd......\n......ccccc......\n');
    fs.writeFileSync(bad, '600,3000,250,480,77\n');
    const said = execFileSync(path.join(native, 'korvane-level'), ['make', good], { encoding: 'utf8' });
    await game.evaluate('Page.openMenu()');
    await game.sees('Page.sounded', 'the worker');
    await page.choose('#chosen', [good, bad]);
    const verdict = await until(() => game.evaluate(
      "Page.by('verdict').textContent.includes('9.sav') && Page.by('verdict').textContent"), 'the verdict');
    demand(/1\.txt: .*1, ok: 10 blocks/.test(verdict), 'the verdict on a good level: ' + verdict);
    demand(/9\.sav: .*no such type/.test(verdict), 'the verdict on a bad level: ' + verdict);
    demand(await game.evaluate("new TextDecoder().decode(Files.read(Files.own + '/levels/1.sav'))") === said,
           'another level than korvane-level makes');
    demand(!(await game.evaluate("Files.read(Files.own + '/levels/9.sav')")), 'a bad level was taken');
    await keep(page, 'menu');
    await page.reload();
    await game.toField();
    const own = await game.blocks();
    demand(own.lit > 0 && own.lit < before.lit / 2, 'the own level is not played');
    await keep(page, 'own-level');
    const zip = await game.evaluate(async () => [...new Uint8Array(await Levels.zip().arrayBuffer())]);
    const file = path.join(scratch, 'own.zip');
    fs.writeFileSync(file, Buffer.from(zip));
    const out = execFileSync('python3', ['-c', 'import sys, zipfile; z = zipfile.ZipFile(sys.argv[1]); ' +
      'assert z.testzip() is None; print(z.read("levels/1.sav").decode(), end="")', file], { encoding: 'utf8' });
    demand(out === said, 'the zip holds something else');
  },

  async 'a level is drawn, sent by its address and played'(visit) {
    const page = await visit.open(kDesk, visit.site.url + 'oficina.html');
    const game = new Game(page);
    await game.toDrawing();
    const empty = await game.blocks();
    await game.draw([3, 9]);
    const one = await until(async () => {
      const now = await game.blocks();
      return now.lit > empty.lit && now;
    }, 'a block');
    await game.draw([0, 4], [23, 4]);
    const drawn = await until(async () => {
      const now = await game.blocks();
      return now.lit > 20 * one.lit && now;
    }, 'a row of blocks');
    const address = await game.address();
    await keep(page, 'workshop');
    await page.close();

    const friend = await visit.open(kDesk, address);
    const play = new Game(friend);
    await play.sees('Page.playing', 'the workshop');
    await play.still('the question');
    await keep(friend, 'address');
    await play.press('Enter', 13, { text: '\r' });
    await play.sees('!Hand.pointerShown', 'play');
    await until(async () => Math.abs((await play.blocks()).lit - drawn.lit) < one.lit / 4, 'the level that was sent');
    await until(async () => {
      await play.click(0.4);
      await later(500);
      return (await play.blocks()).lit < drawn.lit - one.lit / 2;
    }, 'a broken block', 60000);
    await play.press('Escape', 27);
    await play.sees('Hand.pointerShown', 'the drawing again');
    await play.still('the question for the draft that the first page has left');
    await play.press('Enter', 13, { text: '\r' });
    await until(async () => (await play.blocks()).lit === drawn.lit, 'all blocks again');
    demand(!(await play.records()), 'the game has left a record');
  },

  async 'a level that was saved is played by the game'(visit) {
    const page = await visit.open(kDesk, visit.site.url + 'oficina.html');
    const game = new Game(page);
    await game.toDrawing();
    await game.draw([0, 4], [23, 4]);
    await game.sees("Files.names(Files.own + '/levels').includes('rascunho.sav') && !Files.writing", 'the draft');
    await game.press('s', 83, { ctrl: true });
    await game.sees('Typing.wanted', 'the question for its number');
    await page.insert('1');
    await game.press('Enter', 13, { text: '\r' });
    await game.sees("Files.read(Files.own + '/levels/1.sav') && !Files.writing", 'the level');
    await page.go(await game.evaluate("Page.by('other').href"));
    await game.sees("Own.part === 'game'", 'the page of the game');
    await game.toField();
    const own = await game.blocks();
    demand(own.lit > 0 && own.first < 0.05 && own.last > 0.9 && (await game.look(0, 0.05, 1, 0.15)).lit === 0,
           'another level than was saved');
    demand(!(await game.evaluate("Files.names(Files.own + '/levels').includes('rascunho.sav')")), 'the draft is there');
  },

  async 'a finger draws, and what is not wanted is not offered again'(visit) {
    const workshop = visit.site.url + 'oficina.html';
    const page = await visit.open(kPhone, workshop);
    let game = new Game(page);
    await game.toDrawing();
    const lit = async () => (await game.blocks()).lit;
    const empty = await lit();
    await game.trace([0, 4], [23, 4]);
    const row = await until(async () => (await lit()) > empty && lit(), 'a row of blocks');
    demand((await game.blocks()).first < 0.05 && (await game.blocks()).last > 0.9, 'it is shorter');
    await game.trace([5, 4]);
    await game.evaluate("Page.by('open').click(); Page.by('remove').click()");
    await until(async () => (await lit()) < row, 'a block fewer');
    await keep(page, 'finger');

    const draft = "Files.names(Files.own + '/levels').includes('rascunho.sav')";
    await game.sees(draft + ' && !Files.writing', 'the draft');
    await game.press('Escape', 27);
    await game.still('the question');
    await game.press('Tab', 9);
    await game.press('Enter', 13, { text: '\r' });
    await game.sees('!Page.playing && !Files.writing', 'the end');
    await page.go(workshop);
    game = new Game(page);
    await game.toDrawing();
    demand(!(await game.evaluate(draft)) && (await lit()) === empty, 'the drawing is offered again');
  },

  async 'what an address cannot carry leaves an empty drawing'(visit) {
    const workshop = visit.site.url + 'oficina.html';
    let page = await visit.open(kDesk, workshop);
    let game = new Game(page);
    await game.toDrawing();
    const empty = await game.look(0, 0, 1, 1);
    await game.draw([3, 9]);
    const address = await game.address();
    await game.evaluate('Files.clear()');
    await game.sees('!Files.writing', 'nothing that is kept');
    const changed = address.replace(/.(?=.{6}$)/, (letter) => (letter === 'A' ? 'B' : 'A'));
    for (const hostile of [changed, workshop + '#' + 'A'.repeat(100000), workshop + '#%00<script>"\'&']) {
      await page.close();
      page = await visit.open(kDesk, hostile);
      game = new Game(page);
      await game.toDrawing();
      demand((await game.blocks()).lit === 0, 'blocks of ' + hostile.slice(0, 100));
      const said = await game.look(0, 0, 1, 1);
      demand(said.sum !== empty.sum, 'nothing is said of ' + hostile.slice(0, 100));
    }
    await keep(page, 'hostile');
  },

  async 'sounds are those of the native synthesizer'(visit) {
    const page = await visit.open();
    const game = new Game(page);
    await game.toField();
    await game.sees('Page.sounded', 'the sounds', 60000);
    for (const name of fs.readdirSync(path.join(native, 'sons'))) {
      const made = await game.evaluate(async (name) => {
        const bytes = Files.read(Files.installed + '/sons/' + name);
        if (!bytes) return '';
        const sum = await crypto.subtle.digest('SHA-256', bytes);
        return [...new Uint8Array(sum)].map((byte) => byte.toString(16).padStart(2, '0')).join('');
      }, name);
      const sum = require('crypto').createHash('sha256').update(fs.readFileSync(path.join(native, 'sons', name)));
      demand(made === sum.digest('hex'), 'another sound: ' + name);
    }
    await game.click(0.5);
    const decoded = await game.evaluate(async () => {
      const sounds = await Promise.all(Voice.decoded.values());
      return sounds.filter((sound) => sound).length;
    });
    demand(decoded === 12, `${decoded} sounds can be played`);
    // Firefox lets nothing sound where there is no device.
    if (Browser.name === 'Chromium') await game.sees('Voice.started > 0', 'a sound that starts', 60000);
  },
};

const ofChromium = {
  async 'little moves where that is asked for'(visit) {
    const page = await visit.open();
    const game = new Game(page);
    await game.toField();
    // A ball that nobody launches calls for it.
    const presented = () => game.evaluate(() => Picture.presented);
    const first = await presented();
    await until(async () => (await presented()) > first + 3, 'something that moves');
    await page.call('Emulation.setEmulatedMedia', { features: [{ name: 'prefers-reduced-motion', value: 'reduce' }] });
    await later(500);
    const before = await presented();
    await later(1500);
    demand((await presented()) === before, 'something moves');
  },

  async 'a finger steers and a tap launches'(visit) {
    const page = await visit.open(kPhone);
    const game = new Game(page);
    await game.begun();
    await page.touch('touchStart', [400, 200]);
    await page.touch('touchEnd');
    await until(() => game.paddle(), 'the field');
    await page.touch('touchStart', [200, 300]);
    for (let x = 200; x <= 500; x += 20) await page.touch('touchMove', [x, 300]);
    await until(async () => Math.abs((await game.paddle()).left - 500 / 844) < 0.01, 'the paddle under the finger');
    const held = await game.look(0, 0.52, 1, 0.86);
    await later(400);
    await page.touch('touchEnd');
    await game.still('a ball that is held after a drag');
    demand((await game.look(0, 0.52, 1, 0.86)).sum === held.sum, 'a drag has launched the ball');
    await page.touch('touchStart', [500, 300]);
    await page.touch('touchEnd');
    await until(async () => (await game.look(0, 0.52, 1, 0.86)).sum !== held.sum, 'a ball that flies');
    demand(await game.evaluate('scrollY === 0 && visualViewport.scale === 1'), 'the page has moved');
    await keep(page, 'touch');
  },

  async 'a phone upright is asked to turn'(visit) {
    const page = await visit.open({ ...kPhone, width: kPhone.height, height: kPhone.width });
    const game = new Game(page);
    await game.sees("Page.by('says').textContent === Page.words.turn", 'the question');
    await keep(page, 'upright');
    await page.resize(kPhone.width, kPhone.height, true);
    await game.sees('Page.playing', 'the game');
  },

  async 'offline after the first visit'(visit) {
    const site = await serve(path.join(built, 'site'));
    const page = await visit.open(kDesk, site.url);
    const game = new Game(page);
    await game.begun();
    await game.evaluate('navigator.serviceWorker.ready.then(() => true)');
    await game.sees('navigator.serviceWorker.controller', 'a page that is kept');
    await page.go(site.url + 'oficina.html');
    await game.toDrawing();
    await until(() => game.evaluate("caches.match('korvane-oficina.wasm').then((kept) => !!kept)"), 'a kept workshop');
    await site.close();
    await page.reload();
    await game.toDrawing();
    await page.go(site.url);
    await game.begun();
    await game.sees('Page.sounded', 'the worker');
  },

  async 'the single file from disk'(visit) {
    const page = await visit.open(kDesk, 'file://' + path.resolve(built, 'korvane.html'));
    const game = new Game(page);
    await game.toField();
    await game.sees('Page.sounded', 'the worker');
    const inside = page.asked.filter((url) => !/^(data|blob):/.test(url));
    demand(inside.length === 1, 'it asks for ' + inside.join(' '));
    demand(await game.evaluate("!Page.by('other')"), 'it leads to where nothing is');
  },

  async 'storage refused'(visit) {
    visit.preferences = { profile: { default_content_setting_values: { cookies: 2 } } };
    const page = await visit.open();
    const game = new Game(page);
    await game.sees("!Page.by('word').hidden && Page.by('word').textContent === Page.words.notKept", 'a word on it');
    await game.toField();
    await keep(page, 'refused');
  },

  async 'a record outlives the browser killed'(visit) {
    const game = new Game(await visit.open());
    await game.toField();
    await game.lose();
    await game.page.insert('Kill');
    await game.press('Enter', 13, { text: '\r' });
    await until(async () => (await game.records()).includes('Kill'), 'the record');
    await later(500);
    await visit.kill();
    const again = new Game(await visit.open());
    await again.begun();
    demand((await again.records()).includes('Kill'), 'the record is gone with the browser');
  },
};

async function main() {
  const all = Object.entries(which === 'firefox' ? tests : { ...tests, ...ofChromium });
  const only = process.env.ONLY || '';
  const site = await serve(path.join(built, 'site'));
  let passed = 0;
  const chosen = all.filter(([name]) => name.includes(only));
  const kLongest = 180000;  // ms
  for (const [name, test] of chosen) {
    const began = Date.now();
    const visit = new Visit(name.replaceAll(' ', '-'), site);
    try {
      await Promise.race([test(visit), later(kLongest).then(() => demand(false, 'it does not end'))]);
      visit.judge();
      ++passed;
      console.log(`ok      ${Browser.name}: ${name} (${((Date.now() - began) / 1000).toFixed(1)} s)`);
    } catch (error) {
      console.log(`FAILED  ${Browser.name}: ${name}: ${error.message}`);
      for (const page of visit.pages) await keep(page, 'failed').catch(() => {});
    } finally {
      await visit.close();
    }
  }
  await site.close();
  fs.rmSync(scratch, { recursive: true, force: true });
  console.log(`${Browser.name}: ${passed} of ${chosen.length} passed; screenshots in ${shots}`);
  process.exit(passed === chosen.length ? 0 : 1);
}

main();
