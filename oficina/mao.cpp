// The hand: what presses, moves and releases of the buttons do to the drawing.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "oficina/FrmOficina.h"

namespace oficina {
namespace {

constexpr auto kBatida = std::chrono::duration_cast<std::chrono::milliseconds>(stage::kBeat).count();

}  // namespace

using desenho::Escolha;
using desenho::Ponto;

desenho::Malha FrmOficina::MalhaDe(int shift) const {
  if (!malha_) return desenho::kSemMalha;
  return (shift & stage::kShift) != 0 ? desenho::kMalhaFina : desenho::kMalha;
}

/// The corner on the grid of a block that lies with its middle under the pointer.
Ponto FrmOficina::CantoSob(Ponto ponto, int shift) const {
  return desenho::NaMalha({ponto.x - modelo_.width / 2, ponto.y - modelo_.height / 2}, MalhaDe(shift));
}

std::optional<desenho::Alca> FrmOficina::AlcaEm(Single X, Single Y) const {
  constexpr Double kPerto = 20;
  for (std::size_t i = 0; i < Alcas.size(); ++i) {
    const Marca& alca = Alcas[i];
    if (alca.Visible && X >= alca.Left - kPerto && X <= alca.Left + alca.Width + kPerto &&
        Y >= alca.Top - kPerto && Y <= alca.Top + alca.Height + kPerto)
      return kAlcas[i];
  }
  return std::nullopt;
}

bool FrmOficina::Form_MouseDown(Integer Button, Integer Shift, Single X, Single Y) {
  aviso_.clear();
  const Ponto ponto = NoDesenho(X, Y);
  ponto_ = ponto;
  if (mao_.gesto != Gesto::kNada) {
    Desiste();
  } else if (Button == stage::kLeftButton) {
    ComecaEsquerdo(ponto, Shift, AlcaEm(X, Y));
  } else if (Button == stage::kRightButton) {
    Comeca(Gesto::kApaga, ponto);
    mao_.de = ponto;
    ApagaAte(ponto);
  } else {
    TomaDe(ponto);
  }
  Sombra.Visible = false;
  Escreve();
  return true;
}

void FrmOficina::Form_MouseMove(Integer Button, Integer Shift, Single X, Single Y) {
  const Ponto ponto = NoDesenho(X, Y);
  ponto_ = ponto;
  if (mao_.gesto != Gesto::kNada) {
    if (Button != 0) {
      mao_.ate = ponto;
      mao_.shift = Shift;
      return;
    }
    SegueMao();
    return Termina();
  }
  MostraSombra(ponto, Shift);
  Escreve();
}

void FrmOficina::Form_MouseUp(Integer, Integer Shift, Single X, Single Y) {
  if (mao_.gesto == Gesto::kNada) return;
  ponto_ = NoDesenho(X, Y);
  Continua(*ponto_, Shift);
  Termina();
}

void FrmOficina::Form_Wheel(Integer Steps, Integer) {
  if (mao_.gesto != Gesto::kNada) return;
  EscolheTipo((modelo_.type - 1 - Steps % desenho::kLastType + desenho::kLastType) % desenho::kLastType + 1);
}

void FrmOficina::Comeca(Gesto gesto, Ponto ponto) {
  constexpr std::size_t kMuitos = 300;  // which are shown half as often, as to show them costs twice as much
  mao_ = {.gesto = gesto, .numero = ++gestos_, .inicio = ponto, .antes = Agora(), .escolha = escolha_};
  TimerMao.Interval = escolha_.size() > kMuitos ? 2 * kBatida : kBatida;
  TimerMao.Enabled = true;
}

void FrmOficina::ComecaEsquerdo(Ponto ponto, int shift, std::optional<desenho::Alca> alca) {
  if (alca) {
    Comeca(Gesto::kEstica, ponto);
    mao_.alca = *alca;
    mao_.andou = true;
  } else if (const auto bloco = desenho::BlocoEm(Agora(), ponto)) {
    ComecaNoBloco(*bloco, ponto, shift);
  } else if ((shift & stage::kCtrl) != 0) {
    Comeca(Gesto::kElastico, ponto);
  } else if (ponto.y < desenho::Field::kBottom) {
    Escolhe({});
    Comeca(Gesto::kPinta, ponto);
    mao_.de = CantoSob(ponto, shift);
    Continua(ponto, shift);
  }
}

void FrmOficina::ComecaNoBloco(std::size_t bloco, Ponto ponto, int shift) {
  Escolha escolha = escolha_;
  const auto lugar = std::lower_bound(escolha.begin(), escolha.end(), bloco);
  const bool escolhido = lugar != escolha.end() && *lugar == bloco;
  if ((shift & stage::kCtrl) != 0) {
    if (escolhido) {
      escolha.erase(lugar);
    } else {
      escolha.insert(lugar, bloco);
    }
    return Escolhe(std::move(escolha));
  }
  if (!escolhido) Escolhe({bloco});
  Comeca(Gesto::kMove, ponto);
  mao_.de = {Agora().blocos[bloco].left, Agora().blocos[bloco].top};
}

/// The hand tells of itself up to a thousand times a second, more often than anybody sees.
void FrmOficina::SegueMao() {
  const auto ate = std::exchange(mao_.ate, std::nullopt);
  if (ate) Continua(*ate, mao_.shift);
}

void FrmOficina::Continua(Ponto ponto, int shift) {
  switch (mao_.gesto) {
    case Gesto::kPinta: {
      const auto feito = desenho::Pinta(mao_.antes, modelo_, mao_.de, ponto);
      if (!feito) return Avisa(kCheio);
      return Muda(feito->desenho, mao_.numero);
    }
    case Gesto::kElastico: {
      Escolha escolha = desenho::NoElastico(Agora(), mao_.inicio, ponto);
      Escolha todos;
      std::set_union(escolha.begin(), escolha.end(), mao_.escolha.begin(), mao_.escolha.end(),
                     std::back_inserter(todos));
      MostraElastico(mao_.inicio, ponto);
      return Escolhe(std::move(todos));
    }
    case Gesto::kApaga:
      return ApagaAte(ponto);
    default:
      return Arrasta(ponto, shift);
  }
}

/// Moves or resizes what is chosen, by whole steps of the grid. A hand that only trembles moves nothing.
void FrmOficina::Arrasta(Ponto ponto, int shift) {
  constexpr int kTremor = 40;
  const Ponto passo{ponto.x - mao_.inicio.x, ponto.y - mao_.inicio.y};
  const desenho::Malha malha = MalhaDe(shift);
  if (mao_.gesto == Gesto::kMove) {
    mao_.andou = mao_.andou || std::max(std::abs(passo.x), std::abs(passo.y)) > kTremor;
    if (!mao_.andou) return;
    const Ponto canto = desenho::NaMalha({mao_.de.x + passo.x, mao_.de.y + passo.y}, malha);
    return Muda(desenho::Move(mao_.antes, mao_.escolha, {canto.x - mao_.de.x, canto.y - mao_.de.y}),
                mao_.numero);
  }
  const auto inteiro = [](int longe, int de_cada_vez) {
    return static_cast<int>(std::lround(Double(longe) / de_cada_vez)) * de_cada_vez;
  };
  const Ponto esticado{inteiro(passo.x, malha.passo.x), inteiro(passo.y, malha.passo.y)};
  Muda(desenho::Estica(mao_.antes, mao_.escolha, mao_.alca, esticado), mao_.numero);
}

/// All that lies on the way of the pointer, which is told in jumps.
void FrmOficina::ApagaAte(Ponto ponto) {
  const Ponto longe{ponto.x - mao_.de.x, ponto.y - mao_.de.y};
  const int passos = 1 + std::max(std::abs(longe.x), std::abs(longe.y)) / desenho::kMenorLado;
  for (int i = 1; i <= passos; ++i) {
    ApagaSob({mao_.de.x + longe.x * i / passos, mao_.de.y + longe.y * i / passos});
  }
  mao_.de = ponto;
}

void FrmOficina::ApagaSob(Ponto ponto) {
  const auto bloco = desenho::BlocoEm(Agora(), ponto);
  if (!bloco) return;
  Escolhe({});
  Muda(desenho::Apaga(Agora(), {*bloco}), mao_.numero);
}

/// Another button while one is down: nothing has happened.
void FrmOficina::Desiste() {
  Muda(mao_.antes, mao_.numero);
  Escolhe(mao_.escolha);
  Termina();
}

void FrmOficina::Termina() {
  TimerMao.Enabled = false;
  if (mao_.gesto == Gesto::kPinta) SobFaixa("");  // what has just been painted needs no words
  mao_ = {};
  MostraEscolha();
  for (Marca& lado : Elastico) lado.Visible = false;
}

void FrmOficina::TomaDe(Ponto ponto) {
  const auto bloco = desenho::BlocoEm(Agora(), ponto);
  if (!bloco) return;
  modelo_ = Agora().blocos[*bloco];
  MarcaTipo();
}

}  // namespace oficina
