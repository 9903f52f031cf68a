#include "tools/replay/names.h"

#include <optional>
#include <stdexcept>

#include "tools/replay/json.h"
#include "tools/replay/words.h"

namespace replay {
namespace {

using korvane::game;
using stage::Double;
using stage::Flag;
using stage::Integer;
using stage::Long;
using stage::Single;

[[noreturn]] void Refuse(const std::string& why) { throw std::runtime_error(why); }

template <class Value>
Value FromText(std::string_view text) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return std::string(text);
  } else if constexpr (std::is_same_v<Value, Integer>) {
    return stage::CInt(WordAsNumber(text));
  } else if constexpr (std::is_same_v<Value, Long>) {
    return stage::CLng(WordAsNumber(text));
  } else if constexpr (std::is_same_v<Value, Flag>) {
    return WordAsNumber(text) != 0;
  } else {
    return static_cast<Value>(WordAsNumber(text));
  }
}

template <class Value>
std::string ToJson(const Value& value) {
  if constexpr (std::is_same_v<Value, Single>) {
    return Json(Double(value));
  } else {
    return Json(value);
  }
}

template <class Value>
Name Variable(std::string name, Value& variable) {
  return {std::move(name), [&variable] { return ToJson(variable); },
          [&variable](std::string_view text) { variable = FromText<Value>(text); }};
}

template <class Value, auto OnSet, class Read>
Name PropertyName(std::string name, stage::Property<Value, OnSet, Read>& property) {
  return {std::move(name), [&property] { return ToJson(property.Get()); },
          [&property](std::string_view text) { property = FromText<Value>(text); }};
}

template <class Value, int Count>
std::string AllOf(korvane::Vetor<Value, Count>& values) {
  JsonGroup list('[');
  for (Integer i = 0; i < Count; i = i + 1) list.Add(ToJson(values(i)));
  return list.Done();
}

std::string PictureName(stage::PictureRef picture) {
  return picture == nullptr ? "" : std::string(picture->name);
}

std::string ImageState(const stage::Control& control) {
  JsonGroup group('{');
  group.Add("Left", ToJson(control.Left.Get()));
  group.Add("Top", ToJson(control.Top.Get()));
  group.Add("Width", ToJson(control.Width.Get()));
  group.Add("Height", ToJson(control.Height.Get()));
  group.Add("Visible", ToJson(control.Visible.Get()));
  return group.Done();
}

std::string AllVisible(stage::ControlArray<stage::Image>& array) {
  JsonGroup list('[');
  for (Integer i = 0; i < array.End(); i = i + 1) {
    if (array.Exists(i)) list.Add(ToJson(array(i).Visible.Get()));
  }
  return list.Done();
}

/// "name(3)" as the name and its index.
struct Indexed {
  std::string_view name;
  Integer index;
};
std::optional<Indexed> SplitIndex(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos || !text.ends_with(')')) return std::nullopt;
  return Indexed{text.substr(0, open),
                 stage::CInt(WordAsNumber(text.substr(open + 1, text.size() - open - 2)))};
}

}  // namespace

Names::Names(game& form) : form_(form) {
  timers_ = {{"Timer_Move", &form.Timer_Move},
             {"Timer_Move2", &form.Timer_Move2},
             {"Timer2", &form.Timer2},
             {"TimerDescebonus", &form.TimerDescebonus},
             {"TimerBonusParado", &form.TimerBonusParado},
             {"TimerPisca", &form.TimerPisca},
             {"timerDefine", &form.timerDefine}};
  AddGame();
  AddShared();
  AddControls();
  AddTimers();
}

template <class Value>
void Names::AddVariable(std::string name, Value& variable) {
  parts_.push_back(Variable(std::move(name), variable));
}

