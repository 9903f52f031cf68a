// The keys of the play form, and the clicks that launch the ball.
#include "core/game.h"
#include "records/FrmMostraRecords.h"
#include "screens/FrmHelp.h"
#include "screens/pause.h"
#include "screens/pointer.h"
#include "stage/forms/events.h"

namespace korvane {

using namespace stage::key;

void game::Form_Click() {
  if (!BolaPresa) return;
  BolaPresa = false;
  if (Module1.Iniciado) return;
  Module1.Iniciado = true;
  TopoInicial = CLng(ball.Top);
  TempoInicial = Single(Double(Palco.Timer()) * 100);
  timerDefine.Enabled = true;
}

void game::Box_Click(Integer) { Form_Click(); }
void game::statusbar_Click() { Form_Click(); }

void game::Image1_Click() { BolaPresa = false; }

void game::Form_KeyDown(Integer KeyCode, Integer Shift) {
  if (KeyCode == kA && Shift == stage::kCtrl) SaltaFase();
  if (KeyCode == kSpace) BolaPresa = false;
  if (KeyCode == kF1 && (Module1.Iniciado || BolaPresa)) PedeAjuda();
  if ((KeyCode == kP || KeyCode == kPause) && (Module1.Iniciado || BolaPresa)) PedePausa();
  if (KeyCode == kEsc) Sai();
}

void game::SaltaFase() {
  const Double v = Val(Palco.InputBox("Fase"));
  if (!(Int(v) > 0)) return;
  Integer fase;
  try {
    fase = CInt(v);
  } catch (const RuntimeError&) {
    return;
  }
  FaseAtual = fase;
  clearall();
  loadup(fase);
}

void game::PedeAjuda() {
  const stage::PixelPoint lugar = Palco.GetCursorPos();
  paused = true;
  programa.FrmHelp.Show(stage::kModal);
  paused = false;
  Palco.SetCursorPos(lugar);
}

void game::PedePausa() {
  paused = true;
  const stage::PixelPoint lugar = Palco.GetCursorPos();
  programa.pause.Show(stage::kModal);
  Palco.SetCursorPos(lugar);
  paused = false;
}

void game::Sai() {
  Timer_Move.Enabled = false;
  Palco.DoEvents();
  MostraCursor(Palco);
  Palco.DoEvents();
  if (!Module1.Prova) programa.FrmMostraRecords.Show(stage::kModal);
  stage::Stage::End();
}

}  // namespace korvane
