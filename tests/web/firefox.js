// Firefox, driven by WebDriver BiDi. The same calls as chromium.js has, but for fingers.
'use strict';
const { spawn } = require('child_process');
const fs = require('fs');
const { connect } = require('./socket.js');

const kKeys = { Escape: '\uE00C', Enter: '\uE007' };
const kControl = '\uE009';

class Firefox {
  // `profile` is its folder; `ratio` that of display pixels.
  static async start(profile, { ratio = 1 } = {}) {
    fs.mkdirSync(profile, { recursive: true });
    fs.writeFileSync(profile + '/user.js', [
      'user_pref("intl.accept_languages", "pt-BR, pt");', 'user_pref("browser.shell.checkDefaultBrowser", false);',
      'user_pref("datareporting.policy.dataSubmissionEnabled", false);', 'user_pref("app.update.enabled", false);',
      'user_pref("toolkit.telemetry.reportingpolicy.firstRun", false);',
      `user_pref("layout.css.devPixelsPerPx", "${ratio}");`, ''].join('\n'));
    const browser = new Firefox();
    browser.name = 'Firefox';
    const words = ['--headless', '--no-remote', '--remote-debugging-port=0', '--profile', profile];
    browser.process = spawn('firefox-esr', words, { stdio: ['ignore', 'ignore', 'pipe'], detached: true });
    browser.ended = new Promise((done) => browser.process.once('exit', done));
    const kill = () => browser.kill();
    process.once('exit', kill);
    browser.ended.then(() => process.off('exit', kill));
    const port = await new Promise((done, fail) => {
      let text = '';
      browser.process.stderr.on('data', (part) => {
        text += part;
        const told = /listening on ws:\/\/127\.0\.0\.1:(\d+)/.exec(text);
        if (told) done(Number(told[1]));
      });
      browser.ended.then(() => fail(new Error('Firefox does not start: ' + text)));
    });
    Object.assign(browser, { calls: new Map(), pages: new Map(), last: 0 });
    browser.socket = await connect(port, '/session', (text) => browser.hear(JSON.parse(text)));
    await browser.call('session.new', { capabilities: {} });
    await browser.call('session.subscribe', { events: ['log.entryAdded', 'network.beforeRequestSent'] });
    return browser;
  }

  hear(message) {
    const waiting = this.calls.get(message.id);
    if (waiting) {
      this.calls.delete(message.id);
      if (message.type === 'error') waiting.fail(new Error(`${waiting.method}: ${message.error}: ${message.message}`));
      else waiting.done(message.result);
    } else if (message.method) {
      const page = this.pages.get(message.params.context || (message.params.source || {}).context);
      if (page) page.hear(message);
    }
  }

  call(method, params = {}) {
    return new Promise((done, fail) => {
      const id = ++this.last;
      this.calls.set(id, { done, fail, method });
      this.socket.send(JSON.stringify({ id, method, params }));
    });
  }

  async open(url, { width, height }) {
    const { context } = await this.call('browsingContext.create', { type: 'tab' });
    const page = new Page(this, context, width, height);
    this.pages.set(context, page);
    await page.call('browsingContext.setViewport', { viewport: { width, height } });
    await page.go(url);
    return page;
  }

  kill() {
    process.kill(-this.process.pid, 'SIGKILL');
    return this.ended;
  }

  async close() {
    await Promise.race([this.call('browser.close').catch(() => {}), this.ended]);
    const late = setTimeout(() => this.kill(), 5000);
    await this.ended;
    clearTimeout(late);
  }
}

class Page {
  constructor(browser, context, width, height) {
    Object.assign(this, { browser, context, width, height, wrong: [], asked: [] });
  }

  call(method, params = {}) {
    return this.browser.call(method, { context: this.context, ...params });
  }

  hear({ method, params }) {
    if (method === 'log.entryAdded' && params.level === 'error') this.wrong.push(params.text);
    if (method === 'network.beforeRequestSent') this.asked.push(params.request.url);
  }

  go(url) {
    return this.call('browsingContext.navigate', { url, wait: 'complete' });
  }

  reload() {
    return this.call('browsingContext.reload', { wait: 'complete' });
  }

  async evaluate(what, ...words) {
    const value = typeof what === 'string' ? what : `(${what})(...${JSON.stringify(words)})`;
    const { type, result, exceptionDetails } = await this.browser.call('script.evaluate', {
      expression: `(async () => JSON.stringify({ value: await (${value}) }))()`, awaitPromise: true,
      target: { context: this.context } });
    if (type === 'exception') throw new Error(exceptionDetails.text);
    return JSON.parse(result.value).value;
  }

  pointer(...actions) {
    const parameters = { pointerType: 'mouse' };
    return this.call('input.performActions', { actions: [{ type: 'pointer', id: 'mouse', parameters, actions }] });
  }

  move(x, y) {
    return this.pointer({ type: 'pointerMove', x: Math.round(x), y: Math.round(y) });
  }

  click(x, y) {
    return this.pointer({ type: 'pointerMove', x: Math.round(x), y: Math.round(y) }, { type: 'pointerDown', button: 0 },
                        { type: 'pointerUp', button: 0 });
  }

  keys(...actions) {
    return this.call('input.performActions', { actions: [{ type: 'key', id: 'keys', actions }] });
  }

  key(key, code, { ctrl = false } = {}) {
    const value = kKeys[key] || key;
    const press = [{ type: 'keyDown', value }, { type: 'keyUp', value }];
    if (!ctrl) return this.keys(...press);
    return this.keys({ type: 'keyDown', value: kControl }, ...press, { type: 'keyUp', value: kControl });
  }

  insert(text) {
    return this.keys(...[...text].flatMap((value) => [{ type: 'keyDown', value }, { type: 'keyUp', value }]));
  }

  async choose(selector, files) {
    const { result } = await this.browser.call('script.evaluate', {
      expression: `document.querySelector('${selector}')`, awaitPromise: false, target: { context: this.context } });
    await this.call('input.setFiles', { element: { sharedId: result.sharedId }, files });
  }

  async screenshot() {
    return Buffer.from((await this.call('browsingContext.captureScreenshot')).data, 'base64');
  }

  show() {
    return this.call('browsingContext.activate');
  }

  close() {
    return this.call('browsingContext.close');
  }
}

module.exports = Firefox;
