#include "stage/forms/controls.h"

#include <algorithm>

#include "stage/forms/form.h"
#include "stage/stage.h"

namespace stage {

void Container::Add(Control& control) {
  const auto above = std::find_if(layers_.begin(), layers_.end(), [&](const Control* other) {
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
  layers_.insert(std::next(std::find(layers_.begin(), layers_.end(), &below)), &control);
}

void Container::BringToFront(Control& control) {
  Remove(control);
  Add(control);
  control.Changing();
}

Control* Container::At(TwipPoint point) const {
  for (auto control = layers_.rbegin(); control != layers_.rend(); ++control) {
    if ((*control)->Visible && (*control)->Enabled && (*control)->Area().Contains(point))
      return (*control)->At(point);
  }
  return nullptr;
}

void Container::TakeChangesOfControls(const Viewport& viewport, bool moved, Region& changed) const {
  for (Control* control : layers_) control->TakeChanges(viewport, moved, changed);
}

void Container::PaintControls(const Canvas& canvas) const {
  for (const Control* control : layers_) {
    if (canvas.Touches(control->Painted())) control->Paint(canvas);
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
  container_.Owner().Forget(*this);
}

void Control::Changing() {
  changed_ = true;
  container_.Owner().Touch();
}

void Control::Moving() {
  moved_ = true;
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
  if (changed_ || moved_ || moved) {
    const PixelRect now =
        Shown() ? Pixels(viewport).Cut(viewport.ToPixels(container_.Interior())) : PixelRect{};
    if (changed_ || moved || now != painted_) {
      changed.Add(painted_);
      changed.Add(now);
    }
    painted_ = now;
  }
  TakeChangesInside(viewport, changed_ || moved_ || moved, changed);
  changed_ = false;
  moved_ = false;
}

Image::Image(Container& container, const Design& design, PictureRef picture, bool stretch)
    : Control(container, design), Stretch(this, stretch), Picture(this, picture) {
  TakeNaturalSize(picture);
}

Image::Image(Container& container, const Image& other)
    : Control(container, {}), Stretch(this, other.Stretch.Get()), Picture(this, other.Picture.Get()) {
  Visible = false;
  Enabled = other.Enabled;
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

void Image::ShowAt(std::optional<Seen> seen) {
  constexpr Double kNearEnough = 0.01;  // twips
  const bool same = seen.has_value() == seen_.has_value() &&
                    (!seen || (std::abs(seen->corner.x - seen_->corner.x) < kNearEnough &&
                               std::abs(seen->corner.y - seen_->corner.y) < kNearEnough &&
                               seen->between_pixels == seen_->between_pixels));
  if (same) return;
  seen_ = seen;
  Changing();
}

void Image::ShowFaded(Pixel opacity) {
  if (opacity == opacity_) return;
  opacity_ = opacity;
  Changing();
}

PixelSize Image::DrawnSize(const Viewport& viewport) const {
  const PictureRef picture = Picture;
  if (picture != nullptr && !Stretch) return viewport.NaturalSize(picture->natural);
  const TwipRect area = Area();
  return {viewport.Length(area.width), viewport.Length(area.height)};
}

TwipRect Image::SeenArea() const {
  TwipRect area = Area();
  if (seen_) {
    area.left = seen_->corner.x;
    area.top = seen_->corner.y;
  }
  return area;
}

PixelRect Image::Pixels(const Viewport& viewport) const {
  const bool between = seen_ && seen_->between_pixels;
  return between ? viewport.ToPixelsAround(seen_->corner, DrawnSize(viewport))
                 : viewport.ToPixels(SeenArea());
}

void Image::Paint(const Canvas& canvas) const {
  const PictureRef picture = Picture;
  if (picture == nullptr) return;
  const PixelSize size = DrawnSize(canvas.View());
  if (seen_ && seen_->between_pixels) {
    canvas.DrawBetween(seen_->corner, *picture, size, opacity_);
  } else {
    canvas.Draw(SeenArea(), *picture, size, opacity_);
  }
}

Label::Label(Container& container, const Design& design, const Style& style, std::string caption)
    : Control(container, design),
      style_(style),
      Caption(this, std::move(caption)),
      ForeColor(this, style.colour),
      FontSize(this, style.font.points) {}

Drawings& Label::Made() const { return GetContainer().Owner().OnStage().Painting().Made(); }

TextLine Label::LineThatFits(const Viewport& viewport) const {
  constexpr Single kSmaller = 0.97F;
  const Double scale = viewport.Scale();
  const int room = Control::Pixels(viewport).Width();
  TextLine line{style_.font, style_.align};
  line.font.points = Single(FontSize);
  // What is written is kept; to measure it again would cost as much as to write it.
  if (style_.fit_to_text || Made().Of(line.font, scale, Caption)->size.width <= room) return line;
  Font smaller = line.font;
  while (smaller.points > 1 && Made().TextWidth(smaller, scale, Caption.Get()) > room)
    smaller.points *= kSmaller;
  line.drop = Made().Ascent(line.font, scale) - Made().Ascent(smaller, scale);
  line.font = smaller;
  return line;
}

void Label::Paint(const Canvas& canvas) const {
  canvas.Write(Area(), LineThatFits(canvas.View()), Caption, PixelOf(ForeColor));
}

PixelRect Label::Pixels(const Viewport& viewport) const {
  const PixelRect area = Control::Pixels(viewport);
  if (Caption.Get().empty()) return area;
  return area.Join(Made().PlaceOf(LineThatFits(viewport), viewport, Area(), Caption));
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
