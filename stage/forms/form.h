// Forms: rectangles of the screen that hold controls and take keys and clicks.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "stage/forms/controls.h"
#include "stage/forms/window_region.h"

namespace stage {

class Stage;

/// A form as its design data make it. Left, Top, Width and Height are in twips of the screen and are those of
/// the interior; a form has no frame. The procedures are raised by the stage.
class Form : public Container {
 public:
  Form(Stage& stage, std::string name, const Design& design, Units units = {});

  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  /// The system asks the form to close; false keeps it open. At the end of the session nobody asks.
  virtual bool Form_QueryUnload() { return true; }
  virtual void Form_Unload() {}
  virtual void Form_KeyDown(Integer /*KeyCode*/, Integer /*Shift*/) {}
  virtual void Form_KeyUp(Integer /*KeyCode*/, Integer /*Shift*/) {}
  virtual void Form_Click() {}
  virtual void Form_MouseMove(Integer /*Button*/, Integer /*Shift*/, Single /*X*/, Single /*Y*/) {}
  /// A button goes down where no control is. A form that answers true keeps the pointer and hears of no
  /// click: until no button is down, or another form is shown, moves, presses and releases are told to it
  /// alone, over its controls and outside of it too.
  virtual bool Form_MouseDown(Integer /*Button*/, Integer /*Shift*/, Single /*X*/, Single /*Y*/) {
    return false;
  }
  /// Of a form that keeps the pointer.
  virtual void Form_MouseUp(Integer /*Button*/, Integer /*Shift*/, Single /*X*/, Single /*Y*/) {}
  /// Over the form or its controls.
  virtual void Form_Wheel(Integer /*Steps*/, Integer /*Shift*/) {}

  void Unload();
  /// Paints the form now.
  void Refresh();
  /// Height of the interior in its own units.
  Single ScaleHeight() const { return Single(Height / InteriorUnits().y); }

  const std::string& Name() const { return name_; }
  Stage& OnStage() { return stage_; }
  bool Loaded() const { return loaded_; }
  void SetFocus(Control& control);
  Control* Focus() const { return focus_; }
  /// Gives the input focus to the next control that takes it.
  void MoveFocus();

  TwipRect Interior() const override { return {Left, Top, Width, Height}; }
  Form& Owner() override { return *this; }
  bool Shown() const override { return shown_; }
  void Paint(const Canvas& canvas) const;

  /// Only these pixels of the form are seen from now on; with none given all of it is. The region's grid lies
  /// over the form's picture, whatever the display's scale. The window owns it.
  void SetWindowRgn(std::shared_ptr<const WindowRegion> region);
  /// Nothing below shows through.
  bool Opaque() const { return region_ == nullptr; }
  /// Draws a line of this colour around the interior.
  void SetFrame(Pixel colour) { frame_ = colour; }

  /// Something on the form has to be painted anew.
  void Touch();
  /// A control of the form is gone.
  void Forget(const Control& control);
  /// Adds the pixels to paint anew since the last call. `anew` tells that the screen lies on the display in
  /// another way than at that call.
  void TakeChanges(const Viewport& viewport, bool anew, Region& changed);

 private:
  friend class Stage;
  void Changing();
  void PaintInterior(const Canvas& canvas) const;
  PixelSize PictureSize(const Viewport& view) const;

  Stage& stage_;
  std::string name_;
  bool loaded_ = true;
  bool shown_ = false;
  bool changed_ = true;
  PixelRect painted_;
  Control* focus_ = nullptr;
  std::optional<Pixel> frame_;
  std::shared_ptr<const WindowRegion> region_;

 public:
  Property<Single, &Form::Changing, Double> Left;
  Property<Single, &Form::Changing, Double> Top;
  Property<Single, &Form::Changing, Double> Width;
  Property<Single, &Form::Changing, Double> Height;
  /// Shown from the top left corner, below all controls. Null for none.
  PictureRef Picture = nullptr;
  /// Reads back what was last written to it.
  Single CurrentX = 0;
};

/// How a form is shown.
enum Modality { kModeless = 0, kModal = 1 };

/// A form's name. It stands for one shared object, made anew from design data at each Load.
template <class AForm, class Context>
class FormName {
 public:
  FormName(Stage& stage, Context& context) : stage_(stage), context_(context) {}

  bool Loaded() const { return form_ && form_->Loaded(); }
  void Load();
  void Show(Modality modality = kModeless);
  /// Whoever names a form to use it has it loaded.
  AForm* operator->() {
    Load();
    return form_.get();
  }
  /// The form as it was last loaded, if it ever was.
  AForm* Last() const { return form_.get(); }

 private:
  Stage& stage_;
  Context& context_;
  std::shared_ptr<AForm> form_;
};

}  // namespace stage
