// The table of the ten records.
#pragma once

#include "core/programa.h"
#include "stage/forms/control_array.h"

namespace korvane {

class FrmMostraRecords : public stage::Form {
 public:
  explicit FrmMostraRecords(Programa& dono);

  void Form_Load() override;
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;
  void Form_Click() override;

 private:
  Programa& programa;
  stage::PictureBox Picture1;
  stage::Image Image1;
  stage::ControlArray<stage::Label> Label1;
  stage::ControlArray<stage::Label> Label2;
};

}  // namespace korvane
