#include "stage/canvas.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace stage {
namespace {

/// The lighter of two, in each colour.
Pixel Lighter(Pixel a, Pixel b) {
  const auto lighter = [=](Pixel colour) { return std::max(a & colour, b & colour); };
  return lighter(0xFF0000) | lighter(0x00FF00) | lighter(0x0000FF);
}

/// Where the pixels lie of something `shown` pixels long that was drawn `drawn` pixels long.
class Scaled {
 public:
  Scaled(int drawn, int shown) : step_(((std::int64_t(drawn) << kFine) + shown - 1) / shown) {}
  int operator()(int offset) const { return static_cast<int>(offset * step_ >> kFine); }

 private:
  static constexpr int kFine = 32;
  std::int64_t step_;
};

/// Mixes two pixels by `Mixer`. Pixels next to each other are mostly alike, and alike ones are mixed once.
template <class Mixer>
class Repeating {
 public:
  explicit Repeating(const Mixer& mixer) : mixer_(mixer), mixed_(mixer(0, 0)) {}
  Pixel operator()(Pixel under, Pixel over) {
    if (under == under_ && over == over_) return mixed_;
    under_ = under;
    over_ = over;
    return mixed_ = mixer_(under, over);
  }

 private:
  Mixer mixer_;
  Pixel under_ = 0;
  Pixel over_ = 0;
  Pixel mixed_;
};

/// How one line of a picture, that lies `offset` of 256 beside the pixels, meets the pixel `place`.
struct Meeting {
  int before;  // the two pixels of the picture that meet it
  int after;
  Pixel weight;   // of `after`
  Pixel covered;  // how much of it the picture covers
};

Meeting Meet(int place, int length, Pixel offset) {
  const Pixel covered = place == 0 ? kWhole - offset : place == length ? offset : kWhole;
  return {std::max(place - 1, 0), std::min(place, length - 1), kWhole - offset, covered};
}

}  // namespace

Pixel PixelOf(Long colour) {
  const auto value = static_cast<std::uint32_t>(std::int64_t(colour));
  return (value & 255U) << 16 | (value & 0xFF00U) | ((value >> 16) & 255U);
}

Pixel Mix(Pixel under, Pixel over, Pixel part) {
  constexpr Pixel kRedAndBlue = 0xFF00FF;
  constexpr Pixel kGreen = 0x00FF00;
  const auto mixed = [=](Pixel colours) {
    return ((under & colours) * (kWhole - part) + (over & colours) * part) / kWhole & colours;
  };
  return mixed(kRedAndBlue) | mixed(kGreen);
}

Canvas Canvas::Within(const TwipRect& area) const { return WithinPixels(viewport_.ToPixels(area)); }

Canvas Canvas::WithinPixels(const PixelRect& area) const {
  return {target_, viewport_, drawings_, clip_.Cut(area)};
}

void Canvas::FillPixels(const PixelRect& rect, Pixel colour) const {
  const PixelRect part = rect.Cut(clip_);
  if (part.Empty()) return;
  for (int y = part.top; y < part.bottom; ++y) {
    std::fill_n(target_.Row(y) + part.left, part.Width(), colour);
  }
}

void Canvas::Fill(const TwipRect& rect, Pixel colour) const { FillPixels(viewport_.ToPixels(rect), colour); }

void Canvas::Frame(const TwipRect& rect, Pixel colour) const {
  const PixelRect outer = viewport_.ToPixels(rect);
  const int line = std::max(1, viewport_.Length(kTwipsPerPixel));
  FillPixels({outer.left, outer.top, outer.right, outer.top + line}, colour);
  FillPixels({outer.left, outer.bottom - line, outer.right, outer.bottom}, colour);
  FillPixels({outer.left, outer.top, outer.left + line, outer.bottom}, colour);
  FillPixels({outer.right - line, outer.top, outer.right, outer.bottom}, colour);
}

void Canvas::Draw(const TwipRect& rect, const Picture& picture, PixelSize size, Pixel opacity) const {
  const PixelRect place = viewport_.ToPixels(rect);
  const PixelRect whole{place.left, place.top, place.left + size.width, place.top + size.height};
  const PixelRect part = place.Cut(whole).Cut(clip_);
  if (part.Empty()) return;
  const auto bitmap = drawings_.Of(picture, size);
  if (bitmap->size == size && opacity == kWhole) {
    for (int y = part.top; y < part.bottom; ++y) {
      std::memcpy(target_.Row(y) + part.left,
                  &bitmap->pixels[bitmap->Index(part.left - whole.left, y - whole.top)],
                  sizeof(Pixel) * std::size_t(part.Width()));
    }
    return;
  }
  const Scaled across(bitmap->size.width, size.width);
  const Scaled down(bitmap->size.height, size.height);
  for (int y = part.top; y < part.bottom; ++y) {
    Pixel* const row = target_.Row(y);
    const Pixel* const drawn = &bitmap->pixels[bitmap->Index(0, down(y - whole.top))];
    for (int x = part.left; x < part.right; ++x) {
      row[x] = Mix(row[x], drawn[across(x - whole.left)], opacity);
    }
  }
}

