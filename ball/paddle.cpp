// The paddle's left edge follows the pointer, whatever control the pointer is over.
#include "core/game.h"

namespace korvane {

void game::Form_MouseMove(Integer, Integer, Single X, Single) { MoveUserTestando(X); }

void game::Box_MouseMove(Integer Index, Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUserTestando(CurrentX + Box(Index).Left);
}

void game::Imgbonus_MouseMove(Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUserTestando(CurrentX + Imgbonus.Left);
}

void game::life_MouseMove(Integer Index, Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUserTestando(CurrentX + life(Index).Left);
}

void game::statusbar_MouseMove(Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUserTestando(CurrentX + statusbar.Left);
}

void game::Label2_MouseMove(Integer, Integer, Single X, Single) { MoveUserTestando(Label2.Left + X); }

void game::LabelPontos_MouseMove(Integer, Integer, Single X, Single) {
  MoveUserTestando(LabelPontos.Left + X);
}

void game::User_MouseMove(Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUser(User.Left + CurrentX);
}

void game::Image1_MouseMove(Integer, Integer, Single X, Single) {
  CurrentX = X;
  MoveUser(User.Left + CurrentX);
}

void game::MoveUser(Double posicao) {
  const Double limite = Single(Width - User.Width);
  auto lugar = Single(posicao);
  if (lugar < 0) lugar = 0;
  if (lugar > limite) lugar = Single(limite);
  User.Left = lugar;
}

void game::MoveUserTestando(Double posicao) {
  MoveUser(posicao);
  if (BonusCaindo > -1) TestaBonus();
}

}  // namespace korvane
