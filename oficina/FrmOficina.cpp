// The form as designed, and how it comes and goes.
#include "oficina/FrmOficina.h"

#include "oficina/FrmPergunta.h"
#include "stage/forms/dialogs.h"

namespace oficina {
namespace {

using korvane::kInvisivel;
using stage::Align;
using stage::Design;
using stage::Rgb;

constexpr stage::Pixel kCorDoElastico = 0xF0F0F0;
constexpr stage::Pixel kCorDoLimite = 0x2A3348;
constexpr int kSeries = 4;

const stage::Style kPalavras{stage::box::kFont, Rgb(200, 208, 224)};
const stage::Style kADireita{stage::box::kFont, Rgb(200, 208, 224), Align::kRight};

template <std::size_t... Numeros>
std::array<Marca, sizeof...(Numeros)> Iguais(stage::Container& form, stage::Pixel cor,
                                             std::index_sequence<Numeros...>) {
  return {((void)Numeros, Marca(form, cor, Marca::Forma::kCheia))...};
}

}  // namespace

FrmOficina::FrmOficina(Oficina& dono)
    : game(dono.programa),
      Sombra(*this, {}, nullptr, true),
      Alcas(Iguais(*this, stage::box::kMarked, std::make_index_sequence<8>())),
      Elastico(Iguais(*this, kCorDoElastico, std::make_index_sequence<4>())),
      Limite(*this, kCorDoLimite, Marca::Forma::kCheia),
      Paleta(*this, "Paleta",
             [this](auto& array) {
               ImagePedra(kInvisivel).Picture = Palco.Pictures.Named("invisivel");
               for (int tipo = 1; tipo <= desenho::kLastType; ++tipo) {
                 array.Design(tipo, Design{}, ImagePedra(tipo).Picture.Get(), true);
               }
             }),
      TipoEscolhido(*this, stage::box::kMarked, Marca::Forma::kLinha),
      Series(*this, "Series",
             [](auto& array) {
               const stage::Style letra{stage::box::kBold, Rgb(200, 208, 224), Align::kCenter};
               for (int i = 0; i < kSeries; ++i) {
                 array.Design(i, Design{}, letra, std::string(1, char('A' + i)));
               }
             }),
      Titulo(*this, {}, {stage::box::kBold, Rgb(255, 192, 128), Align::kRight}, ""),
      Palavras(*this, {}, kPalavras, ""),
      ImagemPisca(*this, {}, nullptr, true),
      TextoPisca(*this, {}, kPalavras, ""),
      ImagemBarrado(*this, {}, nullptr, true),
      TextoBarrado(*this, {}, kPalavras, ""),
      Conta(*this, {}, kADireita, ""),
      TimerMao(*this, 0, false),
      TimerConfere(*this, 200, false),
      TimerRascunho(*this, 1000, false),
      TimerRobo(*this, 1, false),
      dono_(dono),
      modelo_{.height = desenho::kAlturaNormal, .width = desenho::kLarguraNormal, .type = 1} {
  for (stage::Timer* const timer : {&Timer_Move, &Timer_Move2, &TimerPisca, &TimerBonusParado, &Timer2})
    timer->Enabled = false;
  for (stage::Control* const control :
       std::initializer_list<stage::Control*>{&ball, &LabelPontos, &Label2, &life(1)})
    control->Visible = false;
  for (stage::Control* const control : std::initializer_list<stage::Control*>{
           &Box(0), &statusbar, &User, &Sombra, &Titulo, &Palavras, &Conta})
    control->Enabled = false;

  TimerPisca.Tick = [this] { Pisca(); };
  TimerMao.Tick = [this] { SegueMao(); };
  TimerConfere.Tick = [this] { Confere(); };
  TimerRascunho.Tick = [this] { GuardaRascunho(); };
  TimerRobo.Tick = [this] { PerguntaAoRobo(); };
  Paleta.Click = [this](Integer tipo) { EscolheTipo(tipo); };
  Paleta.MouseMove = [this](Integer tipo, auto...) { SobFaixa("Tipo " + std::to_string(tipo)); };
  Series.Click = [this](Integer serie) { MostraSerie(serie); };
  Series.MouseMove = [this](auto...) { SobFaixa("A série mostra até onde os blocos descem"); };
  ImagemPisca.Click = TextoPisca.Click = ImagemBarrado.Click = TextoBarrado.Click = [this] { EditaRegra(); };
  ImagemPisca.MouseMove = TextoPisca.MouseMove = ImagemBarrado.MouseMove = TextoBarrado.MouseMove =
      [this](auto...) { SobFaixa("A regra: o tipo que pisca e o bônus que nunca cai"); };
}

void FrmOficina::Form_Load() {
  Width = Palco.Screen.Width;
  Height = Palco.Screen.Height;
  EstadoPisca = true;
  DispoeBarra();
  DimensionaUser();
  DispoeFaixa();
  Comeca(desenho::Desenho{});
}

void FrmOficina::Form_Activate() {
  AbrePedido(std::exchange(dono_.Pedido, {}));
  if (Loaded()) RecuperaRascunho();
}

bool FrmOficina::Form_QueryUnload() {
  descartado_ = PodeLargar();
  return descartado_;
}

/// What is not saved is asked for.
bool FrmOficina::PodeLargar() {
  if (!Mudado()) return true;
  const auto resposta =
      FrmPergunta::Pergunta(Palco, "O desenho ainda não foi guardado.", {"Guardar", "Não guardar", "Voltar"});
  return resposta == 0 ? Guarda() : resposta == 1;
}

void FrmOficina::Form_Unload() {
  if (Mudado() && !descartado_) {
    dono_.Rascunho.Guarda(Agora());
  } else if (!por_responder_) {
    dono_.Rascunho.Esquece();
  }
}

void FrmOficina::Fecha() {
  if (Form_QueryUnload()) Unload();
}

}  // namespace oficina
