#include "stage/controls.h"

#include <algorithm>

#include "stage/form.h"

namespace stage {

void Container::Add(Control& control) {
  const auto above = std::ranges::find_if(layers_, [&](const Control* other) {
    return control.GetLayer() == Control::Layer::kGraphical && other->GetLayer() == Control::Layer::kWindow;
  });
  layers_.insert(above, &control);
}

void Container::Remove(const Control& control) {
  const auto last = std::find(layers_.rbegin(), layers_.rend(), &control);
  layers_.erase(std::next(last).base());
}

void Container::PlaceAbove(Control& control, const Control& below) {
  Remove(control);
  layers_.insert(std::next(std::ranges::find(layers_, &below)), &control);
  control.Changing();
}

void Container::BringToFront(Control& control) {
  Remove(control);
  Add(control);
  control.Changing();
}

Control* Container::At(TwipPoint point) const {
  for (auto control = layers_.rbegin(); control != layers_.rend(); ++control) {
    if ((*control)->Visible && (*control)->Area().Contains(point)) return (*control)->At(point);
  }
  return nullptr;
}

void Container::TakeChangesOfControls(const Viewport& viewport, bool moved, Region& changed) const {
  for (Control* control : layers_) control->TakeChanges(viewport, moved, changed);
}

void Container::PaintControls(const Canvas& canvas) const {
  for (const Control* control : layers_) {
    if (control->Visible && canvas.Touches(control->Area())) control->Paint(canvas);
  }
}

Control::Control(Container& container, const Design& design, Layer layer)
    : container_(container),
      layer_(layer),
      Left(this, container.Across(design.left)),
      Top(this, container.Down(design.top)),
      Width(this, container.Across(design.width)),
      Height(this, container.Down(design.height)) {
  container_.Add(*this);
  container_.Owner().Touch();
}

Control::~Control() {
  container_.Remove(*this);
  container_.Owner().Damage(painted_);
}

void Control::Changing() {
  changed_ = true;
  container_.Owner().Touch();
}

void Control::ZOrder(Integer position) {
  if (position != 0) throw RuntimeError("no such layer");
  container_.BringToFront(*this);
}

TwipRect Control::Area() const {
  const Units units = container_.InteriorUnits();
  const TwipRect interior = container_.Interior();
  return {interior.left + Left * units.x, interior.top + Top * units.y, Width * units.x, Height * units.y};
}

void Control::TakeChanges(const Viewport& viewport, bool moved, Region& changed) {
  const bool anew = changed_ || moved;
  changed_ = false;
  if (anew) {
    changed.Add(painted_);
    painted_ =
        Shown() ? viewport.ToPixels(Area()).Cut(viewport.ToPixels(container_.Interior())) : PixelRect{};
    changed.Add(painted_);
  }
  TakeChangesInside(viewport, anew, changed);
}

Image::Image(Container& container, const Design& design, PictureRef picture, bool stretch)
    : Control(container, design), Stretch(this, stretch), Picture(this, picture) {
  TakeNaturalSize(picture);
}

Image::Image(Container& container, const Image& other)
    : Control(container, {}), Stretch(this, other.Stretch.Get()), Picture(this, other.Picture.Get()) {
  Visible = false;
  Left = other.Left;
  Top = other.Top;
  Width = other.Width;
  Height = other.Height;
  container.PlaceAbove(*this, other);
}

void Image::TakeNaturalSize(const PictureRef& picture) {
  if (picture != nullptr && !Stretch) {
    Width = GetContainer().Across(picture->natural.width * kTwipsPerPixel);
    Height = GetContainer().Down(picture->natural.height * kTwipsPerPixel);
  }
  Changing();
}

void Image::Paint(const Canvas& canvas) const {
  const PictureRef picture = Picture;
  if (picture == nullptr) return;
  const TwipRect area = Area();
  const Viewport& view = canvas.View();
  canvas.Draw(area, *picture,
              Stretch ? PixelSize{view.Length(area.width), view.Length(area.height)}
                      : view.NaturalSize(picture->natural));
}

Label::Label(Container& container, const Design& design, const Style& style, std::string caption)
    : Control(container, design),
      style_(style),
      Caption(this, std::move(caption)),
      ForeColor(this, style.colour),
      FontSize(this, style.font.points) {}

void Label::Paint(const Canvas& canvas) const {
  Font font = style_.font;
  font.points = Single(FontSize);
  const TwipRect area = Area();
  (style_.fit_to_text ? canvas : canvas.Within(area))
      .Write(area, font, Caption, PixelOf(ForeColor), style_.align);
}

PictureBox::PictureBox(Container& container, const Design& design)
    : Control(container, design, Layer::kWindow), Container(Units{}) {}

Control* PictureBox::At(TwipPoint point) {
  Control* const inside = Container::At(point);
  return inside != nullptr ? inside : this;
}

void PictureBox::TakeChangesInside(const Viewport& viewport, bool moved, Region& changed) const {
  TakeChangesOfControls(viewport, moved, changed);
}

void PictureBox::Paint(const Canvas& canvas) const {
  const Canvas inside = canvas.Within(Area());
  inside.Fill(Area(), 0);
  PaintControls(inside);
}

}  // namespace stage
