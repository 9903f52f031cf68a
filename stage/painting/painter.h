// Brings the picture on the display into line with the forms.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "stage/forms/form.h"
#include "stage/machines/platform.h"
#include "stage/painting/effects.h"

namespace stage {

/// Forms that are shown, from the lowest up.
using FormList = std::vector<std::shared_ptr<Form>>;

class Painter {
 public:
  Painter(Platform& platform, ScreenSize screen, std::span<const Asset> assets)
      : platform_(platform), screen_(screen), drawings_(platform.Drawing(), assets) {}

  /// Paints what has changed since the last call and shows it.
  void Paint(const FormList& forms, EffectSet& effects);
  /// What stood on these pixels is gone.
  void Damage(const PixelRect& pixels) { region_.Add(pixels); }
  /// Nothing of the last picture can be relied on.
  void Forget() { viewport_.reset(); }
  /// How the screen lies on the display at this moment.
  Viewport View() const;
  Drawings& Made() { return drawings_; }

 private:
  void Compose(const Framebuffer& target, const PixelRect& rect, const FormList& forms,
               const EffectSet& effects);

  Platform& platform_;
  ScreenSize screen_;
  Drawings drawings_;
  std::optional<Viewport> viewport_;
  PixelSize size_;
  Region region_;
};

}  // namespace stage
