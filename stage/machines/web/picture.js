// The canvas that fills the window, with the display's own pixels, and the browser's painter for what is drawn on it.
const Picture = {
  canvas: null,
  context: null,
  image: null,   // the program's picture, seen as an ImageData
  memory: null,  // that it lies in
  place: 0,
  presented: 0,  // pictures
  stillness: { matches: false },

  open(canvas) {
    this.canvas = canvas;
    this.context = canvas.getContext('2d', { alpha: false });
    this.stillness = matchMedia('(prefers-reduced-motion: reduce)');
    this.fit(Math.round(canvas.clientWidth * devicePixelRatio), Math.round(canvas.clientHeight * devicePixelRatio));
    const seen = new ResizeObserver((entries) => {
      const entry = entries[entries.length - 1];
      const exact = entry.devicePixelContentBoxSize;
      if (exact) return this.fit(exact[0].inlineSize, exact[0].blockSize);
      const { width, height } = entry.contentRect;
      this.fit(Math.round(width * devicePixelRatio), Math.round(height * devicePixelRatio));
    });
    try {
      seen.observe(canvas, { box: 'device-pixel-content-box' });
    } catch (error) {
      seen.observe(canvas);
    }
  },

  fit(width, height) {
    if (width < 1 || height < 1 || (this.canvas.width === width && this.canvas.height === height)) return;
    this.canvas.width = width;
    this.canvas.height = height;
    Hand.push({ kind: 6 });
  },

  present(pixels, width, height, left, top, right, bottom) {
    const fits = this.image && this.image.width === width && this.image.height === height;
    if (!fits || this.memory !== HEAPU8.buffer || this.place !== pixels) {
      this.memory = HEAPU8.buffer;
      this.place = pixels;
      this.image = new ImageData(new Uint8ClampedArray(this.memory, pixels, width * height * 4), width, height);
    }
    this.context.putImageData(this.image, 0, 0, left, top, right - left, bottom - top);
    if (this.presented++ === 0 && Module.onFirstPicture) Module.onFirstPicture();
  },
};

// Draws pictures and writes text. Fonts are known by the place of their bytes.
const Pen = {
  picture: null,  // the one taken last
  fonts: new Map(),
  paper: null,

  sheet(width, height) {
    if (!this.paper) this.paper = document.createElement('canvas').getContext('2d', { willReadFrequently: true });
    const { canvas } = this.paper;
    if (canvas.width < width || canvas.height < height) {
      canvas.width = Math.max(canvas.width, width);
      canvas.height = Math.max(canvas.height, height);
    }
    this.paper.clearRect(0, 0, width, height);
    return this.paper;
  },

  takePicture(svg, size) {
    return new Promise((done) => {
      const image = new Image();
      image.onload = () => {
        this.picture = image;
        done();
      };
      image.onerror = () => {
        this.picture = null;
        done();
      };
      image.src = 'data:image/svg+xml,' + encodeURIComponent(UTF8ToString(svg, size));
    });
  },

  takeFont(bytes, size) {
    const name = 'font' + bytes;
    const known = { name, ascent: 0.9, descent: 0.25 };
    this.fonts.set(bytes, known);
    const face = new FontFace(name, HEAPU8.slice(bytes, bytes + size).buffer);
    return face.load().then(() => {
      document.fonts.add(face);
      const kLarge = 2048;
      const sheet = this.sheet(1, 1);
      sheet.font = kLarge + 'px ' + name;
      const box = sheet.measureText('x');
      known.ascent = box.fontBoundingBoxAscent / kLarge;
      known.descent = box.fontBoundingBoxDescent / kLarge;
    }).catch((error) => console.error(error));
  },

  draw(width, height, out) {
    const sheet = this.sheet(width, height);
    if (this.picture) sheet.drawImage(this.picture, 0, 0, width, height);
    HEAPU8.set(sheet.getImageData(0, 0, width, height).data, out);
  },

  set(sheet, font, pixels) {
    sheet.font = pixels + 'px ' + this.fonts.get(font).name;
    sheet.fontKerning = 'normal';
  },

  textWidth(font, pixels, text) {
    const sheet = this.sheet(1, 1);
    this.set(sheet, font, pixels);
    return sheet.measureText(text).width;
  },

  write(font, pixels, text, ascent, width, height, out) {
    if (width === 0 || height === 0) return;
    const sheet = this.sheet(width, height);
    this.set(sheet, font, pixels);
    sheet.fillStyle = '#fff';
    sheet.fillText(text, 0, ascent);
    const { data } = sheet.getImageData(0, 0, width, height);
    for (let i = 0; i < width * height; ++i) HEAPU8[out + i] = data[4 * i + 3];
  },

  ascent(font) {
    return this.fonts.get(font).ascent;
  },

  descent(font) {
    return this.fonts.get(font).descent;
  },
};
