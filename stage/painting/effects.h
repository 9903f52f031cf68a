// Effects: what has happened is shown by painting that no rule can see. It is no control, takes no clicks and
// wakes nobody up between beats.
#pragma once

#include <functional>
#include <variant>
#include <vector>

#include "stage/forms/controls.h"
#include "stage/time/refreshes.h"

namespace stage {

class Stage;

/// What an effect is seen with.
struct Eye {
  const Viewport& viewport;
  Drawings& drawings;
  Moment refresh;  // from one refresh of the display to the next
};

/// How an effect is seen at one moment.
struct Scene {
  /// How much of 256 the image that it is on lets be seen of itself.
  Pixel opacity = kWhole;
  /// Painted over all controls of the form, one after the other.
  std::vector<std::variant<Light, Ghost>> marks;
};

/// An effect as it is designed: how long it lasts, and how it is seen at an age from 0 on. What glides is
/// seen a little late, and so is the effect, unless it takes the place of something that is gone at once.
struct Effect {
  Moment length;
  std::function<Scene(Moment age, const Eye& eye)> look;
  bool at_once = false;
};

/// All effects on a stage, seen at the display's refreshes like what glides. There are none on a machine that
/// wants stillness or has no refreshes, and none but on the form that keys go to. All but those that are kept
/// end when another form is shown or unloaded, each at the latest with its image.
class EffectSet {
 public:
  explicit EffectSet(Stage& stage);

  /// What happens now, to the image, is to be seen. Of two that fade the same image the later one is seen.
  void Begin(Image& on, Effect effect);
  /// The effect is seen whenever `holds` has come to be true, and as long as it stays so.
  void Keep(Image& on, std::function<bool()> holds, Effect effect);
  /// One that begins now on an image of this form is seen.
  bool WantedOn(Form& form);
  void Clear();
  void Forget(const Control& control);

  /// Takes every effect to how it is to be seen at the last refresh.
  void Show();
  /// Adds the pixels to paint anew since the last call.
  void TakeChanges(Region& changed);
  void Paint(const Canvas& canvas) const;
  /// The next beat if anything is to be seen, else a time that never comes.
  Moment NextBeat() const;

 private:
  struct Running {
    Image* on;
    const Control* control;  // the same, also when it is no image any more
    Effect effect;
    std::function<bool()> holds;  // of those that are kept
    std::optional<Moment> begin;
    Scene scene;
    std::vector<PixelRect> painted;
    bool changed = false;
  };

  bool Wanted();
  void Step(Running& running, Moment seen, const Eye& eye);
  void Leave(Running& running);

  Stage& stage_;
  Refreshes refreshes_;
  std::vector<Running> running_;
};

}  // namespace stage
