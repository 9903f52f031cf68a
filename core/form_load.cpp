// The play form comes up: everything placed for the screen at hand, the first level, the speed, the help
// screen.
#include "core/game.h"
#include "records/store.h"
#include "screens/FrmHelp.h"
#include "screens/config.h"
#include "screens/pointer.h"
#include "stage/files/text_file.h"

namespace korvane {

// A statement that fails is skipped. Only the statements that can fail are run so.
void game::Form_Load() {
  std::string& AppPath = Module1.AppPath;
  AppPath = Palco.AppPath();
  if (AppPath.ends_with('/')) AppPath.pop_back();
  ResumeNext([&] { Getrecords(Module1); });
  paused = false;
  Vidas = 3;
  FaseAtual = 1;
  TiraPoderes();
  Caminho = Palco.AppPath();
  EscondeCursor(Palco);
  BolaPresa = true;
  Top = 0;
  Left = 0;
  Width = Palco.Screen.Width;
  Height = Palco.Screen.Height;
  DispoeBarra();
  DispoeVidas();
  DispoeRotulos();
  DimensionaUser();
  Serie = 0;
  ProximoBox = 1;
  ResumeNext([&] { loadup(1); });
  LeVelocidade();
  programa.game.Show();
  paused = true;
  Palco.ForgetInput();  // nobody has seen the help yet
  if (!Module1.Prova) ResumeNext([&] { programa.FrmHelp.Show(stage::kModal); });
  paused = false;
  Timer_Move.Enabled = true;
}

void game::DispoeBarra() {
  statusbar.Left = 0;
  statusbar.Width = Single(Width);
  statusbar.Top = Single(ScaleHeight() - Double(ScaleHeight()) / 11);
}

void game::DispoeVidas() {
  life(1).Top = Single(statusbar.Top + statusbar.Height + 120);
  life(1).Left = 100;
  for (Integer i = 2; i <= 5; i = i + 1) {
    life.Load(i);
    life(i).ZOrder(0);
    life(i).Top = life(1).Top;
    life(i).Left = Single(life(i - 1).Left + life(i - 1).Width + 100);
    life(i).Width = User.Width;
    life(i).Height = User.Height;
    life(i).Picture = life(1).Picture;
  }
  ExibeVidas(Vidas);
}

void game::DispoeRotulos() {
  LabelPontos.Top = Single(statusbar.Top + statusbar.Height + 40);
  Label2.Top = LabelPontos.Top;
  LabelPontos.Left = Single(Width - (LabelPontos.Width + 100));
  Label2.Left = Single(LabelPontos.Left - Label2.Width);
  for (Integer i = 0; i <= 2; i = i + 1) {
    Imageball(i).Top = Single(Label2.Height / 2 + Label2.Top);
    Imageball(i).Left = Single(Label2.Left - 450);
  }
  ExibeBolaAtual();
}

void game::DimensionaUser() {
  ResumeNext([&] { User.Height = Single(Redimensionar("height", CInt(User.Height))); },
             [&] { User.Width = Single(Redimensionar("width", CInt(User.Width))); },
             [&] { LarguraBase = CInt(User.Width); });
  Image1.Height = User.Height;
  Image1.Width = User.Width;
  TamanhoUser = 2;
  ResumeNext([&] { Box(0).Height = Single(Redimensionar("height", CInt(Box(0).Height))); },
             [&] { Box(0).Width = Single(Redimensionar("width", CInt(Box(0).Width))); });
  User.Left = Single(Width / 2 - User.Width / 2);
  User.Top = Single(statusbar.Top - (User.Height + User.Height));
}

void game::LeVelocidade() {
  constexpr int kVelocidadeNormal = 300;
  Integer& Vkorv = Module1.Vkorv;
  ResumeNext(
      [&] { Vkorv = CInt(Val(LeIni("SETUP", "Vkorv", stage::HostPath(Module1.AppPath, "config.ini")))); });
  if (Vkorv == 0) Vkorv = kVelocidadeNormal;
  VelX = 0;
  ResumeNext([&] { VelY = -Vkorv; });
}

void game::Form_Unload() {
  MostraCursor(Palco);
  Timer_Move.Enabled = false;
}

}  // namespace korvane
