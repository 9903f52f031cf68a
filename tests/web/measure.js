// Tells what the page costs in Chromium: the first picture, and 20 seconds of flight at four sizes.
// node measure.js BUILD-WEB
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { serve } = require('./server.js');
const { Game } = require('./game.js');
const Chromium = require('./chromium.js');

const [built] = process.argv.slice(2);
const kSeconds = 20;
const kSizes = [[1280, 720, 1], [1280, 720, 2], [1920, 1080, 1], [1920, 1080, 2]];

// In the page: counts from now on what the program does each time that it is woken up, until the time is over.
function watch(seconds) {
  const kBeat = 1000 / 64;
  const beats = new Set();
  const frames = new Set();
  let work = 0;
  let longest = 0;
  const { wait } = Clock;
  Clock.wait = (until, onInput, wake) => wait.call(Clock, until, onInput, () => {
    const before = Picture.presented;
    const began = performance.now();
    wake();
    const took = performance.now() - began;
    work += took;
    longest = Math.max(longest, took);
    beats.add(Math.floor(Clock.now() / kBeat));
    if (Picture.presented > before) frames.add(Clock.lastFrame);
  });
  return new Promise((done) => setTimeout(() => {
    Clock.wait = wait;
    done({ beats: beats.size, frames: frames.size, work: work / frames.size, longest,
           megabytes: HEAPU8.length / 2 ** 20 });
  }, seconds * 1000));
}

// In the page: how long after the last byte the first picture came.
function firstPicture() {
  const last = Math.max(...performance.getEntriesByType('resource')
    .filter(({ name }) => /korvane\.(js|wasm)$/.test(name)).map(({ responseEnd }) => responseEnd));
  return { last, first: performance.getEntriesByName('first picture')[0].startTime };
}

async function measure(site, [width, height, ratio]) {
  const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'korvane-measure-'));
  const browser = await Chromium.start(profile, { ratio });
  try {
    const game = new Game(await browser.open(site.url, { width, height }));
    await game.toField();
    const { last, first } = await game.evaluate(firstPicture);
    await game.page.reload();
    await game.toField();
    const next = await game.evaluate(firstPicture);
    await game.sees('Page.sounded', 'the sounds', 60000);
    await game.click(0.3);
    await new Promise((done) => setTimeout(done, 1000));
    const watched = game.evaluate(watch, kSeconds);
    const launch = setInterval(() => game.click(0.3), 500);  // a ball that was lost
    const { beats, frames, work, longest, megabytes } = await watched;
    clearInterval(launch);
    console.log(`${width}x${height} @${ratio}: first picture ${(first - last).toFixed(0)} ms after the last byte ` +
                `in a browser just started, ${(next.first - next.last).toFixed(0)} ms at the next visit; ` +
                `${beats} beats of ${64 * kSeconds}, ` +
                `${frames} frames of ${60 * kSeconds}; work ${work.toFixed(2)} ms a frame, ${longest.toFixed(1)} ms ` +
                `at most; wasm memory ${megabytes.toFixed(1)} MB`);
  } finally {
    await browser.close();
    fs.rmSync(profile, { recursive: true, force: true });
  }
}

async function main() {
  const site = await serve(path.join(built, 'site'));
  for (const size of kSizes) await measure(site, size);
  await site.close();
}

main();
