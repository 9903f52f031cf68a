// Arrays of controls: one name, a 16-bit index, and one handler for all elements.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "stage/forms/controls.h"

namespace stage {

template <class Element>
class ControlArray {
 public:
  /// One handler serves all elements and gets the element's index.
  std::function<void(Integer Index)> Click;
  std::function<void(Integer Index, Integer Button, Integer Shift, Single X, Single Y)> MouseMove;

  /// `design` fills the array with the elements of the form's design. Errors name the array by `name`.
  ControlArray(Container& container, std::string name, const std::function<void(ControlArray&)>& design)
      : container_(container), name_(std::move(name)) {
    design(*this);
  }
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  /// Adds an element of the form's design; it cannot be unloaded.
  template <class... Arguments>
  void Design(Integer index, Arguments&&... arguments) {
    Put(index, std::make_unique<Element>(container_, std::forward<Arguments>(arguments)...));
    designed_.resize(elements_.size());
    designed_[Slot(index)] = true;
  }

  /// Creates an element after the lowest one there is, hidden. Raises RuntimeError if it exists.
  void Load(Integer index) {
    if (Exists(index)) Refuse(index, "is loaded already");
    const auto lowest = std::find_if(elements_.begin(), elements_.end(),
                                     [](const auto& element) { return element != nullptr; });
    if (lowest == elements_.end()) Refuse(index, "has no element to be made after");
    Put(index, std::make_unique<Element>(container_, **lowest));
  }

  /// Removes an element made by Load. Raises RuntimeError if there is none.
  void Unload(Integer index) {
    if (!Exists(index)) Refuse(index, "does not exist");
    if (Slot(index) < designed_.size() && designed_[Slot(index)]) Refuse(index, "is of the design");
    elements_[Slot(index)].reset();
  }

  bool Exists(Integer index) const {
    return index >= 0 && Slot(index) < elements_.size() && elements_[Slot(index)] != nullptr;
  }

  /// Raises RuntimeError if there is no such element.
  Element& operator()(Integer index) {
    if (!Exists(index)) Refuse(index, "does not exist");
    return *elements_[Slot(index)];
  }

  /// One above the highest index that has been used.
  Integer End() const { return Integer(elements_.size()); }

 private:
  [[noreturn]] void Refuse(Integer index, const char* why) const {
    throw RuntimeError(name_ + '(' + std::to_string(index) + ") " + why);
  }
  static std::size_t Slot(Integer index) { return static_cast<std::size_t>(int(index)); }

  void Put(Integer index, std::unique_ptr<Element> element) {
    if (index < 0) Refuse(index, "is out of bounds");
    element->Click = [this, index] {
      if (Click) Click(index);
    };
    element->MouseMove = [this, index](Integer button, Integer shift, Single x, Single y) {
      if (MouseMove) MouseMove(index, button, shift, x, y);
    };
    if (Slot(index) >= elements_.size()) elements_.resize(Slot(index) + 1);
    elements_[Slot(index)] = std::move(element);
  }

  Container& container_;
  std::string name_;
  std::vector<std::unique_ptr<Element>> elements_;
  std::vector<bool> designed_;
};

}  // namespace stage
