#include "tools/replay/replay.h"

#include "assets/assets.h"
#include "stage/files/path_text.h"
#include "stage/forms/dialogs.h"
#include "stage/machines/scripted/picture_file.h"
#include "tools/replay/json.h"
#include "tools/replay/words.h"

namespace replay {
namespace {

using stage::Double;
using stage::Single;

stage::Moment Seconds(const std::string& text) {
  constexpr Double kMost = 1e6;
  const Double seconds = Numbers(text, 1, 1)[0];
  if (!(seconds >= 0 && seconds <= kMost)) throw std::runtime_error("no such time: " + text);
  return std::chrono::duration_cast<stage::Moment>(std::chrono::duration<Double>(seconds));
}

std::int64_t Whole(const std::string& text, Double most) {
  const Double value = Numbers(text, 1, 1)[0];
  if (value < 0 || value > most || value != stage::Int(value)) {
    throw std::runtime_error("not a whole number in range: " + text);
  }
  return static_cast<std::int64_t>(value);
}

}  // namespace

Replay::Played::Played(const stage::ScriptedSetup& setup)
    : platform(setup, *artist), programa(platform, korvane::Assets()) {}

bool Replay::Read(Line& line) {
  std::string text;
  while (std::getline(script_, text)) {
    ++line_;
    if (text.ends_with('\r')) text.pop_back();
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string::npos || text[start] == '#') continue;
    const std::size_t end = std::min(text.find_first_of(" \t", start), text.size());
    line = {text.substr(start, end - start), text.substr(std::min(end + 1, text.size()))};
    return true;
  }
  return false;
}

void Replay::Run() try {
  Line line;
  while (Read(line)) {
    if (!played_ && line.verb == "start") {
      Start();
      continue;
    }
    try {
      played_ ? void(Do(line)) : Prepare(line);
    } catch (const std::runtime_error& error) {
      throw ScriptError(line_, error.what());
    }
  }
} catch (const ScriptDone&) {
  return;
}

void Replay::Prepare(const Line& line) {
  if (line.verb == "screen") {
    const auto size = Numbers(line.rest, 2, 2);
    constexpr Double kLargest = 32767;
    if (!(size[0] >= 15 && size[0] <= kLargest && size[1] >= 15 && size[1] <= kLargest)) {
      throw std::runtime_error("no such screen");
    }
    setup_.screen = {Single(size[0]), Single(size[1])};
  } else if (line.verb == "scale") {
    constexpr Double kMostScale = 8;
    setup_.scale = Numbers(line.rest, 1, 1)[0];
    if (!(setup_.scale > 0 && setup_.scale <= kMostScale)) throw std::runtime_error("no such scale");
  } else if (line.verb == "refresh") {
    constexpr Double kMostRefreshes = 500;
    setup_.refresh_rate = static_cast<int>(Whole(line.rest, kMostRefreshes));
  } else if (line.verb == "clock") {
    setup_.seconds_of_day = Numbers(line.rest, 1, 1)[0];
  } else if (line.verb == "folder") {
    setup_.folder = std::filesystem::absolute(stage::PathOf(line.rest));
  } else if (line.verb == "seed") {
    Seed(line.rest);
  } else if (line.verb == "rnd") {
    Draws(line.rest);
  } else {
    throw std::runtime_error("not before start: " + line.verb);
  }
}

void Replay::Start() {
  if (setup_.folder.empty()) {
    folder_.emplace();
    folder_->TakeProgramFolders(built_);
    setup_.folder = folder_->Path();
  }
  played_.emplace(setup_);
  played_->platform.Director = [this] { Direct(); };
  stage::Random& random = played_->programa.Palco.Draws;
  if (seed_) random.Fix(*seed_);
  random.Prepared() = draws_;
  played_->programa.Corre();
  ended_ = true;
}

void Replay::Direct() {
  bool proceed = false;
  while (beats_ == 0 && !proceed) {
    Line line;
    if (!Read(line)) throw ScriptDone{};
    try {
      proceed = Do(line);
    } catch (const std::runtime_error& error) {
      throw ScriptError(line_, error.what());
    }
  }
  if (beats_ > 0) {
    --beats_;
    played_->platform.PassTo(stage::kBeat);
  }
}

