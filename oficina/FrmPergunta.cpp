#include "oficina/FrmPergunta.h"

#include "stage/stage.h"

namespace oficina {

FrmPergunta::FrmPergunta(stage::Stage& palco, const std::string& texto,
                         const std::vector<std::string>& respostas)
    : Dialog(palco, "FrmPergunta", texto, 4800, 1900) {
  const int quantas = static_cast<int>(respostas.size());
  for (int i = 0; i < quantas; ++i) {
    const std::size_t lugar = botoes_.size();
    botoes_.push_back(std::make_unique<stage::Button>(*this, ButtonPlace(i, quantas), respostas[lugar]));
    botoes_.back()->Click = [this, lugar] {
      resposta_ = lugar;
      Unload();
    };
  }
  SetFocus(*botoes_.front());
}

std::optional<std::size_t> FrmPergunta::Pergunta(stage::Stage& palco, const std::string& texto,
                                                 const std::vector<std::string>& respostas) {
  const auto form = std::make_shared<FrmPergunta>(palco, texto, respostas);
  palco.Show(form, stage::kModal);
  return form->Resposta();
}

}  // namespace oficina
