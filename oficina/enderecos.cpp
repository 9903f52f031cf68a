// Drawings come in addresses and go in them.
#include "oficina/FrmOficina.h"
#include "oficina/FrmPergunta.h"
#include "oficina/desenho/endereco.h"
#include "stage/files/path_text.h"

namespace oficina {
namespace {

constexpr char kMarca = '#';

}  // namespace

void FrmOficina::AbrePedido(const std::string& pedido) {
  if (pedido.empty()) return;
  if (pedido.front() == kMarca) return AbreEndereco(std::string_view(pedido).substr(1));
  Abre(stage::PathOf(pedido));
}

void FrmOficina::AbreEndereco(std::string_view endereco) {
  auto desenho = desenho::DoEndereco(endereco);
  if (!desenho) return Avisa("O endereço não traz uma tela que se leia");
  Comeca(*std::move(desenho));
  Avisa("Aberta do endereço");
  if (FrmPergunta::Pergunta(Palco, "O endereço traz uma tela.", {"Jogar", "Desenhar"}) == 0) Prova();
}

void FrmOficina::CopiaEndereco() {
  const auto endereco = desenho::EnderecoDe(Agora());
  if (Agora().blocos.empty() || !endereco) return Avisa("Não há o que mandar");
  Palco.Machine().SetClipboard(Palco.Machine().Address() + kMarca + *endereco);
  Avisa("Endereço copiado");
}

}  // namespace oficina
