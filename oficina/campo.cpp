// What is seen of the drawing.
#include <algorithm>
#include <cmath>

#include "oficina/FrmOficina.h"
#include "stage/forms/dialogs.h"

namespace oficina {
namespace {

constexpr Double kLarguraDoDesenho = 12000;

}  // namespace

void FrmOficina::Muda(desenho::Desenho novo, int gesto) {
  if (novo == Agora()) return;
  historia_.Muda(std::move(novo), gesto);
  MostraTudo();
}

void FrmOficina::Escolhe(desenho::Escolha escolha) {
  escolha_ = std::move(escolha);
  MostraEscolha();
}

void FrmOficina::MostraTudo() {
  MostraBlocos();
  MostraEscolha();
  MostraRegra();
  MostraTitulo();
  MostraInalcancaveis({});
  Escreve();
  TimerConfere.Enabled = false;  // what is checked is what the hand has left alone for a moment
  TimerConfere.Enabled = true;
  TimerRobo.Enabled = false;
  if (Mudado() && !TimerRascunho.Enabled) TimerRascunho.Enabled = true;
}

void FrmOficina::MostraBlocos() {
  const std::vector<desenho::Block>& blocos = Agora().blocos;
  const auto quantos = static_cast<int>(blocos.size());
  for (int i = Box.End() - 1; i > quantos; --i) {
    if (Box.Exists(i)) Box.Unload(i);
  }
  for (int i = 1; i <= quantos; ++i) MostraBloco(i, blocos[std::size_t(i) - 1]);
  Conta.Caption = std::to_string(quantos) + '/' + std::to_string(desenho::kMostBlocks);
}

void FrmOficina::MostraBloco(Integer indice, const desenho::Block& bloco) {
  if (!Box.Exists(indice)) Box.Load(indice);
  stage::Image& imagem = Box(indice);
  DispoeBloco(imagem, bloco.top, bloco.left, bloco.height, bloco.width);
  const stage::PictureRef figura = ImagePedra(bloco.type).Picture;
  if (imagem.Picture.Get() != figura) imagem.Picture = figura;
  imagem.Visible = EstadoPisca || bloco.type != Agora().regra.pisca;
}

void FrmOficina::Pisca() {
  EstadoPisca = !EstadoPisca;
  const std::vector<desenho::Block>& blocos = Agora().blocos;
  for (std::size_t i = 0; i < blocos.size(); ++i) {
    if (blocos[i].type == Agora().regra.pisca) Box(Integer(i + 1)).Visible = EstadoPisca;
  }
}

void FrmOficina::MostraEscolha() {
  constexpr Double kFolga = 12;
  const std::size_t quantos = mao_.andou ? 0 : escolha_.size();  // what is on its way is seen by itself
  while (Contornos.size() > quantos) Contornos.pop_back();
  while (Contornos.size() < quantos) {
    Contornos.push_back(std::make_unique<Marca>(*this, stage::box::kMarked, Marca::Forma::kLinha));
  }
  for (std::size_t i = 0; i < quantos; ++i) {
    PoeMarca(*Contornos[i], Agora().blocos[escolha_[i]], kFolga);
  }
  MostraAlcas();
}

/// Outside of what is chosen, which can still be grasped. A side that is too short has none in its middle.
void FrmOficina::MostraAlcas() {
  constexpr Double kLado = 100;
  constexpr Double kFora = 50;
  const stage::TwipRect caixa = CaixaDaEscolha();
  for (std::size_t i = 0; i < Alcas.size(); ++i) {
    const desenho::Alca alca = kAlcas[i];
    const bool cabe = alca.x == 0 ? caixa.width > 2 * kLado : alca.y != 0 || caixa.height > 2 * kLado;
    if (escolha_.empty() || !cabe) {
      Alcas[i].Visible = false;
      continue;
    }
    Alcas[i].PoeEm(caixa.left + caixa.width * (alca.x + 1) / 2 + alca.x * kFora - kLado / 2,
                   caixa.top + caixa.height * (alca.y + 1) / 2 + alca.y * kFora - kLado / 2, kLado, kLado);
    Alcas[i].ZOrder(0);
  }
}

void FrmOficina::MostraInalcancaveis(const std::vector<std::size_t>& quais) {
  constexpr stage::Pixel kVermelho = 0xFF3020;
  Inalcancaveis.clear();
  for (const std::size_t i : quais) {
    Inalcancaveis.push_back(std::make_unique<Marca>(*this, kVermelho, Marca::Forma::kLinha));
    PoeMarca(*Inalcancaveis.back(), Agora().blocos[i], 0);
  }
}

void FrmOficina::PoeMarca(Marca& marca, const desenho::Block& lugar, Double folga) {
  DispoeBloco(marca, lugar.top, lugar.left, lugar.height, lugar.width);
  marca.PoeEm(marca.Left - folga, marca.Top - folga, marca.Width + 2 * folga, marca.Height + 2 * folga);
}

void FrmOficina::MostraElastico(desenho::Ponto a, desenho::Ponto b) {
  constexpr Double kTraco = 20;
  const Double escala = Palco.Screen.Width / kLarguraDoDesenho;
  const Double esquerda = std::min(a.x, b.x) * escala;
  const Double largura = std::abs(a.x - b.x) * escala;
  const Double topo = std::min(a.y, b.y) + Deslocamento();
  const Double altura = std::abs(a.y - b.y);
  Elastico[0].PoeEm(esquerda, topo, largura + kTraco, kTraco);
  Elastico[1].PoeEm(esquerda, topo + altura, largura + kTraco, kTraco);
  Elastico[2].PoeEm(esquerda, topo, kTraco, altura);
  Elastico[3].PoeEm(esquerda + largura, topo, kTraco, altura);
}

void FrmOficina::MostraSombra(desenho::Ponto ponto, int shift) {
  constexpr stage::Pixel kPalida = 100;
  const desenho::Ponto canto = CantoSob(ponto, shift);
  desenho::Block lugar = modelo_;
  lugar.left = canto.x;
  lugar.top = canto.y;
  const bool cabe = desenho::NoCampo(lugar) == lugar &&
                    desenho::NoElastico(Agora(), canto, {lugar.Right() - 1, lugar.Bottom() - 1}).empty();
  Sombra.Visible = cabe && mao_.gesto == Gesto::kNada;
  if (!Sombra.Visible) return;
  DispoeBloco(Sombra, lugar.top, lugar.left, lugar.height, lugar.width);
  const stage::PictureRef figura = ImagePedra(lugar.type).Picture;
  if (Sombra.Picture.Get() != figura) Sombra.Picture = figura;
  Sombra.ShowFaded(kPalida);
}

stage::TwipRect FrmOficina::CaixaDaEscolha() const {
  Double esquerda = kLarguraDoDesenho;
  Double topo = desenho::Field::kBottom;
  Double direita = 0;
  Double base = 0;
  for (const std::size_t i : escolha_) {
    const desenho::Block& bloco = Agora().blocos[i];
    esquerda = std::min<Double>(esquerda, bloco.left);
    topo = std::min<Double>(topo, bloco.top);
    direita = std::max<Double>(direita, bloco.Right());
    base = std::max<Double>(base, bloco.Bottom());
  }
  const Double escala = Palco.Screen.Width / kLarguraDoDesenho;
  return {esquerda * escala, topo + Deslocamento(), (direita - esquerda) * escala, base - topo};
}

/// How much lower than it is drawn the series lays a block, form units.
Double FrmOficina::Deslocamento() const { return Height / 35 * Serie; }

desenho::Ponto FrmOficina::NoDesenho(Single X, Single Y) const {
  const Double x = Double(X) * kLarguraDoDesenho / Palco.Screen.Width;
  return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(Y - Deslocamento()))};
}

}  // namespace oficina
