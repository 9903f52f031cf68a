// Firefox, driven by WebDriver BiDi. The same calls as chromium.js has, but for fingers.
'use strict';
const fs = require('fs');
const { Browser } = require('./browser.js');
const { connect } = require('./socket.js');

const kKeys = { Escape: '\uE00C', Enter: '\uE007' };
const kControl = '\uE009';

class Firefox extends Browser {
  // `profile` is its folder; `ratio` that of display pixels.
  static async start(profile, { ratio = 1 } = {}) {
    fs.mkdirSync(profile, { recursive: true });
    fs.writeFileSync(profile + '/user.js', [
      'user_pref("intl.accept_languages", "pt-BR, pt");', 'user_pref("browser.shell.checkDefaultBrowser", false);',
      'user_pref("datareporting.policy.dataSubmissionEnabled", false);', 'user_pref("app.update.enabled", false);',
      'user_pref("toolkit.telemetry.reportingpolicy.firstRun", false);',
      `user_pref("layout.css.devPixelsPerPx", "${ratio}");`, ''].join('\n'));
    const words = ['--headless', '--no-remote', '--remote-debugging-port=0', '--profile', profile];
    const browser = new Firefox('Firefox', 'firefox-esr', words, { stdio: ['ignore', 'ignore', 'pipe'] });
    const port = await new Promise((done, fail) => {
      let text = '';
      browser.process.stderr.on('data', (part) => {
        text += part;
        const told = /listening on ws:\/\/127\.0\.0\.1:(\d+)/.exec(text);
        if (told) done(Number(told[1]));
      });
      browser.ended.then(() => fail(new Error('Firefox does not start: ' + text)));
    });
    browser.socket = await connect(port, '/session', (text) => browser.hear(JSON.parse(text)));
    await browser.call('session.new', { capabilities: {} });
    await browser.call('session.subscribe', { events: ['log.entryAdded', 'network.beforeRequestSent'] });
    return browser;
  }

  hear(message) {
    const fault = message.type === 'error' ? `${message.error}: ${message.message}` : '';
    if (this.answers(message, fault) || !message.method) return;
    const page = this.pages.get(message.params.context || (message.params.source || {}).context);
    if (page) page.hear(message);
  }

  send(text) {
    this.socket.send(text);
  }

  async open(url, { width, height }) {
    const { context } = await this.call('browsingContext.create', { type: 'tab' });
    const page = new Page(this, context, width, height);
    this.pages.set(context, page);
    await page.call('browsingContext.setViewport', { viewport: { width, height } });
    await page.go(url);
    return page;
  }

  close() {
    return this.end('browser.close');
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

  drag(from, to) {
    const move = ([x, y]) => ({ type: 'pointerMove', x: Math.round(x), y: Math.round(y) });
    return this.pointer(move(from), { type: 'pointerDown', button: 0 }, move(to), { type: 'pointerUp', button: 0 });
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
