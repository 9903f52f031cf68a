// The controls that lie on forms. Left, Top, Width and Height are in the units of the container's interior.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "stage/forms/property.h"
#include "stage/painting/canvas.h"
#include "stage/painting/region.h"

namespace stage {

class Control;
class Form;

/// What controls lie in: a form, or a picture box on one. Its interior has units of its own.
class Container {
 public:
  explicit Container(Units units) : units_(units) {}
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container() = default;

  Units InteriorUnits() const { return units_; }
  /// The interior on the screen, in twips.
  virtual TwipRect Interior() const = 0;
  virtual Form& Owner() = 0;
  virtual bool Shown() const = 0;

  /// A design size in twips, read in units of the interior.
  Single Across(Double twips) const { return Single(twips / units_.x); }
  Single Down(Double twips) const { return Single(twips / units_.y); }

  /// From the lowest layer up.
  const std::vector<Control*>& Layers() const { return layers_; }
  void Add(Control& control);
  void Remove(const Control& control);
  /// Puts a control directly above another, or in front of all of its sort.
  void PlaceAbove(Control& control, const Control& below);
  void BringToFront(Control& control);
  /// The topmost control at a point of the screen that is visible and enabled, also inside picture boxes.
  Control* At(TwipPoint point) const;
  void TakeChangesOfControls(const Viewport& viewport, bool moved, Region& changed) const;
  /// Paints the controls, as their changes were last taken, on an interior that is already clear.
  void PaintControls(const Canvas& canvas) const;

 private:
  Units units_;
  std::vector<Control*> layers_;
};

/// A design place, in twips of the container.
struct Design {
  Double left = 0;
  Double top = 0;
  Double width = 0;
  Double height = 0;
};

using ClickHandler = std::function<void()>;
/// X and Y count from the control's corner; in units of its own interior if it has one, else of its
/// container. Button tells which are down.
using MouseMoveHandler = std::function<void(Integer Button, Integer Shift, Single X, Single Y)>;

class Control {
 public:
  /// Images and labels lie under every picture box and text box of their container.
  enum class Layer { kGraphical, kWindow };

  Control(Container& container, const Design& design, Layer layer = Layer::kGraphical);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  /// The area on the screen has to be painted anew.
  void Changing();
  /// Wherever that area lies from now on.
  void Moving();
  /// The pixels that it is painted on.
  virtual PixelRect Pixels(const Viewport& viewport) const { return viewport.ToPixels(Area()); }
  virtual void Paint(const Canvas& canvas) const = 0;
  virtual Control* At(TwipPoint) { return this; }
  virtual void TakeChangesInside(const Viewport& /*viewport*/, bool /*moved*/, Region& /*changed*/) const {}
  virtual Units MouseUnits() const { return container_.InteriorUnits(); }
  /// For controls that can hold the input focus.
  virtual bool TakesFocus() const { return false; }
  /// For those that do something with characters typed while they hold it.
  virtual bool TakesText() const { return false; }
  virtual void KeyDown(int /*code*/, int /*shift*/) {}
  virtual void Type(const std::string& /*text*/) {}
  virtual void Press(TwipPoint /*place*/) {
    if (const ClickHandler click = Click) click();  // a copy: it may end its control
  }

  /// Brings the control to the front of the images and labels of its form. Only position 0 is known;
  /// any other raises RuntimeError.
  void ZOrder(Integer position);
  /// Asks for painting; the beat that runs ends with it.
  void Refresh() { Changing(); }

  /// On the screen, in twips.
  TwipRect Area() const;
  bool Shown() const { return Visible && container_.Shown(); }
  Layer GetLayer() const { return layer_; }
  Container& GetContainer() const { return container_; }

  /// Adds the pixels to paint anew since the last call: where the control was and where it is. `moved` tells
  /// that its container has moved.
  void TakeChanges(const Viewport& viewport, bool moved, Region& changed);
  /// The pixels that it lay on then; none if it was not shown.
  const PixelRect& Painted() const { return painted_; }

 private:
  Container& container_;
  Layer layer_;
  bool changed_ = true;
  bool moved_ = false;
  PixelRect painted_;

 public:
  Property<Flag, &Control::Changing, bool> Visible{this, true};
  Property<Single, &Control::Moving, Double> Left;
  Property<Single, &Control::Moving, Double> Top;
  Property<Single, &Control::Changing, Double> Width;
  Property<Single, &Control::Changing, Double> Height;

  /// Without it the pointer goes through to what lies beneath.
  bool Enabled = true;
  ClickHandler Click;
  MouseMoveHandler MouseMove;
};

/// A picture. Stretched it fills the control; else the control takes the natural size of each picture that it
/// is given, and a later change of size cuts the picture off.
class Image : public Control {
 public:
  Image(Container& container, const Design& design, PictureRef picture, bool stretch);
  /// A new element of an array: all of `other` but its Visible, which is false, directly above it.
  Image(Container& container, const Image& other);

  void Paint(const Canvas& canvas) const override;
  PixelRect Pixels(const Viewport& viewport) const override;

  /// Where the image is seen.
  struct Seen {
    TwipPoint corner;  // on the screen
    bool between_pixels = false;
  };
  /// Paints the image there and not where it is, until told otherwise.
  void ShowAt(std::optional<Seen> seen);
  /// Lets what lies beneath through, until told otherwise: this much of 256 is the image.
  void ShowFaded(Pixel opacity);
  /// Where it is seen, in twips of the screen.
  TwipRect SeenArea() const;
  /// Of the whole picture, in pixels of the display.
  PixelSize DrawnSize(const Viewport& viewport) const;

 private:
  void TakeNaturalSize(const PictureRef& picture);

  std::optional<Seen> seen_;
  Pixel opacity_ = kWhole;

 public:
  Property<Flag, &Image::Changing, bool> Stretch;
  Property<PictureRef, &Image::TakeNaturalSize> Picture;
};

/// Colours and font of a label's text.
struct Style {
  Font font;
  Long colour = Rgb(0, 0, 0);
  Align align = Align::kLeft;
  bool fit_to_text = false;  // the text may be longer than the label
};

/// One line of text on whatever lies beneath. A line too long for the label is written smaller on the same
/// base line, unless the label fits to its text; one too high stands out of it below.
class Label : public Control {
 public:
  Label(Container& container, const Design& design, const Style& style, std::string caption);

  void Paint(const Canvas& canvas) const override;
  PixelRect Pixels(const Viewport& viewport) const override;

 private:
  Drawings& Made() const;
  TextLine LineThatFits(const Viewport& viewport) const;

  Style style_;

 public:
  Property<std::string, &Label::Changing> Caption;
  Property<Long, &Label::Changing> ForeColor;
  Property<Single, &Label::Changing, Double> FontSize;
};

/// A black box above the images and labels, with controls of its own inside, in twips.
class PictureBox : public Control, public Container {
 public:
  PictureBox(Container& container, const Design& design);

  TwipRect Interior() const override { return Area(); }
  Form& Owner() override { return GetContainer().Owner(); }
  bool Shown() const override { return Control::Shown(); }
  Control* At(TwipPoint point) override;
  void TakeChangesInside(const Viewport& viewport, bool moved, Region& changed) const override;
  Units MouseUnits() const override { return InteriorUnits(); }
  void Paint(const Canvas& canvas) const override;
};

}  // namespace stage
