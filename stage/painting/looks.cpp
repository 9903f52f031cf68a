#include "stage/painting/looks.h"

#include <array>
#include <numbers>

namespace stage::look {
namespace {

constexpr Pixel kWhite = 0xFFFFFF;

Double Ratio(Moment age, Moment length) { return Double(age.count()) / Double(length.count()); }
/// From 1 to 0, ever slower.
Double Fading(Double done) { return (1 - done) * (1 - done); }

/// In parts of 256.
Pixel PartOf(Double opacity) {
  return static_cast<Pixel>(std::lround(std::clamp(opacity, 0.0, 1.0) * Double(kWhole)));
}

int Pixels(const Eye& eye, Double design_pixels) {
  return std::max(1, eye.viewport.Length(design_pixels * kTwipsPerPixel));
}

PixelRect Square(PixelPlace middle, int side) {
  const auto left = static_cast<int>(std::lround(middle.x - side / 2.0));
  const auto top = static_cast<int>(std::lround(middle.y - side / 2.0));
  return {left, top, left + side, top + side};
}

TwipPoint MiddleOf(const TwipRect& area) { return {area.left + area.width / 2, area.top + area.height / 2}; }

/// An image as it looks now.
struct Snapshot {
  explicit Snapshot(const Image& image)
      : picture(image.Picture),
        stretch(image.Stretch),
        area(image.SeenArea()),
        interior(image.GetContainer().Interior()) {}

  PixelSize Size(const Eye& eye) const {
    if (!stretch && picture != nullptr) return eye.viewport.NaturalSize(picture->natural);
    return {eye.viewport.Length(area.width), eye.viewport.Length(area.height)};
  }
  Ghost Show(const Eye& eye) const {
    const PixelRect seen = eye.viewport.ToPixels(area);
    const PixelSize size = Size(eye);
    return {.place = {seen.left, seen.top, seen.left + size.width, seen.top + size.height},
            .within = seen.Cut(eye.viewport.ToPixels(interior)),
            .picture = picture,
            .drawn = size};
  }
  /// What its middle looks like from afar.
  Pixel Colour(const Eye& eye) const {
    if (picture == nullptr) return kWhite;
    constexpr int kSamples = 8;
    const auto bitmap = eye.drawings.Of(*picture, Size(eye));
    std::array<Pixel, 3> sum{};
    for (int i = 0; i < kSamples * kSamples; ++i) {
      const auto place = [](int sample, int length) { return length / 4 + length * sample / (2 * kSamples); };
      const Pixel pixel =
          bitmap->At(place(i % kSamples, bitmap->size.width), place(i / kSamples, bitmap->size.height));
      for (std::size_t c = 0; c < sum.size(); ++c) sum[c] += pixel >> 8 * c & 255U;
    }
    for (Pixel& colour : sum) colour /= kSamples * kSamples;
    return sum[2] << 16 | sum[1] << 8 | sum[0];
  }

