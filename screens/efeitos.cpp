// What has happened in play, shown to the eye. No rule hangs on it.
#include <algorithm>
#include <cmath>

#include "bonus/tabela.h"
#include "core/game.h"
#include "stage/painting/looks.h"

namespace korvane {
namespace {

namespace look = stage::look;
using look::milliseconds;

constexpr stage::Pixel kBranco = 0xFFFFFF;
constexpr stage::Pixel kVermelho = 0xFF3020;
constexpr stage::Pixel kAmbar = 0xFFD070;
constexpr stage::Pixel kPalido = 0xC8D8F0;

stage::TwipPoint Meio(const stage::TwipRect& lugar) {
  return {lugar.left + lugar.width / 2, lugar.top + lugar.height / 2};
}

}  // namespace

void game::EstalaBloco(Integer boxindex) {
  Palco.Effects().Begin(Box(boxindex), look::Burst(Box(boxindex), Meio(ball.Area())));
}

void game::BrilhaRigido(Integer boxindex) {
  Palco.Effects().Begin(Box(boxindex), look::Glint(Box(boxindex)));
}

void game::RevelaBloco(Integer boxindex) {
  Palco.Effects().Begin(Box(boxindex), look::Shimmer(Box(boxindex)));
}

void game::AcendeAmolecido(Integer boxindex) {
  Palco.Effects().Begin(Box(boxindex), look::Flash(Box(boxindex), kAmbar, milliseconds(250)));
}

/// The ball was lost; it falls on the way that it flew.
void game::CaiBola() {
  constexpr Double kQueda = 40 * stage::kTwipsPerPixel;
  const stage::TwipPoint caminho{kQueda * std::clamp(VelX / std::max(std::abs(VelY), 1.0), -2.0, 2.0),
                                 kQueda};
  Palco.Effects().Begin(ball, look::Ghostly(ball, milliseconds(300), caminho));
}

void game::DeixaUser() { Palco.Effects().Begin(Image1, look::Ghostly(Image1, milliseconds(300))); }

void game::ApagaVida(Integer k) { Palco.Effects().Begin(life(k), look::Ghostly(life(k), milliseconds(400))); }

void game::AcendeVida(Integer k) {
  Palco.Effects().Begin(life(k), look::Glow(life(k), kBranco, milliseconds(300)));
}

/// A bonus whose code is -1 is worth nothing any more.
void game::EngoleBonus() {
  if (BonusCaindo > 0) Palco.Effects().Begin(Image1, look::Collapse(Imgbonus, Image1));
}

void game::AcendeUser(Integer codigo) {
  const Bonus* const bonus = TabelaBonus::De(codigo);
  if (bonus == nullptr) return;
  Palco.Effects().Begin(Image1, look::Glow(Image1, bonus->ruim ? kVermelho : kBranco, milliseconds(250)));
}

void game::SurgeBonusParado() { Palco.Effects().Begin(Box(ProximoBox), look::Appear({}, milliseconds(100))); }

/// The ball has turned at that wall, whose edge it touches.
void game::RiscaParede(Lado parede) {
  constexpr Double kComprimento = 60 * stage::kTwipsPerPixel;
  constexpr Double kGrossura = 2 * stage::kTwipsPerPixel;
  const stage::TwipRect bola = ball.Area();
  const stage::TwipPoint meio = Meio(bola);
  stage::TwipRect risco{bola.left - kGrossura, meio.y - kComprimento / 2, kGrossura, kComprimento};
  if (parede == Lado::Right) risco.left = bola.left + bola.width;
  if (parede == Lado::Up) risco = {meio.x - kComprimento / 2, bola.top - kGrossura, kComprimento, kGrossura};
  Palco.Effects().Begin(ball, look::Line(risco, kPalido));
}

/// The level comes into sight row by row.
void game::SurgeFase() {
  if (!Palco.Effects().WantedOn(*this)) return;
  constexpr Double kTudo = 250;  // ms
  constexpr Double kFila = 80;
  Double alto = Height;
  Double baixo = 0;
  for (Integer i = 1; i < ProximoBox; i = i + 1) {
    alto = std::min<Double>(alto, Box(i).Top);
    baixo = std::max<Double>(baixo, Box(i).Top);
  }
  for (Integer i = 1; i < ProximoBox; i = i + 1) {
    const Double fila = baixo > alto ? (Box(i).Top - alto) / (baixo - alto) : 0;
    const auto depois = milliseconds(std::lround(fila * (kTudo - kFila)));
    Palco.Effects().Begin(Box(i), look::Appear(depois, milliseconds(std::lround(kFila))));
  }
}

/// What is seen as long as it holds.
void game::CuidaEfeitos() {
  constexpr stage::Pixel kApagado = stage::kWhole * 2 / 5;
  Palco.Effects().Keep(
      Imgbonus, [this] { return Imgbonus.Visible && BonusCaindo < 0; }, look::Dim(kApagado));
  Palco.Effects().Keep(
      ball, [this] { return BolaPresa && !paused && !JogouUma; }, look::Chevrons(ball, milliseconds(3000)));
}

}  // namespace korvane
