#include "screens/pause.h"

#include "screens/PicDeclerations.h"
#include "stage/forms/events.h"

namespace korvane {

using namespace stage::key;

pause::pause(Programa& dono) : Form(dono.Palco, "pause", {0, 0, 1860, 585}) {
  Picture = dono.Palco.Pictures.Named("pausa");
}

void pause::Form_Load() {
  constexpr stage::Pixel kPreto = 0;
  stage::Stage& Palco = OnStage();
  Top = Single(Palco.Screen.Height / 2.0 - Height / 2);
  Left = Single(Palco.Screen.Width / 2.0 - Width / 2);
  SetWindowRgn(RegiaoDeBitmap(*Palco.BitmapOf(*Picture), kPreto));
}

void pause::Form_KeyDown(Integer KeyCode, Integer) {
  if (KeyCode == kP || KeyCode == kPause || KeyCode == kEnter || KeyCode == kEsc) Unload();
}

}  // namespace korvane
