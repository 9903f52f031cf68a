// A platform on which the game plays itself, for measuring what a player sees: help is closed, the ball
// launched and kept in play, always a little off the paddle's middle, in a level with a single block far
// away.
#pragma once

#include <fstream>

#include "core/game.h"
#include "stage/files/temp_folder.h"

namespace tools {

template <class Machine>
class SelfPlayer : public Machine {
 public:
  template <class... Arguments>
  explicit SelfPlayer(Arguments&&... arguments) : Machine(std::forward<Arguments>(arguments)...) {
    std::filesystem::create_directory(folder_.Path() / "levels");
    std::ofstream(folder_.Path() / "levels" / "1.sav") << "pisca,0,500,10,0\r\n9600,0,250,480,5\r\n";
  }

  /// The paddle follows the ball.
  bool moves_paddle = true;

  /// Plays that program until `end`.
  void Play(korvane::Programa& programa, stage::Moment end) {
    programa_ = &programa;
    end_ = end;
    programa.Corre();
  }

  std::optional<stage::Event> NextEvent() override {
    if (auto event = Machine::NextEvent()) return event;
    const stage::Moment now = this->Now();
    if (programa_ == nullptr || now < next_move_ || programa_->Palco.ActiveForm() == nullptr)
      return std::nullopt;
    next_move_ = now + kBetweenMoves;
    if (now >= end_) return stage::QuitAsked{};
    if (programa_->Palco.ActiveForm()->Name() != "game") return stage::KeyPressed{stage::key::kEsc, 0};
    const korvane::game& jogo = *programa_->game.Last();
    if (jogo.BolaPresa) return stage::PointerPressed{};
    if (!moves_paddle) return std::nullopt;
    return PaddleUnder(jogo);
  }
  stage::ProgramFolders Folders() override { return {folder_.Path(), {}}; }

 protected:
  /// The game, while the ball flies at the speed that the game has found for this machine.
  korvane::game* Flying() const {
    if (programa_ == nullptr) return nullptr;
    korvane::game* const jogo = programa_->game.Last();
    const bool flying = jogo != nullptr && jogo->Loaded() && jogo->Module1.Iniciado &&
                        !jogo->timerDefine.Enabled && !jogo->BolaPresa;
    return flying ? jogo : nullptr;
  }

 private:
  static constexpr stage::Moment kBetweenMoves = std::chrono::milliseconds(40);

  stage::PointerMoved PaddleUnder(const korvane::game& jogo) {
    constexpr stage::Double kMeetsAt = 0.7;  // of the paddle's width from its left end
    const stage::Double left = jogo.ball.Left + jogo.ball.Width / 2 - jogo.User.Width * kMeetsAt;
    const stage::Double scale = stage::Double(this->DisplaySize().height) / jogo.Palco.Screen.Height;
    constexpr stage::Double kAbovePaddle = 5000;  // twips
    return {left * jogo.InteriorUnits().x * scale, kAbovePaddle * scale};
  }

  stage::TempFolder folder_;
  korvane::Programa* programa_ = nullptr;
  stage::Moment end_{};
  stage::Moment next_move_{};
};

}  // namespace tools
