// The name entry for a new record.
#pragma once

#include "core/programa.h"
#include "stage/forms/text_box.h"

namespace korvane {

class FrmEntrarecord : public stage::Form {
 public:
  explicit FrmEntrarecord(Programa& dono);

  void Form_Load() override;
  void Form_Activate() override;
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;

 private:
  Programa& programa;
  stage::Image Image2;
  stage::PictureBox Picture1;
  stage::Image Image1;
  stage::Label Label4;
  stage::TextBox Text1;
};

}  // namespace korvane
