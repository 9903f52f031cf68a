// What comes from outside, brought to the form and the control that it concerns.
#include "stage/stage.h"

namespace stage {

void Stage::Dispatch(const Event& event) {
  const TimerSet::Outside outside(timers_);
  std::visit([this](const auto& kind) { Handle(kind); }, event);
}

void Stage::ForgetInput() {
  while (const auto event = platform_.NextEvent()) {
    if (const auto* const pointer = std::get_if<PointerMoved>(&*event)) {
      Locate(*pointer);
    } else if (const auto* const released = std::get_if<PointerReleased>(&*event)) {
      Release(released->button);
    } else if (std::holds_alternative<DisplayChanged>(*event)) {
      Handle(DisplayChanged{});
    } else if (std::holds_alternative<CloseAsked>(*event) || std::holds_alternative<QuitAsked>(*event)) {
      Handle(QuitAsked{});
    }
  }
}

void Stage::Locate(const PointerMoved& pointer) {
  pointer_ = painter_.View().ToTwips({pointer.x, pointer.y});
}

void Stage::Release(int button) {
  buttons_ &= ~button;
  if (buttons_ == 0) keeper_.reset();
}

Stage::Pointed Stage::UnderPointer() const {
  if (const auto keeper = keeper_.lock()) return {keeper};
  for (auto form = forms_.rbegin(); form != forms_.rend(); ++form) {
    if ((*form)->Interior().Contains(pointer_)) return {*form, (*form)->At(pointer_)};
    if (!modal_.empty() && form->get() == modal_.back()) break;
  }
  return {};
}

Place Stage::PlaceIn(const Form& form) const {
  const TwipRect interior = form.Interior();
  const Units units = form.InteriorUnits();
  return {Single((pointer_.x - interior.left) / units.x), Single((pointer_.y - interior.top) / units.y)};
}

void Stage::Handle(const PointerMoved& event) {
  Locate(event);
  const auto set = std::exchange(pointer_set_, std::nullopt);
  if (set && event.x == set->x && event.y == set->y) return;
  const auto [form, control] = UnderPointer();
  if (!form) return;
  if (control == nullptr) {
    const Place place = PlaceIn(*form);
    return form->Form_MouseMove(buttons_, event.shift, place.Left, place.Top);
  }
  const TwipRect area = control->Area();
  const Units units = control->MouseUnits();
  const auto x = Single((pointer_.x - area.left) / units.x);
  const auto y = Single((pointer_.y - area.top) / units.y);
  if (const MouseMoveHandler move = control->MouseMove) {  // a copy: it may end its control
    move(buttons_, event.shift, x, y);
  }
}

void Stage::Handle(const PointerPressed& event) {
  buttons_ |= event.button;
  const bool kept = !keeper_.expired();
  const auto [form, control] = UnderPointer();
  if (!form) return;
  if (control != nullptr) {
    if (event.button != kLeftButton) return;
    if (control->TakesFocus()) form->SetFocus(*control);
    return control->Press(pointer_);
  }
  keeper_ = form;
  const Place place = PlaceIn(*form);
  if (form->Form_MouseDown(event.button, event.shift, place.Left, place.Top) || kept) return;
  keeper_.reset();
  if (event.button == kLeftButton) form->Form_Click();
}

void Stage::Handle(const PointerReleased& event) {
  const auto keeper = keeper_.lock();
  Release(event.button);
  if (!keeper) return;
  const Place place = PlaceIn(*keeper);
  keeper->Form_MouseUp(event.button, event.shift, place.Left, place.Top);
}

void Stage::Handle(const WheelTurned& event) {
  if (const auto [form, control] = UnderPointer(); form) form->Form_Wheel(event.steps, event.shift);
}

void Stage::Handle(const KeyPressed& event) {
  if (forms_.empty()) return;
  const auto form = forms_.back();
  form->Form_KeyDown(event.code, event.shift);
  if (ActiveForm() != form.get() || form->Focus() == nullptr) return;
  if (event.code == key::kTab) {
    form->MoveFocus();
  } else {
    form->Focus()->KeyDown(event.code, event.shift);
  }
}

void Stage::Handle(const KeyReleased& event) {
  if (forms_.empty()) return;
  const auto form = forms_.back();
  form->Form_KeyUp(event.code, event.shift);
}

void Stage::Handle(const TextTyped& event) {
  if (forms_.empty()) return;
  const auto form = forms_.back();
  if (form->Focus() != nullptr) form->Focus()->Type(event.text);
}

void Stage::Handle(const CloseAsked&) {
  if (forms_.empty()) return;
  const auto form = forms_.back();
  if (quitting_ || form->Form_QueryUnload()) form->Unload();
}

void Stage::Handle(const QuitAsked&) { quitting_ = true; }

void Stage::Handle(const DisplayChanged&) {
  painter_.Forget();
  Touch();
}

}  // namespace stage
