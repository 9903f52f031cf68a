// What this machine asks of the page that it runs in; library.js answers. Times are in milliseconds of the
// page's clock, which stands still while nobody can see the page; places and sizes are in display pixels.
#pragma once

#include <cstdint>

extern "C" {

struct PageEvent {
  enum Kind : std::int32_t { kNone, kMoved, kPressed, kKeyDown, kKeyUp, kTyped, kDisplay, kReleased, kWheel };
  std::int32_t kind;
  std::int32_t code;  // of the key or the button, or the steps of the wheel
  std::int32_t shift;
  std::int32_t unused;
  double x;
  double y;
  char text[256];  // ended by 0
};

int page_width();
int page_height();
int page_refresh_rate();
double page_now();
/// When the last frame began; below 0 before the first.
double page_last_frame();
double page_seconds_of_day();
bool page_wants_stillness();
/// `pixels` is a whole picture of red, green, blue and opacity; its place stays until its size changes.
void page_present(const void* pixels, int width, int height, int left, int top, int right, int bottom);
void page_next_event(PageEvent* event);
/// Gives way, at least once, until then, or until input or a frame comes if those wake.
void page_wait(double until, bool on_input);
void page_show_pointer(bool shown);
int page_pointer_x();
int page_pointer_y();
void page_want_text(bool wanted);
void page_set_clipboard(const char* text);
void page_play(const char* file);
/// The page's address without what stands from '#' on, ended by 0; `size` is the room for it.
void page_address(char* out, int size);
/// The program has ended.
void page_close();

/// Takes a picture in, and gives way meanwhile.
void page_take_picture(const char* svg, int size);
/// Fills `rgba` with the picture taken last, stretched to that size; with nothing if it cannot be drawn.
void page_draw(int width, int height, void* rgba);
/// Takes a font in, and gives way meanwhile. It is known by the place of its bytes from then on.
void page_take_font(const char* bytes, int size);
double page_text_width(const char* font, int pixels, const char* text, int size);
/// Fills `alpha` with the line of text; its letters stand on the line `ascent` from the top.
void page_write(const char* font, int pixels, const char* text, int size, int ascent, int width, int height,
                void* alpha);
/// How far the font reaches above and below the line that letters stand on, in parts of its size.
double page_font_ascent(const char* font);
double page_font_descent(const char* font);

}  // extern "C"
