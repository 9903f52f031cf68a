#include "oficina/desenho/edicao.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "oficina/desenho/map_grammar.h"

namespace desenho {
namespace {

/// A corner that all grids have: that of the first brick in a map without a header.
constexpr Ponto kOrigem{CentredLeft(ColumnsFrom(kMapLeft, kUsualStep), kUsualStep) + kVao / 2,
                        kFirstRow + kVao / 2};

struct Caixa {
  int esquerda = Field::kRight;
  int topo = Field::kBottom;
  int direita = Field::kLeft;
  int base = Field::kTop;
};

Caixa EmVolta(const std::vector<Block>& blocos) {
  Caixa caixa;
  for (const Block& bloco : blocos) {
    caixa.esquerda = std::min(caixa.esquerda, bloco.left);
    caixa.topo = std::min(caixa.topo, bloco.top);
    caixa.direita = std::max(caixa.direita, bloco.Right());
    caixa.base = std::max(caixa.base, bloco.Bottom());
  }
  return caixa;
}

/// As much of the step as leads none of the blocks out of the field.
Ponto PassoLivre(const std::vector<Block>& blocos, Ponto passo) {
  if (blocos.empty()) return {};
  const Caixa caixa = EmVolta(blocos);
  return {std::clamp(passo.x, Field::kLeft - caixa.esquerda, Field::kRight - caixa.direita),
          std::clamp(passo.y, Field::kTop - caixa.topo, Field::kBottom - caixa.base)};
}

void Desloca(Block& bloco, Ponto passo) {
  bloco.left += passo.x;
  bloco.top += passo.y;
}

bool Cruzam(const Block& a, const Block& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

bool EstaNoCampo(const Block& bloco) { return NoCampo(bloco) == bloco; }

bool Livre(const std::vector<Block>& blocos, const Block& lugar) {
  return std::none_of(blocos.begin(), blocos.end(), [&](const Block& bloco) { return Cruzam(bloco, lugar); });
}

int NaLinha(int lugar, int origem, int passo) {
  const int meio = passo / 2;
  const int resto = ((lugar - origem + meio) % passo + passo) % passo;
  return lugar + meio - resto;
}

/// How many whole steps lead to a place, rounded down.
int Passos(int de, int ate, int passo) {
  const int longe = ate - de;
  return longe >= 0 ? longe / passo : -((passo - 1 - longe) / passo);
}

/// One of the two ways in which a block extends.
struct Eixo {
  int Block::*inicio;
  int Block::*tamanho;
  int primeiro;
  int ultimo;
};

void EsticaEixo(Desenho& desenho, const Escolha& escolha, const Eixo& eixo, int lado, int passo) {
  if (lado == 0) return;
  for (const std::size_t i : escolha) {
    const Block& bloco = desenho.blocos[i];
    const int inicio = bloco.*eixo.inicio;
    const int tamanho = bloco.*eixo.tamanho;
    const int folga = std::max(0, tamanho - kMenorLado);
    passo = lado < 0 ? std::clamp(passo, eixo.primeiro - inicio, folga)
                     : std::clamp(passo, -folga, eixo.ultimo - inicio - tamanho);
  }
  for (const std::size_t i : escolha) {
    Block& bloco = desenho.blocos[i];
    if (lado < 0) bloco.*eixo.inicio += passo;
    bloco.*eixo.tamanho += lado < 0 ? -passo : passo;
  }
}

/// `soma` is the sum of the two places that change sides.
Desenho Espelha(Desenho desenho, const Escolha& escolha, int soma) {
  for (const std::size_t i : escolha) {
    Block& bloco = desenho.blocos[i];
    bloco.left = soma - bloco.Right();
  }
  return desenho;
}

}  // namespace

Ponto NaMalha(Ponto canto, const Malha& malha) {
  return {NaLinha(canto.x, kOrigem.x, malha.passo.x), NaLinha(canto.y, kOrigem.y, malha.passo.y)};
}

Block NoCampo(Block bloco) {
  bloco.width = std::clamp(bloco.width, 1, Field::kRight - Field::kLeft);
  bloco.height = std::clamp(bloco.height, 1, Field::kBottom - Field::kTop);
  bloco.left = std::clamp(bloco.left, Field::kLeft, Field::kRight - bloco.width);
  bloco.top = std::clamp(bloco.top, Field::kTop, Field::kBottom - bloco.height);
  return bloco;
}

std::optional<std::size_t> BlocoEm(const Desenho& desenho, Ponto ponto) {
  for (std::size_t i = 0; i < desenho.blocos.size(); ++i) {
    const Block& bloco = desenho.blocos[i];
    if (ponto.x >= bloco.left && ponto.x < bloco.Right() && ponto.y >= bloco.top && ponto.y < bloco.Bottom())
      return i;
  }
  return std::nullopt;
}

Escolha NoElastico(const Desenho& desenho, Ponto a, Ponto b) {
  // A band between two points holds both, so it is one wider than they are apart.
  const Block elastico{.top = std::min(a.y, b.y),
                       .left = std::min(a.x, b.x),
                       .height = std::abs(a.y - b.y) + 1,
                       .width = std::abs(a.x - b.x) + 1};
  Escolha escolha;
  for (std::size_t i = 0; i < desenho.blocos.size(); ++i) {
    if (Cruzam(desenho.blocos[i], elastico)) escolha.push_back(i);
  }
  return escolha;
}

Escolha Tudo(const Desenho& desenho) {
  Escolha escolha(desenho.blocos.size());
  std::iota(escolha.begin(), escolha.end(), std::size_t{0});
  return escolha;
}

std::vector<Block> Escolhidos(const Desenho& desenho, const Escolha& escolha) {
  std::vector<Block> blocos;
  blocos.reserve(escolha.size());
  for (const std::size_t i : escolha) blocos.push_back(desenho.blocos[i]);
  return blocos;
}

std::optional<Feito> Poe(const Desenho& desenho, const std::vector<Block>& blocos, Ponto passo) {
  if (desenho.blocos.size() + blocos.size() > std::size_t(kMostBlocks)) return std::nullopt;
  const Ponto livre = PassoLivre(blocos, passo);
  Feito feito{desenho, {}};
  for (const Block& bloco : blocos) {
    feito.novos.push_back(feito.desenho.blocos.size());
    feito.desenho.blocos.push_back(bloco);
    Desloca(feito.desenho.blocos.back(), livre);
  }
  return feito;
}

std::optional<Feito> Pinta(const Desenho& desenho, const Block& modelo, Ponto de, Ponto ate) {
  const Ponto celula{modelo.width + kVao, modelo.height + kVao};
  const int lado = Passos(de.x, std::clamp(ate.x, Field::kLeft, Field::kRight), celula.x);
  const int baixo = Passos(de.y, std::clamp(ate.y, Field::kTop, Field::kBottom), celula.y);
  const bool deitada = std::abs(lado) >= std::abs(baixo);
  const int ultimo = deitada ? lado : baixo;
  const int sentido = ultimo < 0 ? -1 : 1;
  const Ponto passo = deitada ? Ponto{sentido * celula.x, 0} : Ponto{0, sentido * celula.y};
  std::vector<Block> fila;
  Block lugar = modelo;
  lugar.left = de.x;
  lugar.top = de.y;
  for (int i = 0; i <= std::abs(ultimo); ++i, Desloca(lugar, passo)) {
    if (EstaNoCampo(lugar) && Livre(desenho.blocos, lugar)) fila.push_back(lugar);
  }
  return Poe(desenho, fila);
}

Desenho Move(Desenho desenho, const Escolha& escolha, Ponto passo) {
  const Ponto livre = PassoLivre(Escolhidos(desenho, escolha), passo);
  for (const std::size_t i : escolha) Desloca(desenho.blocos[i], livre);
  return desenho;
}

Desenho Estica(Desenho desenho, const Escolha& escolha, Alca alca, Ponto passo) {
  EsticaEixo(desenho, escolha, {&Block::left, &Block::width, Field::kLeft, Field::kRight}, alca.x, passo.x);
  EsticaEixo(desenho, escolha, {&Block::top, &Block::height, Field::kTop, Field::kBottom}, alca.y, passo.y);
  return desenho;
}

Desenho Apaga(const Desenho& desenho, const Escolha& escolha) {
  Desenho resto{desenho.regra, {}};
  for (std::size_t i = 0; i < desenho.blocos.size(); ++i) {
    if (!std::binary_search(escolha.begin(), escolha.end(), i)) resto.blocos.push_back(desenho.blocos[i]);
  }
  return resto;
}

std::optional<Feito> Duplica(const Desenho& desenho, const Escolha& escolha, const Malha& malha) {
  const std::vector<Block> blocos = Escolhidos(desenho, escolha);
  const bool cabe = PassoLivre(blocos, malha.passo) != Ponto{};
  return Poe(desenho, blocos, cabe ? malha.passo : Ponto{-malha.passo.x, -malha.passo.y});
}

Desenho EspelhaNoCampo(Desenho desenho, const Escolha& escolha) {
  return Espelha(std::move(desenho), escolha, Field::kLeft + Field::kRight);
}

Desenho EspelhaEmSi(Desenho desenho, const Escolha& escolha) {
  const Caixa caixa = EmVolta(Escolhidos(desenho, escolha));
  return Espelha(std::move(desenho), escolha, caixa.esquerda + caixa.direita);
}

Desenho MudaTipo(Desenho desenho, const Escolha& escolha, int tipo) {
  for (const std::size_t i : escolha) desenho.blocos[i].type = tipo;
  return desenho;
}

}  // namespace desenho
