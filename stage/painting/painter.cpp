#include "stage/painting/painter.h"

#include <algorithm>

namespace stage {

Viewport Painter::View() const { return viewport_ ? *viewport_ : Viewport(screen_, platform_.DisplaySize()); }

void Painter::Paint(const FormList& forms, EffectSet& effects) {
  const auto target = platform_.Canvas();
  if (!target) return;
  const bool anew = !viewport_ || size_ != target->size;
  if (anew) {
    size_ = target->size;
    viewport_.emplace(screen_, size_);
    region_.Add({0, 0, size_.width, size_.height});
  }
  for (const auto& form : forms) form->TakeChanges(*viewport_, anew, region_);
  effects.TakeChanges(region_);
  Region visible;
  for (const PixelRect& rect : region_.Rects()) visible.Add(rect.Cut({0, 0, size_.width, size_.height}));
  region_.Clear();
  if (visible.Empty()) return;
  for (const PixelRect& rect : visible.Rects()) Compose(*target, rect, forms, effects);
  platform_.Present(visible.Rects());
}

void Painter::Compose(const Framebuffer& target, const PixelRect& rect, const FormList& forms,
                      const EffectSet& effects) {
  const Canvas canvas(target, *viewport_, drawings_, rect);
  const auto covers = [&](const auto& form) {
    return form->Opaque() && viewport_->ToPixels(form->Interior()).Covers(rect);
  };
  const auto covering = std::find_if(forms.rbegin(), forms.rend(), covers);
  auto lowest = forms.begin();
  if (covering != forms.rend()) {
    lowest = std::prev(covering.base());
  } else {
    canvas.FillAll(0);
  }
  const Canvas screen = canvas.Within({0, 0, screen_.Width, screen_.Height});
  for (auto form = lowest; form != forms.end(); ++form) (*form)->Paint(screen);
  effects.Paint(screen);
}

}  // namespace stage
