#include "stage/painting/glide.h"

#include <algorithm>
#include <cmath>

#include "stage/stage.h"

namespace stage {
namespace {

Double Distance(TwipPoint a, TwipPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

TwipPoint OnTheWay(TwipPoint from, TwipPoint to, Double part) {
  return {std::lerp(from.x, to.x, part), std::lerp(from.y, to.y, part)};
}

}  // namespace

Glide::Glide(Image& image, std::function<std::optional<Place>()> held)
    : image_(image), held_(std::move(held)), before_(Corner()), from_(before_) {
  image_.GetContainer().Owner().OnStage().Glides().Add(*this);
}

Glide::~Glide() { image_.GetContainer().Owner().OnStage().Glides().Remove(*this); }

TwipPoint Glide::Corner(const Place& place) const {
  const Container& container = image_.GetContainer();
  const TwipRect interior = container.Interior();
  const Units units = container.InteriorUnits();
  return {interior.left + place.Left * units.x, interior.top + place.Top * units.y};
}

void Glide::Beat() {
  before_ = from_;
  from_ = Corner();
}

bool Glide::Jumps(TwipPoint to) const {
  constexpr Double kFew = 3;
  const TwipRect area = image_.Area();
  const Double usual = std::max({Distance(before_, from_), area.width, area.height});
  return Distance(from_, to) > kFew * usual;
}

void Glide::Show(Double since) {
  under_way_ = false;
  if (const auto held = held_ ? held_() : std::nullopt)
    return image_.ShowAt(Image::Seen{Corner(*held), false});
  const TwipPoint to = Corner();
  if (!image_.Shown() || Jumps(to)) return image_.ShowAt(std::nullopt);
  const TwipPoint seen = since < 0 ? OnTheWay(before_, from_, std::max(since, -1.0) + 1)
                                   : OnTheWay(from_, to, std::min(since, 1.0));
  under_way_ = Distance(seen, to) > 0;
  if (!under_way_) return image_.ShowAt(std::nullopt);
  image_.ShowAt(Image::Seen{seen, true});
}

void GlideSet::Beat() {
  const Moment beat = BeatAtOrBefore(platform_.Now());
  if (beat == beat_) return;
  beat_ = beat;
  for (Glide* glide : glides_) glide->Beat();
}

void GlideSet::Show() {
  if (refreshes_.Never()) return;
  const Double since = Double((refreshes_.Last() - beat_).count()) / Double(kBeat.count());
  for (Glide* glide : glides_) glide->Show(since);
}

Moment GlideSet::NextRefresh() const {
  const auto under_way = [](const Glide* glide) { return glide->UnderWay(); };
  return std::any_of(glides_.begin(), glides_.end(), under_way) ? refreshes_.Next() : Moment::max();
}

}  // namespace stage
