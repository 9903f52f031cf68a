// Painting into the part of a framebuffer that has changed.
#pragma once

#include <optional>
#include <string>

#include "stage/painting/drawings.h"

namespace stage {

/// Colours with red in the low byte, then green, then blue, as programs of forms write them.
constexpr Long Rgb(int red, int green, int blue) { return red + green * 256 + blue * 65536; }
Pixel PixelOf(Long colour);

/// All of something that is measured in parts of 256.
inline constexpr Pixel kWhole = 256;
/// `part` of 256 of `over`, the rest of `under`.
Pixel Mix(Pixel under, Pixel over, Pixel part);

/// Light on a rectangle of display pixels; with a band it falls off to both sides of a slanting line.
struct Light {
  struct Band {
    int middle = 0;  // x + y of the line's pixels
    int half = 1;    // how far from there the last light is
    bool operator==(const Band&) const = default;
  };
  PixelRect place;
  Pixel colour = 0;
  Pixel part = kWhole;
  std::optional<Band> band{};
  bool operator==(const Light&) const = default;
};

/// A picture that lets through what lies beneath; nothing of it is seen that would darken that.
struct Ghost {
  PixelRect place;   // display pixels that the picture fills
  PixelRect within;  // those of them that are seen
  PictureRef picture = nullptr;
  PixelSize drawn;  // the size that it is drawn for, whatever it fills
  Pixel part = kWhole;
  std::optional<Pixel> colour{};  // the shape of what is not pure black in this colour
  bool operator==(const Ghost&) const = default;
};

/// A framebuffer with a clip. Places are in twips of the screen.
class Canvas {
 public:
  Canvas(const Framebuffer& target, const Viewport& viewport, Drawings& drawings, const PixelRect& clip)
      : target_(target), viewport_(viewport), drawings_(drawings), clip_(clip) {}

  /// The same canvas, clipped to `area` too.
  Canvas Within(const TwipRect& area) const;
  Canvas WithinPixels(const PixelRect& area) const;
  bool Hidden() const { return clip_.Empty(); }
  bool Touches(const PixelRect& rect) const { return !rect.Cut(clip_).Empty(); }

  void Fill(const TwipRect& rect, Pixel colour) const;
  void FillAll(Pixel colour) const { FillPixels(clip_, colour); }
  /// An outline inside `rect`, one line of the design resolution wide.
  void Frame(const TwipRect& rect, Pixel colour) const;
  /// The picture at `size` from the top left corner of `rect`; what stands out of `rect` is cut off.
  void Draw(const TwipRect& rect, const Picture& picture, PixelSize size, Pixel opacity = kWhole) const;
  /// The picture with its corner anywhere between pixels, each of which it covers in part.
  void DrawBetween(TwipPoint corner, const Picture& picture, PixelSize size, Pixel opacity = kWhole) const;
  void Paint(const Light& light) const;
  void Paint(const Ghost& ghost) const;
  void Write(const TwipRect& rect, const TextLine& line, const std::string& text, Pixel colour) const;
  /// In twips.
  Double TextWidth(const Font& font, std::string_view text) const;
  Double TextHeight(const Font& font) const;

  const Viewport& View() const { return viewport_; }

 private:
  void FillPixels(const PixelRect& rect, Pixel colour) const;

  Framebuffer target_;
  const Viewport& viewport_;
  Drawings& drawings_;
  PixelRect clip_;
};

}  // namespace stage
