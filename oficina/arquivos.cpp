// Levels come from files and go to them.
#include <algorithm>

#include "oficina/FrmOficina.h"
#include "oficina/FrmPergunta.h"
#include "oficina/desenho/map.h"
#include "oficina/prova.h"
#include "stage/files/path_text.h"

namespace oficina {
namespace {

using std::filesystem::path;

constexpr int kUltimoNumero = 32767;  // the game counts no further

/// The number that a text is, 0 if it is none of a level.
int NumeroDe(const std::string& texto) {
  const bool digitos =
      !texto.empty() && texto.size() <= 5 && texto.find_first_not_of("0123456789") == std::string::npos;
  const int numero = digitos ? std::stoi(texto) : 0;
  return numero <= kUltimoNumero ? numero : 0;
}

/// As much of a file's name as has room in a line.
std::string NomeDe(const path& arquivo) {
  return stage::TextOf(arquivo.parent_path().filename() / arquivo.filename());
}

}  // namespace

void FrmOficina::Comeca(desenho::Desenho desenho) {
  historia_ = desenho::Historia(desenho);
  salvo_ = std::move(desenho);
  escolha_.clear();
  MostraTudo();
}

path FrmOficina::ArquivoDe(const std::string& resposta, bool a_ler) const {
  const int numero = NumeroDe(resposta);
  if (numero == 0) return stage::PathOf(resposta);
  return a_ler ? dono_.Guarda.FaseALer(numero) : dono_.Guarda.Fase(numero);
}

void FrmOficina::PerguntaAbrir() {
  if (!PodeLargar()) return;
  const std::string resposta = Palco.InputBox("Número da tela a abrir, ou nome de um arquivo");
  if (!resposta.empty() && Abre(ArquivoDe(resposta, true))) dono_.Rascunho.Esquece();
}

bool FrmOficina::Abre(const path& arquivo) try {
  desenho::Aberto aberto = desenho::Abre(arquivo);
  arquivo_ = std::filesystem::absolute(arquivo).lexically_normal();
  nome_ = aberto.nome;
  Comeca(std::move(aberto.lido.desenho));
  const auto& faltas = aberto.lido.faltas;
  if (faltas.empty()) {
    Avisa("Aberta: " + NomeDe(arquivo));
  } else {
    Avisa("Ficou de fora: " + faltas.front().Text() +
          (faltas.size() > 1 ? " (e mais " + std::to_string(faltas.size() - 1) + ")" : ""));
  }
  return true;
} catch (const std::runtime_error& erro) {
  Avisa("Não se lê " + NomeDe(arquivo) + ": " + erro.what());
  return false;
}

/// The name that the drawing is saved by unless another is typed.
std::string FrmOficina::Oferta() const {
  const int numero = NumeroDe(stage::TextOf(arquivo_.stem()));
  const bool numerada =
      numero > 0 && (arquivo_ == dono_.Guarda.Fase(numero) || arquivo_ == dono_.Guarda.FaseALer(numero));
  if (numerada) return std::to_string(numero);
  if (arquivo_.extension() == ".sav") return stage::TextOf(arquivo_);
  return std::to_string(dono_.Guarda.NumeroLivre());
}

bool FrmOficina::Guarda() {
  if (Agora().blocos.empty()) {
    Avisa("Não há o que guardar");
    return false;
  }
  const std::string resposta = Palco.InputBox("Guardar com o número, ou nome de um arquivo", Oferta());
  if (resposta.empty()) return false;
  path arquivo = ArquivoDe(resposta, false);
  if (arquivo.extension() != ".sav") arquivo += ".sav";
  try {
    dono_.Guarda.Grava(arquivo, Agora());
  } catch (const stage::RuntimeError& erro) {
    Avisa("Não se grava " + NomeDe(arquivo) + ": " + erro.what());
    return false;
  }
  dono_.Rascunho.Esquece();
  arquivo_ = arquivo;
  salvo_ = Agora();
  MostraTitulo();
  Avisa("Guardada: " + NomeDe(arquivo));
  return true;
}

void FrmOficina::Exporta() {
  const std::string nome = Palco.InputBox("Nome da tela no mapa", nome_);
  if (nome.empty()) return;
  const auto mapa = desenho::MapaDe(Agora(), nome);
  if (!mapa) return Avisa("O desenho não cabe na malha de um mapa de texto");
  path arquivo = ArquivoDe(Oferta(), false);
  arquivo.replace_extension(".txt");
  try {
    dono_.Guarda.GravaTexto(arquivo, *mapa);
  } catch (const stage::RuntimeError& erro) {
    return Avisa("Não se grava " + NomeDe(arquivo) + ": " + erro.what());
  }
  nome_ = nome;
  MostraTitulo();
  Avisa("Mapa: " + NomeDe(arquivo));
}

/// The drawing of a run that ended without saving it comes back, if its player wants it to.
void FrmOficina::RecuperaRascunho() {
  auto rascunho = dono_.Guarda.Rascunho();
  por_responder_ = rascunho.has_value();
  if (!rascunho) return;
  const auto resposta =
      FrmPergunta::Pergunta(Palco, "Há um desenho que não chegou a ser guardado.", {"Recuperar", "Esquecer"});
  por_responder_ = !resposta;
  if (resposta == 0) {
    arquivo_.clear();
    nome_.clear();
    Muda(*std::move(rascunho));
    Avisa("Recuperado; ainda não foi guardado");
  } else if (resposta == 1) {
    dono_.Guarda.EsqueceRascunho();
  }
}

/// Once a second while the drawing changes.
void FrmOficina::GuardaRascunho() {
  TimerRascunho.Enabled = false;
  if (dono_.Rascunho.Falhou()) Avisa("O desenho não se guarda à parte: não há onde");
  if (Mudado()) dono_.Rascunho.Guarda(Agora());
}

void FrmOficina::Prova() {
  if (Agora().blocos.empty()) return Avisa("Não há o que jogar");
  GuardaRascunho();
  auto fim = FimDaProva::kVolta;
  try {
    fim = oficina::Prova(Palco.Machine(), dono_.Assets, Agora());
  } catch (const std::runtime_error& erro) {
    Avisa(std::string("Não se joga agora: ") + erro.what());
  }
  Palco.Machine().ShowPointer(true);
  Palco.Machine().TextWanted(false);
  if (fim == FimDaProva::kSessaoAcabou) return Unload();
  Palco.ForgetInput();
  Palco.Repaint();
}

}  // namespace oficina