bool Replay::Do(const Line& line) {
  stage::ScriptedPlatform& platform = played_->platform;
  const std::string& verb = line.verb;
  if (input_.Send(platform, verb, line.rest)) return true;
  if (verb == "beats") {
    constexpr Double kMostBeats = 1e9;
    beats_ = Whole(line.rest, kMostBeats);
  } else if (verb == "beat") {
    OnlyTimers(line.rest);
    beats_ = 1;
  } else if (verb == "clock") {
    platform.SetSecondsOfDay(Numbers(line.rest, 1, 1)[0]);
  } else if (verb == "pass") {
    platform.Pass(Seconds(line.rest));
  } else if (verb == "seed") {
    Seed(line.rest);
  } else if (verb == "rnd") {
    Draws(line.rest);
  } else if (verb == "set") {
    Set(line.rest);
  } else if (verb == "state") {
    PrintState();
  } else if (verb == "get") {
    PrintValues(line.rest);
  } else if (verb == "picture") {
    Picture(line.rest);
  } else {
    throw std::runtime_error("no such line: " + verb);
  }
  return false;
}

void Replay::Seed(const std::string& rest) {
  constexpr Double kMostSeed = 4294967295.0;
  seed_ = static_cast<std::uint32_t>(Whole(rest, kMostSeed));
  if (played_) played_->programa.Palco.Draws.Fix(*seed_);
}

void Replay::Draws(const std::string& rest) {
  std::deque<Single>& draws = played_ ? played_->programa.Palco.Draws.Prepared() : draws_;
  if (rest == "clear") return draws.clear();
  for (const Double value : Numbers(rest, 1, 100000)) {
    const auto draw = Single(value);
    if (!(draw >= 0 && draw < 1)) throw std::runtime_error("a draw lies between 0 and 1");
    draws.push_back(draw);
  }
}

void Replay::OnlyTimers(const std::string& rest) {
  const Names names(played_->Game());
  std::deque<stage::Timer*> timers;
  for (const std::string& word : Words(rest)) {
    timers.push_back(names.FindTimer(word));
    if (timers.back() == nullptr) throw std::runtime_error("no such timer: " + word);
  }
  played_->programa.Palco.Timers().OnlyOnNextBeat(std::move(timers));
}

void Replay::Set(const std::string& rest) {
  const std::size_t end = rest.find(' ');
  const std::string name = rest.substr(0, end);
  const Names names(played_->Game());
  const Name found = names.Find(name);
  if (!found.write) throw std::runtime_error("cannot be set: " + name);
  found.write(end == std::string::npos ? "" : rest.substr(end + 1));
}

void Replay::Picture(const std::string& file) {
  stage::ScriptedPlatform& platform = played_->platform;
  stage::Stage& stage = played_->programa.Palco;
  platform.Look(true);
  stage.Repaint();
  const auto canvas = platform.Canvas();
  const bool saved = canvas && stage::SavePng(*canvas, stage::PathOf(file));
  platform.Look(false);
  if (!saved) throw std::runtime_error("cannot write " + file);
}

/// What the state tells of the run itself.
std::vector<Name> Replay::RunNames() {
  stage::Stage& stage = played_->programa.Palco;
  const stage::Form* const form = ended_ ? nullptr : stage.ActiveForm();
  const auto* const dialog = dynamic_cast<const stage::Dialog*>(form);
  constexpr Double kMicrosecondsInMillisecond = 1000;
  std::vector<Name> names;
  names.push_back(
      {"t", [this] { return Json(Double(played_->platform.Now().count()) / kMicrosecondsInMillisecond); }});
  names.push_back({"form", [form] { return Json(form == nullptr ? "" : form->Name()); }});
  if (dialog != nullptr) names.push_back({"message", [dialog] { return Json(dialog->Message()); }});
  names.push_back({"cursor", [&stage] { return Json(stage.CursorCounter()); }});
  names.push_back({"sounds", [this] {
                     JsonGroup list('[');
                     for (const std::string& sound : played_->platform.TakeSounds()) list.Add(Json(sound));
                     return list.Done();
                   }});
  names.push_back({"ended", [this] { return std::string(ended_ ? "true" : "false"); }});
  return names;
}

void Replay::PrintState() {
  const Names names(played_->Game());
  std::vector<Name> all = RunNames();
  all.insert(std::next(all.begin()), names.Parts().begin(), names.Parts().end());
  JsonGroup state('{');
  for (const Name& part : all) state.Add(part.name, part.read());
  out_ << state.Done() << '\n';
}

void Replay::PrintValues(const std::string& rest) {
  const Names names(played_->Game());
  const std::vector<Name> run = RunNames();
  JsonGroup values('{');
  for (const std::string& word : Words(rest)) {
    const auto of_run =
        std::find_if(run.begin(), run.end(), [&](const Name& name) { return name.name == word; });
    values.Add(word, of_run != run.end() ? of_run->read() : names.Find(word).read());
  }
  out_ << values.Done() << '\n';
}

}  // namespace replay
