#include "stage/machines/scripted/scripted_platform.h"

#include <cmath>

#include "stage/files/path_text.h"

namespace stage {
namespace {

constexpr Double kSecondsInDay = 86400;
constexpr Double kMicrosecondsInSecond = 1e6;
// A run that nobody asks about keeps only so many; what is older tells nothing any more.
constexpr std::size_t kMostRemembered = 100'000;

}  // namespace

ScriptedPlatform::ScriptedPlatform(ScriptedSetup setup, Artist& artist)
    : setup_(std::move(setup)), artist_(artist) {}

ScriptedPlatform::~ScriptedPlatform() { FinishWorks(); }

void ScriptedPlatform::FinishWorks() {
  for (const auto& work : std::exchange(works_, {})) work();
}

void ScriptedPlatform::Send(Event event) { events_.push_back(std::move(event)); }

void ScriptedPlatform::MoveTo(Double x, Double y, int shift) {
  MoveToPixel(Viewport(setup_.screen, DisplaySize()).ToPlace({x, y}), shift);
}

void ScriptedPlatform::MoveToPixel(PixelPlace place, int shift) {
  pointer_ = {place.x, place.y, shift};
  Send(pointer_);
}

void ScriptedPlatform::Look(bool looking) {
  const PixelSize size = DisplaySize();
  pixels_.assign(looking ? std::size_t(size.width) * std::size_t(size.height) : 0, 0);
}

void ScriptedPlatform::Rescale(Double scale) {
  setup_.scale = scale;
  Look(!pixels_.empty());
  Send(DisplayChanged{});
}

PixelSize ScriptedPlatform::DisplaySize() {
  if (setup_.display != PixelSize{}) return setup_.display;
  const auto pixels = [&](Single twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel * setup_.scale));
  };
  return {pixels(setup_.screen.Width), pixels(setup_.screen.Height)};
}

std::optional<Framebuffer> ScriptedPlatform::Canvas() {
  if (pixels_.empty()) return std::nullopt;
  const PixelSize size = DisplaySize();
  return Framebuffer{size, pixels_.data(), size.width};
}

std::optional<Moment> ScriptedPlatform::LastFrame() {
  if (!setup_.refresh_phase) return std::nullopt;
  constexpr Moment kSecond = std::chrono::seconds(1);
  const Moment phase = *setup_.refresh_phase;
  const auto number = (now_ - phase) * setup_.refresh_rate / kSecond;
  return phase + kSecond * number / setup_.refresh_rate;
}

void ScriptedPlatform::Present(std::span<const PixelRect> changed) {
  if (presented_.size() > kMostRemembered) presented_.clear();
  presented_.insert(presented_.end(), changed.begin(), changed.end());
}

std::optional<Event> ScriptedPlatform::NextEvent() {
  if (events_.empty()) return std::nullopt;
  Event next = std::move(events_.front());
  events_.pop_front();
  return next;
}

void ScriptedPlatform::Wait(Moment until, Wake wake) {
  FinishWorks();
  if (wake == Wake::kOnTime || !Director) {
    now_ = std::max(now_, until);
  } else if (events_.empty()) {
    Director();
  }
}

void ScriptedPlatform::SetSecondsOfDay(Double seconds) {
  setup_.seconds_of_day = seconds - Double(now_.count()) / kMicrosecondsInSecond;
}

Double ScriptedPlatform::SecondsOfDay() {
  return std::fmod(setup_.seconds_of_day + Double(now_.count()) / kMicrosecondsInSecond, kSecondsInDay);
}

PixelPoint ScriptedPlatform::PointerPlace() {
  return {static_cast<int>(std::floor(pointer_.x)), static_cast<int>(std::floor(pointer_.y))};
}

void ScriptedPlatform::MovePointer(PixelPoint place) {
  std::erase_if(events_, [](const Event& event) { return std::holds_alternative<PointerMoved>(event); });
  MoveToPixel({Double(place.x), Double(place.y)});
}

void ScriptedPlatform::PlaySound(const std::filesystem::path& file) {
  if (sounds_.size() > kMostRemembered) sounds_.clear();
  sounds_.push_back(TextOf(file.filename()));
}

}  // namespace stage
