#include "stage/painting/effects.h"

#include <algorithm>

#include "stage/stage.h"

namespace stage {
namespace {

PixelRect PlaceOf(const Light& light) { return light.place; }
PixelRect PlaceOf(const Ghost& ghost) { return ghost.place.Cut(ghost.within); }

}  // namespace

EffectSet::EffectSet(Stage& stage) : stage_(stage), refreshes_(stage.Machine()) {}

bool EffectSet::Wanted() { return !refreshes_.Never() && !stage_.Machine().WantsStillness(); }

bool EffectSet::WantedOn(Form& form) { return &form == stage_.ActiveForm() && Wanted(); }

void EffectSet::Begin(Image& on, Effect effect) {
  if (!WantedOn(on.GetContainer().Owner())) return;
  running_.push_back({&on, &on, std::move(effect), {}, stage_.Timers().Present(), {}, {}});
  stage_.Touch();
}

void EffectSet::Keep(Image& on, std::function<bool()> holds, Effect effect) {
  running_.push_back({&on, &on, std::move(effect), std::move(holds), {}, {}, {}});
}

void EffectSet::Leave(Running& running) {
  if (running.scene.opacity != kWhole) running.on->ShowFaded(kWhole);
  for (const PixelRect& pixels : running.painted) stage_.Damage(pixels);
  running.painted.clear();
  running.scene = {};
  running.begin.reset();
}

void EffectSet::Clear() {
  for (Running& running : running_) Leave(running);
  std::erase_if(running_, [](const Running& running) { return !running.holds; });
}

void EffectSet::Forget(const Control& control) {
  std::erase_if(running_, [&](const Running& running) {
    if (running.control != &control) return false;
    for (const PixelRect& pixels : running.painted) stage_.Damage(pixels);
    return true;
  });
}

void EffectSet::Show() {
  if (running_.empty() || !Wanted()) return;
  // A display that has taken no picture for a while takes the next one at once.
  const Moment now = stage_.Machine().Now();
  const Moment seen = std::max(refreshes_.Last(), now - kBeat);
  const Viewport viewport = stage_.Painting().View();
  const Eye eye{viewport, stage_.Painting().Made(), refreshes_.Between()};
  for (Running& running : running_) {
    if (!running.holds) continue;
    const bool holds = &running.on->GetContainer().Owner() == stage_.ActiveForm() && running.holds();
    if (holds && !running.begin) running.begin = now;
    if (!holds && running.begin) Leave(running);
  }
  for (Running& running : running_) {
    if (running.begin) Step(running, seen, eye);
  }
  std::erase_if(running_, [](const Running& running) { return !running.holds && !running.begin; });
}

void EffectSet::Step(Running& running, Moment seen, const Eye& eye) {
  const Effect& effect = running.effect;
  Moment age = seen - *running.begin;
  if (age < Moment::zero() && !effect.at_once && !running.holds) return;
  age = std::max(age, Moment::zero());
  if (age >= effect.length) return Leave(running);
  Scene scene = effect.look(age, eye);
  // Another effect may fade the same image.
  if (scene.opacity != running.scene.opacity) running.on->ShowFaded(scene.opacity);
  const bool same = scene.marks == running.scene.marks;
  running.scene = std::move(scene);
  if (same) return;
  running.changed = true;
  stage_.Touch();
}

void EffectSet::TakeChanges(Region& changed) {
  for (Running& running : running_) {
    if (!std::exchange(running.changed, false)) continue;
    for (const PixelRect& pixels : running.painted) changed.Add(pixels);
    running.painted.clear();
    for (const auto& mark : running.scene.marks) {
      running.painted.push_back(std::visit([](const auto& kind) { return PlaceOf(kind); }, mark));
      changed.Add(running.painted.back());
    }
  }
}

void EffectSet::Paint(const Canvas& canvas) const {
  for (const Running& running : running_) {
    for (const auto& mark : running.scene.marks) {
      std::visit([&](const auto& kind) { canvas.Paint(kind); }, mark);
    }
  }
}

Moment EffectSet::NextBeat() const {
  const bool any = std::any_of(running_.begin(), running_.end(),
                               [](const Running& running) { return running.begin.has_value(); });
  return any ? BeatAtOrBefore(stage_.Machine().Now()) + kBeat : Moment::max();
}

}  // namespace stage
