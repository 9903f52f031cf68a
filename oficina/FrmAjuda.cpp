#include "oficina/FrmAjuda.h"
#include "stage/forms/dialogs.h"

namespace oficina {
namespace {

using stage::Double;

struct Linha {
  const char* gesto;
  const char* efeito;
};

constexpr Linha kLinhas[] = {{"Clique", "põe um bloco; sobre um bloco, escolhe"},
                             {"Arraste", "pinta uma fila, ou move o que está escolhido"},
                             {"Ctrl + arraste", "escolhe o que o elástico toca"},
                             {"Ctrl + clique", "soma um bloco à escolha, ou tira"},
                             {"Alças", "mudam o tamanho"},
                             {"Botão direito, Delete", "apagam"},
                             {"Botão do meio", "toma o tipo e o tamanho de um bloco"},
                             {"Roda", "troca o tipo"},
                             {"Shift", "malha cinco vezes mais fina"},
                             {"G", "liga e desliga a malha"},
                             {"Setas", "deslocam a escolha"},
                             {"Ctrl + A, C, X, V, D", "tudo, copia, recorta, cola, duplica"},
                             {"Ctrl + Z, Ctrl + Y", "desfaz, refaz"},
                             {"E, Ctrl + E", "espelha a escolha; em volta do meio do campo"},
                             {"1 a 4", "mostra a série A a D"},
                             {"R", "regra da tela: o que pisca, o bônus barrado"},
                             {"F5", "joga a tela; Esc volta"},
                             {"Ctrl + O, Ctrl + S", "abre, guarda"},
                             {"Ctrl + M", "exporta um mapa de texto"},
                             {"Ctrl + L", "copia o endereço da tela, para mandar a alguém"},
                             {"Esc", "larga a escolha; sai"}};

constexpr Double kMargem = 360;
constexpr Double kAltura = 285;
constexpr Double kGestos = 2550;
constexpr Double kEfeitos = 5100;

}  // namespace

FrmAjuda::FrmAjuda(stage::Stage& palco)
    : Form(palco, "FrmAjuda",
           {0, 0, 2 * kMargem + kGestos + kEfeitos, 2 * kMargem + kAltura * std::size(kLinhas)}) {
  Left = stage::Single((palco.Screen.Width - Width) / 2);
  Top = stage::Single((palco.Screen.Height - Height) / 2);
  SetFrame(stage::box::kFrame);
  Double topo = kMargem;
  for (const Linha& linha : kLinhas) {
    Escreve(kMargem, topo, linha.gesto, stage::Rgb(255, 210, 63));
    Escreve(kMargem + kGestos, topo, linha.efeito, stage::Rgb(240, 240, 240));
    topo += kAltura;
  }
}

void FrmAjuda::Escreve(Double esquerda, Double topo, const std::string& texto, stage::Long cor) {
  const stage::Design lugar{esquerda, topo, Width - kMargem - esquerda, kAltura};
  linhas_.emplace_back(*this, lugar, stage::Style{stage::box::kFont, cor, stage::Align::kLeft, true}, texto);
  linhas_.back().Enabled = false;
}

void FrmAjuda::Form_KeyDown(stage::Integer, stage::Integer) { Unload(); }

void FrmAjuda::Form_Click() { Unload(); }

}  // namespace oficina
