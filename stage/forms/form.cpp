#include "stage/forms/form.h"

#include "stage/stage.h"

namespace stage {

Form::Form(Stage& stage, std::string name, const Design& design, Units units)
    : Container(units),
      stage_(stage),
      name_(std::move(name)),
      Left(this, Single(design.left)),
      Top(this, Single(design.top)),
      Width(this, Single(design.width)),
      Height(this, Single(design.height)) {}

void Form::Unload() { stage_.Unload(*this); }

void Form::Refresh() { stage_.PaintNow(); }

void Form::SetFocus(Control& control) {
  if (focus_ != nullptr) focus_->Changing();
  focus_ = &control;
  control.Changing();
}

void Form::MoveFocus() {
  std::vector<Control*> takers;
  for (Control* control : Layers()) {
    if (control->TakesFocus()) takers.push_back(control);
  }
  if (takers.empty()) return;
  const auto now = std::find(takers.begin(), takers.end(), focus_);
  SetFocus(now == takers.end() || std::next(now) == takers.end() ? *takers.front() : **std::next(now));
}

void Form::SetWindowRgn(std::shared_ptr<const WindowRegion> region) {
  region_ = std::move(region);
  Changing();
}

void Form::Paint(const Canvas& canvas) const {
  const Canvas inside = canvas.Within(Interior());
  if (inside.Hidden()) return;
  if (!region_) return PaintInterior(inside);
  const PixelRect corner = inside.View().ToPixels(Interior());
  const PixelSize grid = region_->Size();
  const PixelSize shown = PictureSize(inside.View());
  const auto scaled = [](int place, int to, int from) { return (place * to + from - 1) / from; };
  for (const Run& run : region_->Seen()) {
    const PixelRect part{corner.left + scaled(run.x0, shown.width, grid.width),
                         corner.top + scaled(run.y, shown.height, grid.height),
                         corner.left + scaled(run.x1, shown.width, grid.width),
                         corner.top + scaled(run.y + 1, shown.height, grid.height)};
    const Canvas cut = inside.WithinPixels(part);
    if (!cut.Hidden()) PaintInterior(cut);
  }
}

void Form::PaintInterior(const Canvas& canvas) const {
  canvas.Fill(Interior(), 0);
  if (Picture != nullptr) canvas.Draw(Interior(), *Picture, PictureSize(canvas.View()));
  PaintControls(canvas);
  if (frame_) canvas.Frame(Interior(), *frame_);
}

PixelSize Form::PictureSize(const Viewport& view) const {
  return Picture == nullptr ? PixelSize{} : view.NaturalSize(Picture->natural);
}

void Form::Changing() {
  changed_ = true;
  Touch();
}

void Form::Touch() { stage_.Touch(); }

void Form::Forget(const Control& control) {
  if (focus_ == &control) focus_ = nullptr;
  stage_.Effects().Forget(control);
  stage_.Damage(control.Painted());
}

void Form::TakeChanges(const Viewport& viewport, bool anew, Region& changed) {
  const bool moved = changed_ || anew;
  changed_ = false;
  if (moved) {
    changed.Add(painted_);
    painted_ = shown_ ? viewport.ToPixels(Interior()) : PixelRect{};
    changed.Add(painted_);
  }
  TakeChangesOfControls(viewport, moved, changed);
}

}  // namespace stage
