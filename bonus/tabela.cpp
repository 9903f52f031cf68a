#include "bonus/tabela.h"

#include "core/game.h"

namespace korvane {

constexpr std::array<Bonus, TabelaBonus::kQuantos> TabelaBonus::kTodos{{
    {kAtravessaBlocos,
     {{{1, 19}}},
     {{{1, 24}}},
     kAtravessaBlocos,
     [](const game& jogo, Sorteio) {
       const Integer bola = jogo.Module1.BolaAtual;
       if (bola == 0) return kAtravessaBlocos;
       return bola == 1 && jogo.TemRigido ? kAtravessaTudo : kNenhum;
     },
     [](game& jogo) { jogo.TrocaBola(1); },
     false,
     {1, 840, 1080, 1575, "Atravessa blocos"}},
    {kAtravessaTudo,
     {{{20, 29}}},
     {{{25, 49}}},
     kAtravessaTudo,
     [](const game& jogo, Sorteio sorteio) {
       const Integer bola = jogo.Module1.BolaAtual;
       if (jogo.TemRigido) return bola == 2 ? kNenhum : kAtravessaTudo;
       const bool presta = sorteio == Sorteio::kCaindo ? bola != 2 : bola == 0;
       return presta ? kAtravessaBlocos : kNenhum;
     },
     [](game& jogo) { jogo.TrocaBola(2); },
     false,
     {2, 1440, 1680, 3060, "Atrevessa inclusive blocos rígidos"}},
    {kTiraVida,
     {{{30, 79}}},
     {{{50, 79}}},
     kTiraVida,
     [](const game&, Sorteio) { return kTiraVida; },
     [](game& jogo) { jogo.PerdeVida(); },
     true,
     {7, 5280, 5520, 1425, "Perde uma vida"}},
    {kAumenta,
     {{{80, 99}}},
     {{{80, 99}}},
     kNenhum,
     [](const game& jogo, Sorteio) { return jogo.TamanhoUser == 3 ? kNenhum : kAumenta; },
     [](game& jogo) {
       jogo.sound("mais.wav");
       if (jogo.TamanhoUser < 3) jogo.MudaTamanho(jogo.TamanhoUser + 1);
     },
     false,
     {3, 2280, 2400, 2595, "Aumenta o tamanho da barra"}},
    {kDiminui,
     {{{100, 119}}},
     {{{100, 119}}},
     kDiminui,
     [](const game& jogo, Sorteio) { return jogo.TamanhoUser == 1 ? kNenhum : kDiminui; },
     [](game& jogo) {
       jogo.sound("menos.wav");
       if (jogo.TamanhoUser > 1) jogo.MudaTamanho(jogo.TamanhoUser - 1);
     },
     true,
     {4, 2880, 3120, 2535, "Diminue o tamanho da barra"}},
    {kCola,
     {{{120, 129}}},
     {{{120, 129}}},
     kNenhum,
     [](const game& jogo, Sorteio) { return jogo.Magnetico ? kNenhum : kCola; },
     [](game& jogo) {
       jogo.sound("cola.wav");
       jogo.Magnetico = true;
     },
     false,
     {5, 3720, 3960, 5295, "A esfera torna-se magnetica com relação a barra receptora"}},
    {kPassaFase,
     {{{155, 155}, {165, 165}, {175, 175}}},
     {{{131, 133}}},
     kPassaFase,
     [](const game&, Sorteio) { return kPassaFase; },
     [](game& jogo) { jogo.GanhaFase(); },
     false,
     {6, 4440, 4680, 5475, "Passa para a próxima tela, adquirindo os pontos da tela atual"}},
    {kDaVida,
     {{{151, 151}, {161, 161}}},
     {{{170, 170}, {175, 175}, {180, 180}}},
     kTiraVida,
     [](const game&, Sorteio) { return kDaVida; },
     [](game& jogo) {
       jogo.sound("mais1.wav");
       jogo.Vidas = jogo.Vidas + 1;
       jogo.ExibeVidas(jogo.Vidas);
     },
     false,
     {8, 5880, 6120, 1470, "Ganha uma vida"}},
}};

namespace {

constexpr bool Tem(const Faixas& faixas, int numero) {
  bool tem = false;
  for (const Faixa& faixa : faixas) tem = tem || (numero >= faixa.de && numero <= faixa.ate);
  return tem;
}

/// Whether codes run from 1 on, and each number and each row of the help screen is that of one bonus at most.
constexpr bool Certa() {
  for (int n = 1; n <= TabelaBonus::kQuantos; ++n) {
    int linhas = 0;
    for (const Bonus& bonus : TabelaBonus::kTodos) linhas += bonus.legenda.linha == n ? 1 : 0;
    if (linhas != 1 || TabelaBonus::kTodos[std::size_t(n) - 1].codigo != n) return false;
  }
  for (const Sorteio sorteio : {Sorteio::kCaindo, Sorteio::kParado}) {
    for (int numero = 0; numero <= MaiorSorteado(sorteio) + 1; ++numero) {
      int donos = 0;
      for (const Bonus& bonus : TabelaBonus::kTodos) donos += Tem(bonus.Numeros(sorteio), numero) ? 1 : 0;
      if (donos > (numero >= 1 && numero <= MaiorSorteado(sorteio) ? 1 : 0)) return false;
    }
  }
  return true;
}
static_assert(Certa());

}  // namespace

int TabelaBonus::Sorteado(Sorteio sorteio, int numero) {
  for (const Bonus& bonus : kTodos) {
    if (Tem(bonus.Numeros(sorteio), numero)) return bonus.codigo;
  }
  return kNenhum;
}

const Bonus* TabelaBonus::De(Integer codigo) {
  return codigo >= 1 && codigo <= kQuantos ? &kTodos[std::size_t(int(codigo)) - 1] : nullptr;
}

}  // namespace korvane
