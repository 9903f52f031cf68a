#include "tools/ordeal/kill_drawings.h"

#include <optional>

#include "oficina/desenho/guarda.h"
#include "stage/files/path_text.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/machine.h"
#include "tools/files.h"
#include "tools/ordeal/killing.h"

namespace tools {
namespace {

using desenho::Desenho;
using desenho::Regra;
using std::filesystem::path;

constexpr std::chrono::milliseconds kLongestLife(60);
constexpr int kTurnsToSave = 3;
constexpr int kPeriods = 60000;
constexpr int kLevel = 1;

/// Its rule tells the turn. Drawings differ in length.
Desenho DrawingOf(int turn) {
  constexpr int kMostBlocks = 200;
  constexpr int kInRow = 20;
  Desenho drawing{.regra = {.pisca = 1,
                            .intervalo = Regra::kMenorIntervalo + turn % kPeriods,
                            .barrado = turn / kPeriods},
                  .blocos = {}};
  for (int i = 0; i <= turn % kMostBlocks; ++i)
    drawing.blocos.push_back({.top = 765 + i / kInRow * (desenho::kAlturaNormal + desenho::kVao),
                              .left = 370 + i % kInRow * (desenho::kLarguraNormal + desenho::kVao),
                              .height = desenho::kAlturaNormal,
                              .width = desenho::kLarguraNormal,
                              .type = 1 + (turn + i) % desenho::kLastType});
  return drawing;
}

/// None if the level is not exactly that of a turn.
std::optional<int> TurnOf(const std::string& sav) {
  const Regra rule = desenho::LeDesenho(sav).desenho.regra;
  const int turn = rule.intervalo - Regra::kMenorIntervalo + rule.barrado * kPeriods;
  return sav == desenho::SavDe(DrawingOf(turn)) ? std::optional(turn) : std::nullopt;
}

/// The last turn that each was done in; 0 before the first.
struct Told {
  int drafted = 0;
  int saved = 0;
};

desenho::Guarda GuardaOf(const path& folder) { return desenho::Guarda({folder, {}}); }

struct Left {
  std::string level;
  std::string draft;
};

Left LeftIn(const path& folder) {
  const desenho::Guarda guarda = GuardaOf(folder);
  const auto draft = guarda.Rascunho();
  return {ReadFile(guarda.Fase(kLevel)), draft ? desenho::SavDe(*draft) : std::string()};
}

/// 0 if there is none; raises std::runtime_error for one that is not whole.
int TurnIn(const std::string& sav, const char* what) {
  if (sav.empty()) return 0;
  const auto turn = TurnOf(sav);
  if (!turn) throw std::runtime_error(std::string(what) + " is not whole:\n" + sav);
  return *turn;
}

/// Takes the levels that were kept beside another away, and looks whether one of them is this.
bool TakeKept(const path& folder, const std::string& level) {
  bool there = false;
  std::vector<path> kept;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (stage::TextOf(entry.path().extension()).starts_with(".old")) kept.push_back(entry.path());
  }
  for (const path& file : kept) {
    const std::string text = ReadFile(file);
    if (!TurnOf(text)) throw std::runtime_error(stage::TextOf(file) + " is not whole:\n" + text);
    there = there || text == level;
    std::filesystem::remove(file);
  }
  return there;
}

/// The turn that the folder has come to; raises std::runtime_error if something is lost.
int Round(const path& folder, std::mt19937& any, int turns) {
  const std::string old_level = LeftIn(folder).level;
  Victim<Told> writer({"draw", stage::TextOf(folder), std::to_string(turns + 1)});
  LetLive(any, kLongestLife);
  writer.Kill();
  const Told& told = writer.Has();
  const Left left = LeftIn(folder);
  const int level = TurnIn(left.level, "the level");
  const int draft = TurnIn(left.draft, "the draft");
  const bool kept = TakeKept(folder / "levels", old_level);
  if (left.level != old_level && !old_level.empty() && !kept)
    throw std::runtime_error("the level of the writer before is gone");
  if (level < told.saved || (level == 0 && !old_level.empty()))
    throw std::runtime_error("a level that was saved is gone");
  if (draft != 0 && draft < level) throw std::runtime_error("the draft is older than the level");
  const int last = std::max(level, draft);
  if (last < std::max(told.drafted, turns) || last > told.drafted + 1)
    throw std::runtime_error("what was drawn is at turn " + std::to_string(last) + ", not at " +
                             std::to_string(told.drafted));
  return last;
}

}  // namespace

void WriteDrawings(const path& folder, int first) {
  stage::machine::WriteOutputAsIs();
  desenho::Guarda guarda = GuardaOf(folder);
  Told told{.drafted = first - 1};
  Tell(told);
  for (int turn = first;; ++turn) {
    const Desenho drawing = DrawingOf(turn);
    guarda.GuardaRascunho(drawing);
    told.drafted = turn;
    Tell(told);
    if (turn % kTurnsToSave != 0) continue;
    guarda.Grava(guarda.Fase(kLevel), drawing);
    told.saved = turn;
    Tell(told);
  }
}

bool KillDrawings(int times) try {
  constexpr int kMostLeft = 3;  // the level, the draft, and what is kept beside the level
  const stage::TempFolder folder("José 日本");
  const path levels = folder.Path() / "levels";
  std::mt19937 any(std::random_device{}());
  int turns = 0;
  int left_behind = 0;
  std::ptrdiff_t most_left = 0;
  for (int round = 0; round < times; ++round) {
    turns = Round(folder.Path(), any, turns);
    const auto left = std::filesystem::exists(levels) ? FilesUnderWay(levels) : 0;
    left_behind += left > 0 ? 1 : 0;
    most_left = std::max(most_left, left);
  }
  std::cout << times << " times killed, " << left_behind << " left a file under way, " << turns
            << " drawings kept, at most " << most_left << " files left at once\n";
  return most_left <= kMostLeft;
} catch (const std::runtime_error& lost) {
  std::cerr << lost.what() << '\n';
  return false;
}

}  // namespace tools
