// The page's answers to page.h, by the objects of the scripts beside this one.
mergeInto(LibraryManager.library, {
  page_width: function() { return Picture.canvas.width; },
  page_height: function() { return Picture.canvas.height; },
  page_refresh_rate: function() { return Clock.rate; },
  page_now: function() { return Clock.now(); },
  page_last_frame: function() { return Clock.lastFrame; },
  page_seconds_of_day: function() { return Clock.secondsOfDay(); },
  page_wants_stillness: function() { return Picture.stillness.matches; },
  page_present: function(pixels, width, height, left, top, right, bottom) {
    Picture.present(pixels, width, height, left, top, right, bottom);
  },
  page_next_event: function(at) {
    const event = Hand.queue.shift();
    HEAP32[at >> 2] = event ? event.kind : 0;
    if (!event) return;
    HEAP32[(at + 4) >> 2] = event.code || 0;
    HEAP32[(at + 8) >> 2] = event.shift || 0;
    HEAPF64[(at + 16) >> 3] = event.x || 0;
    HEAPF64[(at + 24) >> 3] = event.y || 0;
    stringToUTF8(event.text || '', at + 32, 256);
  },
  page_wait__deps: ['$Asyncify'],
  page_wait: function(until, onInput) {
    return Asyncify.handleSleep((wake) => Clock.wait(until, onInput, wake));
  },
  page_show_pointer: function(shown) { Hand.showPointer(shown); },
  page_pointer_x: function() { return Math.round(Hand.x); },
  page_pointer_y: function() { return Math.round(Hand.y); },
  page_want_text: function(wanted) { Typing.want(!!wanted); },
  page_set_clipboard: function(text) { Typing.copy(UTF8ToString(text)); },
  page_play: function(file) { Voice.play(UTF8ToString(file)); },
  page_address: function(out, size) { stringToUTF8(location.href.split(/[?#]/)[0], out, size); },
  page_close: function() { if (Module.onClose) Module.onClose(); },

  page_take_picture__deps: ['$Asyncify'],
  page_take_picture: function(svg, size) {
    return Asyncify.handleSleep((wake) => Pen.takePicture(svg, size).then(wake));
  },
  page_take_font__deps: ['$Asyncify'],
  page_take_font: function(bytes, size) {
    return Asyncify.handleSleep((wake) => Pen.takeFont(bytes, size).then(wake));
  },
  page_draw: function(width, height, out) { Pen.draw(width, height, out); },
  page_text_width: function(font, pixels, text, size) {
    return Pen.textWidth(font, pixels, UTF8ToString(text, size));
  },
  page_write: function(font, pixels, text, size, ascent, width, height, out) {
    Pen.write(font, pixels, UTF8ToString(text, size), ascent, width, height, out);
  },
  page_font_ascent: function(font) { return Pen.ascent(font); },
  page_font_descent: function(font) { return Pen.descent(font); },
});
