// How long a player that is no person takes for a drawing.
#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include "oficina/desenho/desenho.h"
#include "stage/machines/platform.h"

namespace oficina {

/// Plays in virtual time, beside the program.
class Robo {
 public:
  explicit Robo(stage::Platform& maquina) : maquina_(maquina) {}

  /// Plays a few games of the drawing; what was played before counts no more.
  void Joga(const desenho::Desenho& desenho);
  /// They have been played.
  bool Pronto() const { return jogos_ != nullptr && jogos_->prontos; }
  /// Of the middle one of them in minutes, once they have been played; none if one did not come to its end in
  /// an hour.
  std::optional<stage::Double> Minutos() const { return jogos_->minutos; }

 private:
  struct Jogos {
    std::optional<stage::Double> minutos;
    std::atomic<bool> prontos = false;  // minutos stands
  };

  stage::Platform& maquina_;
  std::shared_ptr<Jogos> jogos_;
};

}  // namespace oficina
