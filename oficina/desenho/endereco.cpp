#include "oficina/desenho/endereco.h"

#include <algorithm>

namespace desenho {
namespace {

constexpr std::string_view kLetras = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr int kBitsDaLetra = 6;
constexpr char kVersao = '1';
constexpr std::size_t kLetrasDaSoma = 4;

// Bits that a number needs.
constexpr int kBitsDoTipo = 5;
constexpr int kBitsDoIntervalo = 16;
constexpr int kBitsDoBonus = 4;
constexpr int kBitsDeQuantos = 10;
constexpr int kBitsAoLado = 14;
constexpr int kBitsParaBaixo = 13;
static_assert(kLastType < 1 << kBitsDoTipo && Regra::kMaiorIntervalo < 1 << kBitsDoIntervalo);
static_assert(kAllBonuses < 1 << kBitsDoBonus && kMostBlocks < 1 << kBitsDeQuantos);
static_assert(Field::kRight < 1 << kBitsAoLado && Field::kBottom < 1 << kBitsParaBaixo);

/// A block that is nothing like what was expected: each number with a bit before it that says so.
constexpr int kBitsDoBloco = 2 * kBitsAoLado + 2 * kBitsParaBaixo + kBitsDoTipo + 5;
constexpr int kMaisBits =
    kMostBlocks * kBitsDoBloco + kBitsDoTipo + kBitsDoIntervalo + kBitsDoBonus + kBitsDeQuantos;
static_assert(1 + kMaisBits / kBitsDaLetra + 1 + kLetrasDaSoma <= kMaiorEndereco);

class Escritor {
 public:
  void Numero(int numero, int bits) {
    for (int i = bits - 1; i >= 0; --i) Bit(numero >> i & 1);
  }
  void Numero(int numero, int bits, int esperado) {
    Bit(numero == esperado ? 1 : 0);
    if (numero != esperado) Numero(numero, bits);
  }
  std::string Texto() {
    while (bits_ != 0) Bit(0);
    return texto_;
  }

 private:
  void Bit(int bit) {
    letra_ = letra_ * 2 + std::size_t(bit);
    if (++bits_ < kBitsDaLetra) return;
    texto_ += kLetras[letra_];
    letra_ = 0;
    bits_ = 0;
  }

  std::string texto_;
  std::size_t letra_ = 0;
  int bits_ = 0;
};

/// What is no letter, and what lies behind the end, reads as 0.
class Leitor {
 public:
  explicit Leitor(std::string_view texto) : texto_(texto) {}

  void Numero(int& numero, int bits) {
    numero = 0;
    for (int i = 0; i < bits; ++i) numero = numero * 2 + Bit();
  }
  void Numero(int& numero, int bits, int esperado) {
    if (Bit() == 1) {
      numero = esperado;
    } else {
      Numero(numero, bits);
    }
  }

 private:
  int Bit() {
    const std::size_t lugar = lidos_ / kBitsDaLetra;
    const std::size_t letra = lugar < texto_.size() ? kLetras.find(texto_[lugar]) : 0;
    const std::size_t bit = kBitsDaLetra - 1 - lidos_++ % kBitsDaLetra;
    return letra == std::string_view::npos ? 0 : int(letra >> bit & 1);
  }

  std::string_view texto_;
  std::size_t lidos_ = 0;
};

template <class Fita>
void PassaRegra(Fita& fita, Regra& regra) {
  fita.Numero(regra.pisca, kBitsDoTipo);
  fita.Numero(regra.intervalo, kBitsDoIntervalo);
  fita.Numero(regra.barrado, kBitsDoBonus);
}

/// A block is expected to be like the one before it, in the same row, as far from it as that one from its own
/// neighbour.
template <class Fita>
void PassaBlocos(Fita& fita, std::vector<Block>& blocos) {
  Block antes;
  int vao = 0;
  for (Block& bloco : blocos) {
    fita.Numero(bloco.type, kBitsDoTipo, antes.type);
    fita.Numero(bloco.height, kBitsParaBaixo, antes.height);
    fita.Numero(bloco.width, kBitsAoLado, antes.width);
    fita.Numero(bloco.top, kBitsParaBaixo, antes.top);
    fita.Numero(bloco.left, kBitsAoLado, antes.Right() + vao);
    if (bloco.top == antes.top) vao = bloco.left - antes.Right();
    antes = bloco;
  }
}

std::string Escrito(Desenho desenho) {
  Escritor escritor;
  PassaRegra(escritor, desenho.regra);
  escritor.Numero(int(desenho.blocos.size()), kBitsDeQuantos);
  PassaBlocos(escritor, desenho.blocos);
  return escritor.Texto();
}

Desenho LidoDe(std::string_view letras) {
  Desenho desenho;
  int quantos = 0;
  Leitor leitor(letras);
  PassaRegra(leitor, desenho.regra);
  leitor.Numero(quantos, kBitsDeQuantos);
  desenho.blocos.resize(std::size_t(quantos));
  PassaBlocos(leitor, desenho.blocos);
  return desenho;
}

std::string Soma(std::string_view letras) {
  std::uint32_t soma = 2166136261U;
  for (const char letra : letras) soma = (soma ^ static_cast<unsigned char>(letra)) * 16777619U;
  Escritor escritor;
  escritor.Numero(int((soma ^ soma >> 24) & 0xFFFFFF), int(kLetrasDaSoma) * kBitsDaLetra);
  return escritor.Texto();
}

}  // namespace

std::optional<std::string> EnderecoDe(const Desenho& desenho) {
  if (!Vale(desenho)) return std::nullopt;
  const std::string letras = Escrito(desenho);
  return kVersao + letras + Soma(letras);
}

std::optional<Desenho> DoEndereco(std::string_view endereco) {
  if (endereco.size() <= kLetrasDaSoma || endereco.size() > kMaiorEndereco) return std::nullopt;
  Desenho desenho = LidoDe(endereco.substr(1, endereco.size() - 1 - kLetrasDaSoma));
  // Whatever else is wrong with it, it is not the address of what was read from it.
  if (EnderecoDe(desenho) != endereco) return std::nullopt;
  return desenho;
}

}  // namespace desenho
