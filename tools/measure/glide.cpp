// Films the ball as it is painted, with the times at which it is shown, and tells the root mean square of how
// far its steps are from what its speed makes of the time between, in per cent of that: from picture to
// picture, and from refresh to refresh of a display. Turns of the ball are left out. Without a window it
// plays in virtual time, once for each usual refresh rate of displays.
#include <cmath>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "assets/assets.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "stage/machines/sdl/sdl_platform.h"
#include "tools/measure/measure.h"
#include "tools/measure/self_player.h"

namespace {

using stage::Double;
using stage::Moment;

/// The ball in one picture.
struct Frame {
  Moment shown;
  stage::PixelPlace centre;
  Double speed = 0;       // display pixels a second, by the game's own state
  Double velocity_x = 0;  // the game's, to tell the turns
  Double velocity_y = 0;
};

template <class Machine>
class Film : public tools::SelfPlayer<Machine> {
 public:
  using tools::SelfPlayer<Machine>::SelfPlayer;

  void Present(std::span<const stage::PixelRect> changed) override {
    Machine::Present(changed);
    korvane::game* const jogo = this->Flying();
    if (jogo == nullptr) return;
    const stage::Units units = jogo->InteriorUnits();
    const Double scale = Double(this->DisplaySize().height) / jogo->Palco.Screen.Height;
    constexpr Double kStepsInSecond = 128;
    const Double speed = std::hypot(jogo->VelX * units.x, jogo->VelY * units.y) * scale * kStepsInSecond;
    const int paddle = static_cast<int>(jogo->User.Top * units.y * scale);
    if (const auto centre = Centre(changed, paddle)) {
      Add({this->LastFrame().value_or(this->Now()), *centre, speed, jogo->VelX, jogo->VelY});
    }
  }
  std::optional<stage::Event> NextEvent() override {
    // What is seen of a ball that does not fly is no step.
    if (this->Flying() == nullptr) Add({this->Now(), {}});
    return tools::SelfPlayer<Machine>::NextEvent();
  }
  /// Nothing but the ball is bright.
  bool WantsStillness() override { return true; }
  const std::vector<Frame>& Frames() const { return frames_; }

 private:
  /// A display that tells of its refreshes shows the last picture that was painted for each.
  void Add(const Frame& frame) {
    const Moment apart =
        this->LastFrame() ? Moment(std::chrono::seconds(1)) / this->RefreshRate() / 2 : Moment();
    if (!frames_.empty() && frame.shown < frames_.back().shown + apart) frames_.pop_back();
    frames_.push_back(frame);
  }
  /// The centre of what is bright in the changed pixels above the paddle; the field is black.
  std::optional<stage::PixelPlace> Centre(std::span<const stage::PixelRect> changed, int paddle) {
    const stage::Framebuffer picture = *this->Canvas();
    Double weight = 0;
    stage::PixelPlace sum;
    for (const stage::PixelRect& rect : changed) {
      if (rect.bottom > paddle) continue;
      for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
          const stage::Pixel pixel = picture.Row(y)[x];
          const Double bright = (pixel >> 16 & 255U) + (pixel >> 8 & 255U) + (pixel & 255U);
          weight += bright;
          sum.x += bright * x;
          sum.y += bright * y;
        }
      }
    }
    if (weight == 0) return std::nullopt;
    return stage::PixelPlace{sum.x / weight, sum.y / weight};
  }

  std::vector<Frame> frames_;
};

/// The picture that a display shows at a moment.
const Frame* At(const std::vector<Frame>& frames, Moment moment) {
  const auto next = std::ranges::upper_bound(frames, moment, {}, &Frame::shown);
  return next == frames.begin() ? nullptr : &*std::prev(next);
}