void Names::AddGame() {
  game& g = form_;
  AddVariable("paused", g.paused);
  AddVariable("VelX", g.VelX);
  AddVariable("VelY", g.VelY);
  AddVariable("Vidas", g.Vidas);
  AddVariable("BolaPresa", g.BolaPresa);
  AddVariable("Caminho", g.Caminho);
  AddVariable("FaseAtual", g.FaseAtual);
  AddVariable("Serie", g.Serie);
  AddVariable("ProximoBox", g.ProximoBox);
  AddVariable("BonusCaindo", g.BonusCaindo);
  AddVariable("BonusParado", g.BonusParado);
  AddVariable("Magnetico", g.Magnetico);
  AddVariable("LarguraBase", g.LarguraBase);
  AddVariable("TamanhoUser", g.TamanhoUser);
  AddVariable("TipoPisca", g.TipoPisca);
  AddVariable("BonusExcluido", g.BonusExcluido);
  AddVariable("TemRigido", g.TemRigido);
  AddVariable("TopoInicial", g.TopoInicial);
  AddVariable("TempoInicial", g.TempoInicial);
  AddVariable("BatidasRigido", g.BatidasRigido);
  AddVariable("DeslocaBola", g.DeslocaBola);
  AddVariable("EstadoPisca", g.EstadoPisca);
}

void Names::AddShared() {
  korvane::Module1& m = form_.Module1;
  AddVariable("AppPath", m.AppPath);
  AddVariable("Iniciado", m.Iniciado);
  AddVariable("Vkorv", m.Vkorv);
  AddVariable("BolaAtual", m.BolaAtual);
  AddVariable("Pontos", m.Pontos);
  AddVariable("NomeRecord", m.NomeRecord);
  AddVariable("RecNovo", m.RecNovo);
  parts_.push_back({"TipoBox", [&m] { return AllOf(m.TipoBox); }});
  parts_.push_back({"RecNome", [&m] { return AllOf(m.RecNome); }});
  parts_.push_back({"RecPontos", [&m] { return AllOf(m.RecPontos); }});
}

void Names::AddControls() {
  game& g = form_;
  parts_.push_back({"ball", [&g] { return ImageState(g.ball); }});
  parts_.push_back({"User", [&g] { return ImageState(g.User); }});
  parts_.push_back({"Imgbonus", [&g] { return ImageState(g.Imgbonus); }});
  parts_.push_back({"Box", [this] { return AllBlocks(); }});
  parts_.push_back({"life", [&g] { return AllVisible(g.life); }});
  parts_.push_back({"Imageball", [&g] { return AllVisible(g.Imageball); }});
  parts_.push_back(PropertyName("LabelPontos", g.LabelPontos.Caption));
  parts_.push_back(PropertyName("Label2", g.Label2.Caption));
}

void Names::AddTimers() {
  parts_.push_back({"timers", [this] {
                      JsonGroup all('{');
                      for (const auto& [name, timer] : timers_) {
                        JsonGroup pair('[');
                        pair.Add(ToJson(timer->Enabled.Get()));
                        pair.Add(ToJson(timer->Interval.Get()));
                        all.Add(name, pair.Done());
                      }
                      return all.Done();
                    }});
}

std::string Names::AllBlocks() const {
  JsonGroup list('[');
  for (Integer i = 1; i < form_.Box.End(); i = i + 1) {
    if (!form_.Box.Exists(i)) continue;
    const stage::Image& block = form_.Box(i);
    JsonGroup row('[');
    row.Add(ToJson(i));
    row.Add(ToJson(block.Left.Get()));
    row.Add(ToJson(block.Top.Get()));
    row.Add(ToJson(block.Width.Get()));
    row.Add(ToJson(block.Height.Get()));
    row.Add(ToJson(block.Visible.Get()));
    const bool typed = i < decltype(form_.Module1.TipoBox)::kCount;
    row.Add(ToJson(typed ? form_.Module1.TipoBox(i) : Integer(0)));
    row.Add(ToJson(PictureName(block.Picture)));
    list.Add(row.Done());
  }
  return list.Done();
}

