// A zip file of these files, each {name, bytes}, stored as they are.
function zipOf(files) {
  const table = Uint32Array.from({ length: 256 }, (_, n) => {
    for (let bit = 0; bit < 8; ++bit) n = n & 1 ? 0xedb88320 ^ (n >>> 1) : n >>> 1;
    return n;
  });
  const sum = (bytes) => ~bytes.reduce((crc, byte) => table[(crc ^ byte) & 255] ^ (crc >>> 8), -1) >>> 0;
  // Fields of 2 or 4 bytes, as [size, value].
  const record = (...fields) => {
    const view = new DataView(new ArrayBuffer(fields.reduce((all, [size]) => all + size, 0)));
    let at = 0;
    for (const [size, value] of fields) {
      if (size === 2) view.setUint16(at, value, true);
      else view.setUint32(at, value, true);
      at += size;
    }
    return new Uint8Array(view.buffer);
  };
  const kUtf8 = 0x800;
  const kNewYear1980 = 0x21;
  const parts = [];
  const index = [];
  let place = 0;
  for (const { name, bytes } of files) {
    const letters = new TextEncoder().encode(name);
    const common = [[2, 20], [2, kUtf8], [2, 0], [2, 0], [2, kNewYear1980], [4, sum(bytes)], [4, bytes.length],
                    [4, bytes.length], [2, letters.length], [2, 0]];
    parts.push(record([4, 0x04034b50], ...common), letters, bytes);
    index.push(record([4, 0x02014b50], [2, 20], ...common, [2, 0], [2, 0], [2, 0], [4, 0], [4, place]), letters);
    place += 30 + letters.length + bytes.length;
  }
  const long = index.reduce((all, part) => all + part.length, 0);
  const end = record([4, 0x06054b50], [2, 0], [2, 0], [2, files.length], [2, files.length], [4, long], [4, place],
                     [2, 0]);
  return new Blob([...parts, ...index, end], { type: 'application/zip' });
}
