#include "stage/painting/canvas.h"

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

/// What is seen of the lines of a bitmap that fills a place of any size.
class Lines {
 public:
  Lines(const Bitmap& bitmap, const PixelRect& place, const PixelRect& seen)
      : bitmap_(bitmap),
        place_(place),
        seen_(seen),
        across_(Step(bitmap.size.width, place.Width())),
        down_(Step(bitmap.size.height, place.Height())),
        line_(bitmap.size.width == place.Width() ? 0 : std::size_t(seen.Width())) {}

  /// The pixels from the left edge of what is seen, until the next call.
  const Pixel* At(int y) {
    const Pixel* const drawn =
        &bitmap_.pixels[bitmap_.Index(0, static_cast<int>((y - place_.top) * down_ >> kFine))];
    std::int64_t from = (seen_.left - place_.left) * across_;
    if (line_.empty()) return drawn + (from >> kFine);
    for (Pixel& pixel : line_) {
      pixel = drawn[from >> kFine];
      from += across_;
    }
    return line_.data();
  }

 private:
  static constexpr int kFine = 32;
  static std::int64_t Step(int drawn, int shown) {
    return ((std::int64_t(drawn) << kFine) + shown - 1) / shown;
  }

  const Bitmap& bitmap_;
  PixelRect place_;
  PixelRect seen_;
  std::int64_t across_;
  std::int64_t down_;
  std::vector<Pixel> line_;
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
    Pixel* const row = target_.Row(y) + part.left;
    // The machine clears memory without reading what stands there, which is most of what this costs.
    if (colour == 0) {
      std::memset(row, 0, sizeof(Pixel) * std::size_t(part.Width()));
    } else {
      std::fill_n(row, part.Width(), colour);
    }
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
  Lines lines(*bitmap, whole, part);
  for (int y = part.top; y < part.bottom; ++y) {
    Pixel* const row = target_.Row(y) + part.left;
    const Pixel* const drawn = lines.At(y);
    for (int i = 0; i < part.Width(); ++i) row[i] = Mix(row[i], drawn[i], opacity);
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
  for (int y = part.top; y < part.bottom; ++y) {
    Pixel* const row = target_.Row(y);
    if (!light.band) {
      for (int x = part.left; x < part.right; ++x) row[x] = Mix(row[x], light.colour, light.part);
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
  Lines lines(*bitmap, ghost.place, part);
  const auto paint = [&](auto mixed) {
    for (int y = part.top; y < part.bottom; ++y) {
      Pixel* const row = target_.Row(y) + part.left;
      const Pixel* const drawn = lines.At(y);
      for (int i = 0; i < part.Width(); ++i) row[i] = drawn[i] == 0 ? row[i] : mixed(row[i], drawn[i]);
    }
  };
  const Pixel share = ghost.part;
  if (ghost.colour) {
    paint([share, colour = *ghost.colour](Pixel under, Pixel) { return Mix(under, colour, share); });
  } else if (share == kWhole) {
    paint([](Pixel under, Pixel over) { return Lighter(under, over); });
  } else {
    paint([share](Pixel under, Pixel over) { return Lighter(under, Mix(under, over, share)); });
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