void Canvas::DrawBetween(TwipPoint corner, const Picture& picture, PixelSize size, Pixel opacity) const {
  const PixelRect place = viewport_.ToPixelsAround(corner, size);
  const PixelRect part = place.Cut(clip_);
  const auto bitmap = drawings_.Of(picture, size);
  if (part.Empty() || bitmap->size != size) return;
  const PixelPlace exact = viewport_.ToPlace(corner);
  const auto offset_x = static_cast<Pixel>((exact.x - place.left) * kWhole);
  const auto offset_y = static_cast<Pixel>((exact.y - place.top) * kWhole);
  for (int y = part.top; y < part.bottom; ++y) {
    const Meeting down = Meet(y - place.top, size.height, offset_y);
    const Pixel* const upper = &bitmap->pixels[bitmap->Index(0, down.before)];
    const Pixel* const lower = &bitmap->pixels[bitmap->Index(0, down.after)];
    Pixel* const row = target_.Row(y);
    for (int x = part.left; x < part.right; ++x) {
      const Meeting across = Meet(x - place.left, size.width, offset_x);
      const Pixel colour = Mix(Mix(upper[across.before], lower[across.before], down.weight),
                               Mix(upper[across.after], lower[across.after], down.weight), across.weight);
      row[x] = Mix(row[x], colour, across.covered * down.covered / kWhole * opacity / kWhole);
    }
  }
}

void Canvas::Paint(const Light& light) const {
  const PixelRect part = light.place.Cut(clip_);
  Repeating lit([share = light.part](Pixel under, Pixel over) { return Mix(under, over, share); });
  for (int y = part.top; y < part.bottom; ++y) {
    Pixel* const row = target_.Row(y);
    if (!light.band) {
      for (int x = part.left; x < part.right; ++x) row[x] = lit(row[x], light.colour);
      continue;
    }
    const int middle = light.band->middle - y;
    const int half = light.band->half;
    const int end = std::min(part.right, middle + half);
    for (int x = std::max(part.left, middle - half); x < end; ++x) {
      const auto left = static_cast<Pixel>(half - std::abs(x - middle));
      row[x] = Mix(row[x], light.colour, light.part * left / static_cast<Pixel>(half));
    }
  }
}

void Canvas::Paint(const Ghost& ghost) const {
  const PixelRect part = ghost.place.Cut(ghost.within).Cut(clip_);
  if (part.Empty() || ghost.picture == nullptr) return;
  const auto bitmap = drawings_.Of(*ghost.picture, ghost.drawn);
  const Scaled across(bitmap->size.width, ghost.place.Width());
  const Scaled down(bitmap->size.height, ghost.place.Height());
  const auto paint = [&](auto mixed) {
    for (int y = part.top; y < part.bottom; ++y) {
      Pixel* const row = target_.Row(y);
      const Pixel* const drawn = &bitmap->pixels[bitmap->Index(0, down(y - ghost.place.top))];
      for (int x = part.left; x < part.right; ++x) {
        const Pixel pixel = drawn[across(x - ghost.place.left)];
        if (pixel != 0) row[x] = mixed(row[x], pixel);
      }
    }
  };
  const Pixel share = ghost.part;
  if (ghost.colour) {
    paint(
        Repeating([share, colour = *ghost.colour](Pixel under, Pixel) { return Mix(under, colour, share); }));
  } else if (share == kWhole) {
    paint([](Pixel under, Pixel over) { return Lighter(under, over); });
  } else {
    paint(Repeating([share](Pixel under, Pixel over) { return Lighter(under, Mix(under, over, share)); }));
  }
}

void Canvas::Write(const TwipRect& rect, const TextLine& line, const std::string& text, Pixel colour) const {
  if (text.empty()) return;
  const PixelRect place = drawings_.PlaceOf(line, viewport_, rect, text);
  const PixelRect part = place.Cut(clip_);
  const auto words = drawings_.Of(line.font, viewport_.Scale(), text);
  for (int y = part.top; y < part.bottom; ++y) {
    const std::uint8_t* const alphas =
        words->alpha.data() + std::ptrdiff_t(y - place.top) * words->size.width;
    Pixel* const row = target_.Row(y);
    for (int x = part.left; x < part.right; ++x) {
      const Pixel alpha = alphas[x - place.left];
      row[x] = Mix(row[x], colour, alpha + (alpha >> 7));
    }
  }
}

Double Canvas::TextWidth(const Font& font, std::string_view text) const {
  return drawings_.TextWidth(font, viewport_.Scale(), text) * kTwipsPerPixel / viewport_.Scale();
}

Double Canvas::TextHeight(const Font& font) const {
  constexpr Double kLineOfHeight = 1.2;  // room for what hangs below the line
  return Drawings::FontHeight(font, viewport_.Scale()) * kLineOfHeight * kTwipsPerPixel / viewport_.Scale();
}

}  // namespace stage