  PictureRef picture;
  bool stretch;
  TwipRect area;
  TwipRect interior;
};

/// A band of light on its way over a rectangle.
Light::Band Passing(const PixelRect& over, Double done, int half) {
  const int from = over.left + over.top - half;
  const int to = over.right + over.bottom + half;
  return {from + static_cast<int>((to - from) * done), half};
}

PixelRect Moved(const PixelRect& rect, int x, int y) {
  return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

}  // namespace

Effect Burst(const Image& image, TwipPoint source) {
  constexpr Moment kFade = milliseconds(130);
  constexpr std::array<TwipPoint, 4> kWays{{{-17, -9}, {12, -15}, {-10, 13}, {19, 10}}};
  const Snapshot block(image);
  const TwipRect& area = block.area;
  const TwipPoint start{std::clamp(source.x, area.left, area.left + area.width),
                        std::clamp(source.y, area.top, area.top + area.height)};
  const auto look = [=](Moment age, const Eye& eye) {
    const Pixel colour = block.Colour(eye);
    const PixelRect place = eye.viewport.ToPixels(block.area);
    const Double faded = std::max(Ratio(age - eye.refresh, kFade), 0.0);
    Scene scene;
    if (faded >= 1) return scene;
    if (age <= eye.refresh) {
      scene.marks.emplace_back(Light{place, Mix(colour, kWhite, 180), PartOf(0.95)});
    } else {
      scene.marks.emplace_back(Light{place, Mix(colour, kWhite, 32), PartOf(0.75 * Fading(faded))});
    }
    const Double way = 1 - Fading(faded);
    for (const TwipPoint& to : kWays) {
      const PixelPlace at = eye.viewport.ToPlace(
          {start.x + to.x * way * kTwipsPerPixel, start.y + to.y * way * kTwipsPerPixel});
      scene.marks.emplace_back(
          Light{Square(at, Pixels(eye, 2.5)), Mix(colour, kWhite, 64), PartOf(1 - faded)});
    }
    return scene;
  };
  return {kFade + milliseconds(34), look, true};
}

Effect Glint(const Image& image) {
  static constexpr Moment kLength = milliseconds(100);
  const auto look = [area = image.Area()](Moment age, const Eye& eye) {
    const PixelRect place = eye.viewport.ToPixels(area);
    const int line = Pixels(eye, 2.5);
    const Light::Band band = Passing(place, Ratio(age, kLength), Pixels(eye, 18));
    Scene scene;
    for (const PixelRect& side :
         {PixelRect{place.left, place.top, place.right, place.top + line},
          PixelRect{place.left, place.bottom - line, place.right, place.bottom},
          PixelRect{place.left, place.top + line, place.left + line, place.bottom - line},
          PixelRect{place.right - line, place.top + line, place.right, place.bottom - line}}) {
      scene.marks.emplace_back(Light{side, kWhite, PartOf(0.95), band});
    }
    return scene;
  };
  return {kLength, look};
}

Effect Shimmer(const Image& image) {
  static constexpr Moment kLength = milliseconds(150);
  const auto look = [area = image.Area()](Moment age, const Eye& eye) {
    const PixelRect place = eye.viewport.ToPixels(area);
    const Light::Band band = Passing(place, Ratio(age, kLength), Pixels(eye, 12));
    return Scene{kWhole, {Light{place, kWhite, PartOf(0.8), band}}};
  };
  return {kLength, look};
}

Effect Flash(const Image& image, Pixel colour, Moment length) {
  const auto look = [=, area = image.Area()](Moment age, const Eye& eye) {
    const Double opacity = 0.9 * Fading(Ratio(age, length));
    return Scene{kWhole, {Light{eye.viewport.ToPixels(area), colour, PartOf(opacity)}}};
  };
  return {length, look, true};
}

Effect Glow(const Image& image, Pixel colour, Moment length) {
  const auto look = [=, &image](Moment age, const Eye& eye) {
    Ghost ghost = Snapshot(image).Show(eye);
    ghost.part = PartOf(0.85 * Fading(Ratio(age, length)));
    ghost.colour = colour;
    return Scene{kWhole, {ghost}};
  };
  return {length, look};
}

Effect Ghostly(const Image& image, Moment length, TwipPoint way) {
  const auto look = [=, was = Snapshot(image)](Moment age, const Eye& eye) {
    const Double done = Ratio(age, length);
    const Double gone = 1 - Fading(done);
    const int x = eye.viewport.Length(way.x * gone);
    const int y = eye.viewport.Length(way.y * gone);
    Ghost ghost = was.Show(eye);
    ghost.place = Moved(ghost.place, x, y);
    ghost.within = Moved(ghost.within, x, y);
    ghost.part = PartOf(0.8 * (1 - done));
    return Scene{kWhole, {ghost}};
  };
  return {length, look, true};
}

Effect Collapse(const Image& plate, const Image& into) {
  static constexpr Moment kLength = milliseconds(120);
  const auto look = [&into, was = Snapshot(plate)](Moment age, const Eye& eye) {
    const Double done = std::pow(Ratio(age, kLength), 2);
    const TwipRect goal = into.SeenArea();
    const TwipRect& full = was.area;
    const TwipPoint middle = MiddleOf(full);
    const Double goal_x = std::clamp(middle.x, goal.left, goal.left + goal.width);
    const Double width = full.width * std::lerp(1.0, 0.6, done);
    const Double bottom = std::lerp(full.top + full.height, MiddleOf(goal).y, done);
    const Double height = full.height * (1 - done);
    const TwipRect now{std::lerp(middle.x, goal_x, done) - width / 2, bottom - height, width, height};
    Ghost ghost = was.Show(eye);
    ghost.place = ghost.within = eye.viewport.ToPixels(now);
    return Scene{kWhole, {ghost}};
  };
  return {kLength, look, true};
}

Effect Line(const TwipRect& area, Pixel colour) {
  constexpr Moment kLength = milliseconds(100);
  const auto look = [=](Moment age, const Eye& eye) {
    return Scene{kWhole,
                 {Light{eye.viewport.ToPixels(area), colour, PartOf(0.9 * (1 - Ratio(age, kLength)))}}};
  };
  return {kLength, look};
}

Effect Appear(Moment after, Moment length) {
  const auto look = [=](Moment age, const Eye&) { return Scene{PartOf(Ratio(age - after, length)), {}}; };
  return {after + length, look, true};
}

Effect Dim(Pixel opacity) {
  return {Moment::max(), [=](Moment, const Eye&) { return Scene{opacity, {}}; }};
}

Effect Chevrons(const Image& image, Moment after) {
  constexpr Moment kCycle = milliseconds(1000);
  constexpr Moment kRise = milliseconds(520);
  constexpr Moment kApart = milliseconds(130);
  constexpr Moment kCalm = milliseconds(1000) / 30;  // slow enough for so few pictures, which cost less
  static constexpr Picture kChevron{"chevron",
                                    R"(<svg>
<path d="M2 7.2 9 2 16 7.2" fill="none" stroke="#ffffff" stroke-width="2"/></svg>)",
                                    {18, 9}};
  const auto look = [=, &image](Moment age, const Eye& eye) {
    Scene scene;
    if (age < after) return scene;
    age -= age % kCalm;
    const PixelRect ball = image.Pixels(eye.viewport);
    const PixelSize size = eye.viewport.NaturalSize(kChevron.natural);
    const int left = (ball.left + ball.right - size.width) / 2;
    for (int i = 0; i < 3; ++i) {
      const Double risen = Ratio((age - after) % kCycle - i * kApart, kRise);
      if (risen <= 0 || risen >= 1) continue;
      const int top = ball.top - Pixels(eye, 14 + 11 * i + 10 * risen);
      const PixelRect place{left, top, left + size.width, top + size.height};
      scene.marks.emplace_back(
          Ghost{place, place, &kChevron, size, PartOf(0.45 * std::sin(risen * std::numbers::pi)), {}});
    }
    return scene;
  };
  return {Moment::max(), look};
}

}  // namespace stage::look
