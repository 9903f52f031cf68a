// A question with a button for each answer.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "stage/forms/dialogs.h"

namespace oficina {

class FrmPergunta : public stage::Dialog {
 public:
  FrmPergunta(stage::Stage& palco, const std::string& texto, const std::vector<std::string>& respostas);

  /// The number of the button, from 0 on; none if the box was closed.
  std::optional<std::size_t> Resposta() const { return resposta_; }

  /// Asks and waits for the answer.
  static std::optional<std::size_t> Pergunta(stage::Stage& palco, const std::string& texto,
                                             const std::vector<std::string>& respostas);

 private:
  std::vector<std::unique_ptr<stage::Button>> botoes_;
  std::optional<std::size_t> resposta_;
};

}  // namespace oficina
