// The rules are the same in wasm: every script of tests/replays prints what it must, and two hours of the bot's play
// end as in the native program. node replays.js BUILD-WEB BUILD REPLAYS
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { spawn } = require('child_process');

const [built, native, replays] = process.argv.slice(2);

// What a program prints, a character a byte, and how it ends.
function said(input, command, ...words) {
  return new Promise((done) => {
    const program = spawn(command, words, { stdio: ['pipe', 'pipe', 'pipe'] });
    let text = '';
    for (const stream of [program.stdout, program.stderr]) {
      stream.setEncoding('latin1');
      stream.on('data', (part) => (text += part));
    }
    program.stdin.end(input);
    program.on('close', (status) => done((text + (status ? `status ${status}\n` : '')).trimEnd().split('\n')));
  });
}

const wasm = (input, tool, ...words) => said(input, process.execPath, path.join(built, tool + '.js'), ...words);

// See tests/replays_test.cpp for the lines that begin with "#".
async function play(file) {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'korvane-replay-'));
  let text = fs.readFileSync(file, 'latin1');
  let own = false;
  const put = (name, content) => {
    own = true;
    fs.mkdirSync(path.dirname(path.join(folder, name)), { recursive: true });
    fs.writeFileSync(path.join(folder, name), content, 'latin1');
  };
  for (const line of text.split('\n')) {
    const [verb, name, ...words] = line.split(/\s+/).filter((word) => word);
    if (verb === '#level') {
      const records = words.map((word) => {
        const [, count, record] = /^(?:(\d+)\*)?(.*)$/.exec(word);
        return (record + '\r\n').repeat(Number(count || 1));
      });
      put(`levels/${name}.sav`, records.join(''));
    } else if (verb === '#file') {
      put(name, line.slice(line.indexOf(name) + name.length).trimStart().replaceAll('\\n', '\n'));
    }
  }
  const expected = text.split('\n').filter((line) => line.startsWith('#=')).map((line) => line.slice(3));
  if (own) text = `folder ${folder}\n${text}`;
  const printed = await wasm(Buffer.from(text, 'latin1'), 'korvane-replay');
  fs.rmSync(folder, { recursive: true, force: true });
  return same(path.basename(file), printed, expected);
}

function same(name, got, expected) {
  const line = expected.findIndex((text, i) => text !== got[i]);
  if (expected.length > 0 && line < 0 && got.length === expected.length) return true;
  console.log(`FAILED  ${name}: ${got.length} lines, not ${expected.length}; the first other one is\n  ` +
              `${got[Math.max(line, 0)]}\nnot\n  ${expected[Math.max(line, 0)]}`);
  return false;
}

async function soak() {
  const words = ['2', '7'];  // hours, seed
  const [there, here] = await Promise.all([
    wasm('', 'korvane-soak', ...words), said('', path.join(native, 'korvane-soak'), ...words)]);
  return same('two hours of play', there, here);
}

async function main() {
  const scripts = fs.readdirSync(replays).filter((name) => name.endsWith('.txt')).sort();
  const results = [];
  for (const name of scripts) results.push(await play(path.join(replays, name)));
  results.push(await soak());
  const passed = results.filter((good) => good).length;
  console.log(`wasm: ${passed} of ${results.length} runs end like the native ones`);
  process.exit(passed === results.length ? 0 : 1);
}

main();
