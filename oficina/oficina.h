// The workshop: the game's stage and designs, the files, and the form that the drawing lies on.
#pragma once

#include <span>
#include <string>

#include "core/programa.h"
#include "oficina/desenho/guarda.h"
#include "oficina/rascunho.h"
#include "oficina/robo.h"

namespace oficina {

class FrmOficina;

struct Oficina {
  /// `pedido` is opened at the start: the name of a file, or what stands from '#' on in an address; nothing
  /// if it is empty.
  Oficina(stage::Platform& maquina, std::span<const stage::Asset> assets, std::string pedido = {});

  std::span<const stage::Asset> Assets;
  std::string Pedido;
  korvane::Programa programa;
  stage::Stage& Palco = programa.Palco;
  desenho::Guarda Guarda;
  oficina::Rascunho Rascunho;
  oficina::Robo Robo;

  stage::FormName<oficina::FrmOficina, Oficina> FrmOficina{Palco, *this};

  /// Runs the workshop to its end. An error that nothing handles comes out as RuntimeError.
  void Corre();
};

}  // namespace oficina
