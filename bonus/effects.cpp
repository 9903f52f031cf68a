// The one place where a bonus takes effect, wherever it came from.
#include "bonus/tabela.h"
#include "core/game.h"

namespace korvane {

void game::consedebonus(Integer nbonus) {
  if (const Bonus* const bonus = TabelaBonus::De(nbonus)) bonus->faz(*this);
}

void game::TrocaBola(Integer codigo) {
  sound("ball.wav");
  Module1.BolaAtual = codigo;
  ball.Picture = Imageball(codigo).Picture;
  ExibeBolaAtual();
}

void game::PerdeVida() {
  if (!BolaPresa) CaiBola();
  ball.Visible = false;
  Vidas = Vidas - 1;
  sound("end.wav");
  MudaTamanho(2);
  TiraPoderes();
  ExibeBolaAtual();
  ExibeVidas(Vidas);
  if (Vidas < 1) return gameover();
  RepoeBola();
  ball.Visible = true;
  if (TemRigido) passafase();
}

/// What bonuses have done to the ball, or would do once caught, is over.
void game::TiraPoderes() {
  ball.Picture = Imageball(0).Picture;
  Module1.BolaAtual = 0;
  BonusCaindo = -1;
  Magnetico = false;
}

/// The paddle grows and shrinks to the right; its Left stays.
void game::MudaTamanho(Integer tamanho) {
  constexpr Double kPequeno = 0.7;
  TamanhoUser = tamanho;
  if (tamanho == 1) User.Width = Single(LarguraBase * kPequeno);
  if (tamanho == 2) User.Width = Single(LarguraBase);
  if (tamanho == 3) User.Width = Single(Integer(LarguraBase * 2));
  Image1.Width = User.Width;
}

void game::GanhaFase() {
  sound("mais1.wav");
  for (Integer i = 1; i < ProximoBox; i = i + 1) {
    if (Box(i).Visible) Module1.Pontos = Module1.Pontos + 5;
  }
  LabelPontos.Caption = std::to_string(Module1.Pontos);
  ProximaFase();
}

}  // namespace korvane