/// The ball has turned so lately, or turns so soon, that its step is not the even one.
bool Turns(const std::vector<Frame>& frames, Moment moment) {
  constexpr Moment kNear = 3 * stage::kBeat;
  const Frame* const before = At(frames, moment - kNear);
  const Frame* const after = At(frames, moment + kNear);
  const Frame* const now = At(frames, moment);
  if (before == nullptr || after == &frames.back() || now->speed == 0) return true;
  const auto same = [](const Frame& a, const Frame& b) {
    return a.velocity_x == b.velocity_x && a.velocity_y == b.velocity_y;
  };
  return !same(*before, *now) || !same(*now, *after);
}

/// How far a step of the ball is from what is even, in parts of that; nothing if it turns there.
std::optional<Double> Error(const std::vector<Frame>& frames, Moment from, Moment to, Double even_time) {
  if (Turns(frames, from) || Turns(frames, to)) return std::nullopt;
  const Frame& before = *At(frames, from);
  const Frame& now = *At(frames, to);
  const Double step = std::hypot(now.centre.x - before.centre.x, now.centre.y - before.centre.y);
  return step / (now.speed * even_time) - 1;
}

class MeanSquare {
 public:
  void Add(std::optional<Double> error) {
    if (!error) return;
    sum_ += *error * *error;
    ++count_;
  }
  Double RootInPerCent() const { return 100 * std::sqrt(sum_ / std::max(count_, 1)); }

 private:
  Double sum_ = 0;
  int count_ = 0;
};

/// By the times at which the pictures were shown.
void AddPainted(const std::vector<Frame>& frames, MeanSquare& errors) {
  for (std::size_t i = 1; i < frames.size(); ++i) {
    const Moment from = frames[i - 1].shown;
    const Moment to = frames[i].shown;
    errors.Add(Error(frames, from, to, std::chrono::duration<Double>(to - from).count()));
  }
}

/// As a display sees it that refreshes `phase` of a refresh after the game has been asked for a picture.
void AddSeen(const std::vector<Frame>& frames, int rate, Double phase, MeanSquare& errors) {
  const Double refresh = 1e6 / rate;
  const auto moment = [&](int number) { return Moment(std::int64_t((number + phase) * refresh)); };
  for (int number = 1; moment(number) < frames.back().shown; ++number) {
    errors.Add(Error(frames, moment(number - 1), moment(number), 1.0 / rate));
  }
}

template <class Machine>
void Measure(Film<Machine>& film, int rate, int seconds) {
  korvane::Programa programa(film, korvane::Assets());
  film.Play(programa, std::chrono::seconds(seconds));
  constexpr Double kMidway = 0.5;
  constexpr int kPhases = 20;
  MeanSquare painted;
  MeanSquare midway;
  MeanSquare any_phase;
  AddPainted(film.Frames(), painted);
  AddSeen(film.Frames(), rate, kMidway, midway);
  for (int i = 0; i < kPhases; ++i) AddSeen(film.Frames(), rate, (i + kMidway) / kPhases, any_phase);
  std::cout << std::setprecision(2) << rate << " Hz: step error " << painted.RootInPerCent()
            << " % as painted, " << midway.RootInPerCent() << " % on a display that refreshes midway, "
            << any_phase.RootInPerCent() << " % over all phases of the display\n";
}

}  // namespace

void measure::Glide(Words words) {
  const bool window = !words.empty() && std::string_view(words[0]) == "--window";
  if (window) words = words.subspan(1);
  constexpr int kUsualSeconds = 30;
  const int seconds = words.empty() ? kUsualSeconds : std::stoi(words[0]);
  if (window) {
    Film<stage::sdl::SdlPlatform> film("Korvane", "korvane");
    Measure(film, film.RefreshRate(), seconds);
    return;
  }
  for (const int rate : {60, 75, 120, 144, 165, 240}) {
    stage::sdl::Artist artist;
    stage::ScriptedSetup setup;
    setup.screen.Width = 16000;
    setup.scale = 1.8;
    setup.refresh_rate = rate;
    Film<stage::ScriptedPlatform> film(setup, artist);
    film.Look(true);
    Measure(film, rate, seconds);
  }
}
