// Chromium, driven by its DevTools protocol over two pipes.
'use strict';
const fs = require('fs');
const { Browser } = require('./browser.js');

class Chromium extends Browser {
  // `profile` is its folder; `preferences` are put there first. `ratio` is that of display pixels.
  static async start(profile, { ratio = 1, preferences } = {}) {
    fs.mkdirSync(profile + '/Default', { recursive: true });
    if (preferences) fs.writeFileSync(profile + '/Default/Preferences', JSON.stringify(preferences));
    const words = ['--headless=new', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage', '--no-first-run',
      '--mute-audio', '--disable-component-update', '--disable-background-networking', '--disable-sync',
      '--force-color-profile=srgb', '--autoplay-policy=user-gesture-required', '--remote-debugging-pipe',
      '--accept-lang=pt-BR,pt', '--force-device-scale-factor=' + ratio, '--user-data-dir=' + profile, 'about:blank'];
    const browser = new Chromium('Chromium', 'chromium', words, {
      stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'], env: { ...process.env, LANGUAGE: 'pt_BR' },
    });
    browser.process.stdio[3].on('error', () => {});
    browser.listen(browser.process.stdio[4]);
    await browser.call('Target.setDiscoverTargets', { discover: true });
    return browser;
  }

  listen(stream) {
    let rest = '';
    stream.setEncoding('utf8');
    stream.on('data', (text) => {
      const parts = (rest + text).split('\0');
      rest = parts.pop();
      for (const part of parts) this.hear(JSON.parse(part));
    });
    stream.on('error', () => {});
  }

  hear(message) {
    if (this.answers(message, message.error?.message)) return;
    if (this.pages.has(message.sessionId)) this.pages.get(message.sessionId).hear(message);
  }

  send(text) {
    this.process.stdio[3].write(text + '\0');
  }

  async open(url, look) {
    const { targetId } = await this.call('Target.createTarget', { url: 'about:blank' });
    const { sessionId } = await this.call('Target.attachToTarget', { targetId, flatten: true });
    const page = new Page(this, targetId, sessionId);
    this.pages.set(sessionId, page);
    await page.prepare(look);
    await page.go(url);
    return page;
  }

  close() {
    return this.end('Browser.close');
  }
}

class Page {
  constructor(browser, target, session) {
    Object.assign(this, { browser, target, session, wrong: [], asked: [] });
  }

  call(method, params) {
    return this.browser.call(method, params, { sessionId: this.session });
  }

  async prepare({ width, height, touch = false }) {
    await this.call('Page.enable');
    await this.call('Runtime.enable');
    await this.call('Network.enable');
    await this.resize(width, height, touch);
    await this.call('Emulation.setTouchEmulationEnabled', { enabled: touch, maxTouchPoints: touch ? 5 : 1 });
  }

  resize(width, height, mobile) {
    Object.assign(this, { width, height });
    return this.call('Emulation.setDeviceMetricsOverride', { width, height, deviceScaleFactor: 0, mobile });
  }

  hear({ method, params }) {
    if (method === 'Runtime.exceptionThrown')
      this.wrong.push(params.exceptionDetails.exception?.description || params.exceptionDetails.text);
    if (method === 'Runtime.consoleAPICalled' && params.type === 'error')
      this.wrong.push(params.args.map(({ value, description }) => value ?? description).join(' '));
    if (method === 'Network.requestWillBeSent') this.asked.push(params.request.url);
    if (method === 'Page.javascriptDialogOpening') this.call('Page.handleJavaScriptDialog', { accept: true });
  }

  go(url) {
    return this.call('Page.navigate', { url });
  }

  reload() {
    return this.call('Page.reload');
  }

  async evaluate(what, ...words) {
    const expression = typeof what === 'string' ? what : `(${what})(...${JSON.stringify(words)})`;
    const { result, exceptionDetails } = await this.call('Runtime.evaluate', {
      expression, awaitPromise: true, returnByValue: true, userGesture: false });
    if (exceptionDetails) throw new Error(exceptionDetails.exception?.description || exceptionDetails.text);
    return result.value;
  }

  mouse(type, x, y, button = 'none') {
    return this.call('Input.dispatchMouseEvent', { type, x, y, button, clickCount: button === 'none' ? 0 : 1 });
  }

  move(x, y) {
    return this.mouse('mouseMoved', x, y);
  }

  async click(x, y) {
    await this.move(x, y);
    await this.mouse('mousePressed', x, y, 'left');
    await this.mouse('mouseReleased', x, y, 'left');
  }

  async drag(from, to) {
    await this.move(...from);
    await this.mouse('mousePressed', ...from, 'left');
    await this.move(...to);
    await this.mouse('mouseReleased', ...to, 'left');
  }

  // `code` is that of KeyboardEvent.keyCode; `text` what the key writes.
  async key(key, code, { text, ctrl = false } = {}) {
    const what = { key, windowsVirtualKeyCode: code, modifiers: ctrl ? 2 : 0 };
    await this.call('Input.dispatchKeyEvent', { ...what, type: text ? 'keyDown' : 'rawKeyDown', text });
    await this.call('Input.dispatchKeyEvent', { ...what, type: 'keyUp' });
  }

  // Text as an input method brings it.
  insert(text) {
    return this.call('Input.insertText', { text });
  }

  touch(type, ...points) {
    return this.call('Input.dispatchTouchEvent', { type, touchPoints: points.map(([x, y]) => ({ x, y })) });
  }

  async choose(selector, files) {
    const { root } = await this.call('DOM.getDocument');
    const { nodeId } = await this.call('DOM.querySelector', { nodeId: root.nodeId, selector });
    await this.call('DOM.setFileInputFiles', { nodeId, files });
  }

  async screenshot() {
    return Buffer.from((await this.call('Page.captureScreenshot', { format: 'png' })).data, 'base64');
  }

  show() {
    return this.browser.call('Target.activateTarget', { targetId: this.target });
  }

  async close() {
    await this.browser.call('Target.closeTarget', { targetId: this.target });
  }
}

module.exports = Chromium;
