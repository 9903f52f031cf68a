// Reads the PNG files of screenshots: 8 bits a channel, no palette, no interlacing.
'use strict';
const zlib = require('zlib');

function paeth(left, above, corner) {
  const guess = left + above - corner;
  const [a, b, c] = [left, above, corner].map((value) => Math.abs(guess - value));
  return a <= b && a <= c ? left : b <= c ? above : corner;
}

// {width, height, at(x, y) => [red, green, blue]}
exports.read = (file) => {
  let width = 0;
  let height = 0;
  let channels = 0;
  const parts = [];
  for (let at = 8; at < file.length;) {
    const length = file.readUInt32BE(at);
    const kind = file.toString('latin1', at + 4, at + 8);
    const data = file.subarray(at + 8, at + 8 + length);
    if (kind === 'IHDR') {
      [width, height] = [data.readUInt32BE(0), data.readUInt32BE(4)];
      channels = { 2: 3, 6: 4 }[data[9]];
      if (data[8] !== 8 || !channels || data[12]) throw new Error('a PNG of another kind');
    } else if (kind === 'IDAT') {
      parts.push(data);
    }
    at += length + 12;
  }
  const raw = zlib.inflateSync(Buffer.concat(parts));
  const row = width * channels;
  const pixels = Buffer.alloc(row * height);
  for (let y = 0; y < height; ++y) {
    const filter = raw[y * (row + 1)];
    for (let x = 0; x < row; ++x) {
      const left = x >= channels ? pixels[y * row + x - channels] : 0;
      const above = y ? pixels[(y - 1) * row + x] : 0;
      const corner = y && x >= channels ? pixels[(y - 1) * row + x - channels] : 0;
      const guess = [0, left, above, (left + above) >> 1, paeth(left, above, corner)][filter];
      pixels[y * row + x] = raw[y * (row + 1) + 1 + x] + guess;
    }
  }
  const at = (x, y) => [...pixels.subarray(y * row + x * channels, y * row + x * channels + 3)];
  return { width, height, at };
};
