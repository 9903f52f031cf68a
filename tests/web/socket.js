// The little of WebSocket that a browser's remote control needs: text both ways.
'use strict';
const crypto = require('crypto');
const http = require('http');

// Resolves to {send(text)}; `hear` gets every text that comes.
exports.connect = (port, place, hear) => new Promise((done, fail) => {
  const key = crypto.randomBytes(16).toString('base64');
  const request = http.request({
    host: '127.0.0.1', port, path: place,
    headers: { Connection: 'Upgrade', Upgrade: 'websocket', 'Sec-WebSocket-Version': 13, 'Sec-WebSocket-Key': key },
  });
  request.on('upgrade', (response, socket, head) => {
    listen(socket, head, hear);
    done({ send: (text) => socket.write(frame(1, Buffer.from(text))) });
  });
  request.on('response', ({ statusCode }) => fail(new Error('no socket: ' + statusCode)));
  request.on('error', fail);
  request.end();
});

function frame(kind, bytes) {
  const large = bytes.length > 65535 ? 8 : bytes.length > 125 ? 2 : 0;  // bytes of the length, beside the first
  const head = Buffer.alloc(2 + large);
  head[0] = 0x80 | kind;
  head[1] = 0x80 | { 0: bytes.length, 2: 126, 8: 127 }[large];
  if (large === 2) head.writeUInt16BE(bytes.length, 2);
  if (large === 8) head.writeBigUInt64BE(BigInt(bytes.length), 2);
  const mask = crypto.randomBytes(4);
  return Buffer.concat([head, mask, bytes.map((byte, i) => byte ^ mask[i & 3])]);
}

function listen(socket, first, hear) {
  const kPing = 9;
  const kPong = 10;
  let rest = first;
  let parts = [];
  const take = () => {
    if (rest.length < 2) return false;
    let length = rest[1] & 127;
    let at = 2;
    if (length === 126) [length, at] = [rest.length < 4 ? Infinity : rest.readUInt16BE(2), 4];
    else if (length === 127) [length, at] = [rest.length < 10 ? Infinity : Number(rest.readBigUInt64BE(2)), 10];
    if (rest.length < at + length) return false;
    const [last, kind, bytes] = [rest[0] & 0x80, rest[0] & 15, rest.subarray(at, at + length)];
    rest = rest.subarray(at + length);
    if (kind === kPing) socket.write(frame(kPong, bytes));
    if (kind > 2) return true;
    parts.push(bytes);
    if (!last) return true;
    hear(Buffer.concat(parts).toString());
    parts = [];
    return true;
  };
  socket.on('data', (bytes) => {
    rest = Buffer.concat([rest, bytes]);
    while (take());
  });
  socket.on('error', () => {});
}
