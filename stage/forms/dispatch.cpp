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

std::shared_ptr<Form> Stage::FormUnderPointer() const {
  for (auto form = forms_.rbegin(); form != forms_.rend(); ++form) {
    if ((*form)->Interior().Contains(pointer_)) return *form;
    if (!modal_.empty() && form->get() == modal_.back()) break;
  }
  return nullptr;
}

void Stage::Handle(const PointerMoved& event) {
  Locate(event);
  const auto set = std::exchange(pointer_set_, std::nullopt);
  if (set && event.x == set->x && event.y == set->y) return;
  const auto form = FormUnderPointer();
  if (!form) return;
  Control* const control = form->At(pointer_);
  const Units units = control != nullptr ? control->MouseUnits() : form->InteriorUnits();
  const TwipRect area = control != nullptr ? control->Area() : form->Interior();
  const auto x = Single((pointer_.x - area.left) / units.x);
  const auto y = Single((pointer_.y - area.top) / units.y);
  if (control == nullptr) {
    form->Form_MouseMove(0, 0, x, y);
  } else if (const MouseMoveHandler move = control->MouseMove) {  // a copy: it may end its control
    move(0, 0, x, y);
  }
}

void Stage::Handle(const PointerPressed&) {
  const auto form = FormUnderPointer();
  if (!form) return;
  if (Control* const control = form->At(pointer_)) {
    if (control->TakesFocus()) form->SetFocus(*control);
    control->Press(pointer_);
  } else {
    form->Form_Click();
  }
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
  form->Unload();
}

void Stage::Handle(const QuitAsked&) { quitting_ = true; }

void Stage::Handle(const DisplayChanged&) {
  painter_.Forget();
  Touch();
}

}  // namespace stage
