// The rule of a level, to be chosen by eye: which type blinks and how fast, which bonus never falls.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "oficina/desenho/desenho.h"
#include "oficina/marca.h"
#include "stage/forms/control_array.h"
#include "stage/forms/dialogs.h"

namespace oficina {

class FrmRegra : public stage::Form {
 public:
  /// `tipos` holds the pictures of the types by their numbers.
  FrmRegra(stage::Stage& palco, stage::ControlArray<stage::Image>& tipos, const desenho::Regra& regra);

  /// The rule; none if the form was closed by Esc.
  std::optional<desenho::Regra> Resposta() const { return resposta_; }

  void Form_KeyDown(stage::Integer KeyCode, stage::Integer Shift) override;
  void Form_Wheel(stage::Integer Steps, stage::Integer Shift) override;

 private:
  void MudaIntervalo(int passos);
  void Mostra();
  void Aceita();

  desenho::Regra regra_;
  std::optional<desenho::Regra> resposta_;

  stage::Label titulo_;
  stage::Label pergunta_tipo_;
  stage::ControlArray<stage::Image> tipos_;  // 0 is none
  stage::Label intervalo_;
  stage::Button menos_;
  stage::Button mais_;
  stage::Label pergunta_bonus_;
  stage::ControlArray<stage::Image> bonus_;  // by code, 0 is none and 9 all
  stage::Label nenhum_tipo_;
  stage::Label nenhum_bonus_;
  stage::Label todos_;
  stage::Button ok_;
  Marca tipo_escolhido_;
  Marca bonus_escolhido_;
};

}  // namespace oficina
