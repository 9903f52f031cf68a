// The help screen: the legend of the eight bonuses.
#pragma once

#include "core/programa.h"
#include "stage/forms/control_array.h"

namespace korvane {

class FrmHelp : public stage::Form {
 public:
  explicit FrmHelp(Programa& dono);

  void Form_Load() override;
  void Form_Activate() override;
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;
  void Form_Click() override;

 private:
  void Centraliza();

  stage::PictureBox Picture1;
  stage::Image Image2;
  stage::ControlArray<stage::Image> ImagePower;
  stage::ControlArray<stage::Label> Label;
};

}  // namespace korvane