Name Names::Find(std::string_view name) const {
  for (const Name& part : parts_) {
    if (part.name == name) return part;
  }
  const std::size_t dot = name.find('.');
  if (dot != std::string_view::npos) return PropertyOf(name.substr(0, dot), name.substr(dot + 1));
  if (const auto element = SplitIndex(name)) return ElementOf(element->name, element->index);
  if (stage::Control* const control = FindControl(name)) {
    return {std::string(name), [control] { return ImageState(*control); }};
  }
  Refuse("no such name: " + std::string(name));
}

stage::Timer* Names::FindTimer(std::string_view name) const {
  for (const auto& [known, timer] : timers_) {
    if (known == name) return timer;
  }
  return nullptr;
}

Name Names::ElementOf(std::string_view array, Integer index) const {
  const std::string name = std::string(array) + "(" + std::to_string(index) + ")";
  korvane::Module1& m = form_.Module1;
  if (array == "TipoBox") return Variable(name, m.TipoBox(index));
  if (array == "RecNome") return Variable(name, m.RecNome(index));
  if (array == "RecPontos") return Variable(name, m.RecPontos(index));
  if (stage::Control* const control = FindControl(name)) {
    return {name, [control] { return ImageState(*control); }};
  }
  Refuse("no such name: " + name);
}

stage::Control* Names::FindControl(std::string_view name) const {
  game& g = form_;
  const std::pair<const char*, stage::Control*> controls[] = {
      {"ball", &g.ball},           {"User", &g.User},     {"Imgbonus", &g.Imgbonus},
      {"statusbar", &g.statusbar}, {"Label2", &g.Label2}, {"LabelPontos", &g.LabelPontos},
      {"Image1", &g.Image1}};
  for (const auto& [known, control] : controls) {
    if (known == name) return control;
  }
  const std::pair<const char*, stage::ControlArray<stage::Image>*> arrays[] = {
      {"Box", &g.Box}, {"life", &g.life}, {"Imageball", &g.Imageball}};
  const auto element = SplitIndex(name);
  for (const auto& [known, array] : arrays) {
    if (element && element->name == known && array->Exists(element->index)) return &(*array)(element->index);
  }
  return nullptr;
}

Name Names::PropertyOf(std::string_view owner, std::string_view property) const {
  const std::string name = std::string(owner) + "." + std::string(property);
  stage::Form& form = form_;
  if (owner == "game" && property == "Width") return PropertyName(name, form.Width);
  if (owner == "game" && property == "Height") return PropertyName(name, form.Height);
  if (owner == "game" && property == "ScaleHeight")
    return {name, [&form] { return ToJson(form.ScaleHeight()); }};
  if (stage::Timer* const timer = FindTimer(owner)) {
    if (property == "Enabled") return PropertyName(name, timer->Enabled);
    if (property == "Interval") return PropertyName(name, timer->Interval);
  }
  if (stage::Control* const control = FindControl(owner)) {
    if (property == "Left") return PropertyName(name, control->Left);
    if (property == "Top") return PropertyName(name, control->Top);
    if (property == "Width") return PropertyName(name, control->Width);
    if (property == "Height") return PropertyName(name, control->Height);
    if (property == "Visible") return PropertyName(name, control->Visible);
    if (auto* const label = dynamic_cast<stage::Label*>(control); label != nullptr && property == "Caption") {
      return PropertyName(name, label->Caption);
    }
    if (auto* const image = dynamic_cast<stage::Image*>(control); image != nullptr && property == "Picture") {
      return {name, [image] { return ToJson(PictureName(image->Picture)); },
              [image, &pictures = form_.Palco.Pictures](std::string_view text) {
                image->Picture = text.empty() ? nullptr : pictures.Named(text);
              }};
    }
  }
  Refuse("no such name: " + name);
}

}  // namespace replay
