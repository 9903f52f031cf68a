#include "oficina/oficina.h"

#include "oficina/FrmOficina.h"

namespace oficina {

Oficina::Oficina(stage::Platform& maquina, std::span<const stage::Asset> assets, std::string pedido)
    : Assets(assets),
      Pedido(std::move(pedido)),
      programa(maquina, assets),
      Guarda(maquina.Folders()),
      Rascunho(maquina),
      Robo(maquina) {}

void Oficina::Corre() {
  FrmOficina.Show();
  Palco.Run();
}

}  // namespace oficina
