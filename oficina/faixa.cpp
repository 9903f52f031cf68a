// The band below the bar: the types, the series, the rule, and the line of words.
#include <algorithm>
#include <cmath>

#include "oficina/FrmOficina.h"
#include "oficina/FrmRegra.h"
#include "oficina/desenho/reach.h"
#include "stage/files/path_text.h"

namespace oficina {
namespace {

constexpr Double kMargem = 100;  // form units, as all that follow
constexpr Double kVao = 30;
constexpr Double kFila = 285;

constexpr int kQuieta = 1000;  // ms without a change before a robot plays

const char* EspecieDe(int tipo) {
  switch (tipo) {
    case korvane::kRigido:
      return ", rígido";
    case korvane::kInvisivel:
      return ", invisível";
    default:
      return "";
  }
}

void Poe(stage::Control& control, Double esquerda, Double topo, Double largura, Double altura) {
  control.Left = Single(esquerda);
  control.Top = Single(topo);
  control.Width = Single(largura);
  control.Height = Single(altura);
}

std::string TempoDe(std::optional<Double> minutos) {
  if (!minutos) return "não chega ao fim";
  const auto segundos = static_cast<int>(std::lround(*minutos * 60));
  return "leva " + std::to_string(segundos / 60) + " min " + std::to_string(segundos % 60) + " s";
}

}  // namespace

void FrmOficina::DispoeFaixa() {
  constexpr Double kParteDosTipos = 0.68;
  constexpr Double kLetra = 250;
  constexpr Double kImagem = 255;
  const Double largura = Across(Width);
  const Double topo = statusbar.Top + statusbar.Height + kVao;
  const Double segunda = topo + kFila + kVao / 2;

  const Double passo = (largura * kParteDosTipos - kMargem) / desenho::kLastType;
  for (int tipo = 1; tipo <= desenho::kLastType; ++tipo) {
    Poe(Paleta(tipo), kMargem + (tipo - 1) * passo, topo + kVao / 2, passo - kVao, kFila - 2 * kVao);
  }
  MarcaTipo();

  const Double series = largura * kParteDosTipos + kVao;
  for (int i = 0; i <= 3; ++i) {
    Poe(Series(i), series + i * kLetra, topo, kLetra, kFila);
    Series(i).ForeColor = i == Serie ? stage::Rgb(255, 210, 63) : stage::Rgb(120, 130, 150);
  }
  const Double titulo = series + 4 * kLetra + kVao;
  Poe(Titulo, titulo, topo, largura - kMargem - titulo, kFila);

  Poe(Palavras, kMargem, segunda, largura * 0.6, kFila);
  const Double regra = largura * 0.62;
  Poe(ImagemPisca, regra, segunda + kVao, kImagem * 1.6, kImagem - kVao);
  Poe(TextoPisca, regra + kImagem * 1.6 + kVao, segunda, 1000, kFila);
  const Double barrado = regra + kImagem * 1.6 + 1000 + 2 * kVao;
  Poe(ImagemBarrado, barrado, segunda, kImagem * 1.05, kImagem);
  Poe(TextoBarrado, barrado + kImagem * 1.1 + kVao, segunda, 1100, kFila);
  Poe(Conta, largura - kMargem - 900, segunda, 900, kFila);

  Limite.PoeEm(0, desenho::Field::kBottom + Deslocamento(), largura, kVao / 2);
}

void FrmOficina::EscolheTipo(int tipo) {
  modelo_.type = tipo;
  MarcaTipo();
  if (!escolha_.empty()) Muda(desenho::MudaTipo(Agora(), escolha_, tipo));
}

void FrmOficina::MarcaTipo() {
  constexpr Double kFolga = 18;
  const stage::Image& imagem = Paleta(modelo_.type);
  TipoEscolhido.PoeEm(imagem.Left - kFolga, imagem.Top - kFolga, imagem.Width + 2 * kFolga,
                      imagem.Height + 2 * kFolga);
}

void FrmOficina::MostraRegra() {
  const desenho::Regra& regra = Agora().regra;
  const bool pisca = regra.pisca > 0;
  if (TimerPisca.Interval != regra.intervalo || TimerPisca.Enabled != pisca) {
    TimerPisca.Interval = regra.intervalo;
    TimerPisca.Enabled = pisca;
  }
  if (!pisca) EstadoPisca = true;
  const stage::PictureRef figura = pisca ? ImagePedra(regra.pisca).Picture.Get() : nullptr;
  if (ImagemPisca.Picture.Get() != figura) ImagemPisca.Picture = figura;
  TextoPisca.Caption = pisca ? std::to_string(regra.intervalo) + " ms" : "nada pisca";
  const bool um = regra.barrado >= 1 && regra.barrado <= desenho::kLastBonus;
  const stage::PictureRef bonus = um ? Palco.Pictures.Named("ImagePower", regra.barrado) : nullptr;
  if (ImagemBarrado.Picture.Get() != bonus) ImagemBarrado.Picture = bonus;
  if (um) {
    TextoBarrado.Caption = "barrado";
  } else {
    TextoBarrado.Caption = regra.barrado == 0 ? "todo bônus" : "sem bônus";
  }
}

void FrmOficina::EditaRegra() {
  const auto form = std::make_shared<FrmRegra>(Palco, ImagePedra, Agora().regra);
  Palco.Show(form, stage::kModal);
  if (!form->Resposta()) return;
  desenho::Desenho novo = Agora();
  novo.regra = *form->Resposta();
  Muda(std::move(novo));
}

void FrmOficina::MostraTitulo() {
  std::string titulo = arquivo_.empty() ? "Tela nova" : "Tela " + stage::TextOf(arquivo_.stem());
  if (!nome_.empty()) titulo += " · " + nome_;
  if (Mudado()) titulo += " *";
  Titulo.Caption = titulo;
}

void FrmOficina::Avisa(const std::string& aviso) {
  aviso_ = aviso;
  Escreve();
}

/// The pointer has left the field.
void FrmOficina::SobFaixa(const std::string& palavras) {
  Sombra.Visible = false;
  ponto_.reset();
  sob_faixa_ = palavras;
  Escreve();
}

/// What has just happened goes before what is under the pointer, and that before what is wrong.
void FrmOficina::Escreve() {
  std::string palavras = aviso_;
  if (palavras.empty()) palavras = PalavrasSobPonteiro();
  if (palavras.empty()) palavras = veredito_;
  Palavras.Caption = palavras;
}

std::string FrmOficina::PalavrasSobPonteiro() const {
  if (!ponto_) return sob_faixa_;
  const auto bloco = desenho::BlocoEm(Agora(), *ponto_);
  return bloco ? PalavrasDoBloco(*bloco) : "";
}

std::string FrmOficina::PalavrasDoBloco(std::size_t bloco) const {
  const desenho::Block& b = Agora().blocos[bloco];
  return "Tipo " + std::to_string(b.type) + EspecieDe(b.type) + " · " + std::to_string(b.width) + " x " +
         std::to_string(b.height) + " em " + std::to_string(b.left) + ", " + std::to_string(b.top);
}

/// Says what keeps the level from being played to its end.
void FrmOficina::Confere() {
  TimerConfere.Enabled = false;
  const std::vector<desenho::Block>& blocos = Agora().blocos;
  const bool so_rigidos = std::all_of(
      blocos.begin(), blocos.end(), [](const desenho::Block& bloco) { return bloco.type == desenho::kHard; });
  const auto fora = desenho::OutOfReach(blocos);
  MostraInalcancaveis(fora);
  const desenho::Verdict veredito = desenho::Confere(Agora());
  if (blocos.empty()) {
    veredito_ = "Clique põe um bloco, arraste pinta uma fila; F1 diz o resto";
  } else if (so_rigidos) {
    veredito_ = "Só há blocos rígidos: a esfera comum não tira nenhum";
  } else if (!fora.empty()) {
    veredito_ = "A esfera não alcança " + std::to_string(fora.size()) + " dos blocos: a tela nunca acaba";
  } else if (veredito.fault) {
    veredito_ = veredito.fault->Text();
  } else {
    veredito_ = "Pronta para jogar: " + std::to_string(veredito.hard) + " rígidos, " +
                std::to_string(veredito.unseen) + " invisíveis; F5 joga";
    robo_joga_ = false;
    TimerRobo.Interval = kQuieta;
    TimerRobo.Enabled = true;
  }
  Escreve();
}

/// Once the hand has been quiet for a while a robot plays what it has drawn.
void FrmOficina::PerguntaAoRobo() {
  constexpr int kOlhada = 100;  // ms
  if (!robo_joga_) {
    robo_joga_ = true;
    TimerRobo.Interval = kOlhada;
    return dono_.Robo.Joga(Agora());
  }
  if (!dono_.Robo.Pronto()) return;
  TimerRobo.Enabled = false;
  veredito_ += "; um robô " + TempoDe(dono_.Robo.Minutos());
  Escreve();
}

}  // namespace oficina
