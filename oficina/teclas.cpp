// The keys.
#include "oficina/FrmAjuda.h"
#include "oficina/FrmOficina.h"
#include "oficina/desenho/recorte.h"

namespace oficina {
namespace {

using namespace stage::key;

}  // namespace

void FrmOficina::Form_KeyDown(Integer KeyCode, Integer Shift) {
  aviso_.clear();
  if (mao_.gesto != Gesto::kNada) {
    if (KeyCode == kEsc) Desiste();
    return;
  }
  if ((Shift & stage::kCtrl) != 0) {
    TeclaComCtrl(KeyCode, Shift);
  } else {
    TeclaSimples(KeyCode, Shift);
  }
  Escreve();
}

void FrmOficina::Form_KeyUp(Integer KeyCode, Integer) {
  if (KeyCode == tecla_) tecla_ = 0;
}

void FrmOficina::TeclaComCtrl(int codigo, int shift) {
  switch (codigo) {
    case kA:
      return Escolhe(desenho::Tudo(Agora()));
    case kC:
      return Copia();
    case kX:
      Copia();
      return Apaga();
    case kV:
      return Cola();
    case kD:
      return Duplica();
    case kE:
      return Espelha(true);
    case kZ:
      return Desfaz((shift & stage::kShift) != 0);
    case kY:
      return Desfaz(true);
    case kO:
      return PerguntaAbrir();
    case kS:
      Guarda();
      return;
    case kM:
      return Exporta();
    case kL:
      return CopiaEndereco();
    default:
      return;
  }
}

void FrmOficina::TeclaSimples(int codigo, int shift) {
  constexpr int k1 = '1';
  constexpr int k4 = '4';
  if (codigo >= kLeft && codigo <= kDown) return Desloca(codigo, shift);
  if (codigo >= k1 && codigo <= k4) return MostraSerie(codigo - k1);
  switch (codigo) {
    case kDelete:
    case kBackspace:
      return Apaga();
    case kE:
      return Espelha(false);
    case kG:
      malha_ = !malha_;
      return Avisa(malha_ ? "Malha ligada" : "Malha desligada");
    case kR:
      return EditaRegra();
    case kF1:
      return Palco.Show(std::make_shared<FrmAjuda>(Palco), stage::kModal);
    case kF5:
      return Prova();
    case kEsc:
      return escolha_.empty() ? Fecha() : Escolhe({});
    default:
      return;
  }
}

/// A key that is held down moves in one go, as far as undoing is concerned.
void FrmOficina::Desloca(int codigo, int shift) {
  if (codigo != tecla_) gesto_tecla_ = ++gestos_;
  tecla_ = codigo;
  const desenho::Ponto passo = MalhaDe(shift).passo;
  const int x = (codigo == kRight ? 1 : 0) - (codigo == kLeft ? 1 : 0);
  const int y = (codigo == kDown ? 1 : 0) - (codigo == kUp ? 1 : 0);
  Muda(desenho::Move(Agora(), escolha_, {x * passo.x, y * passo.y}), gesto_tecla_);
}

void FrmOficina::Desfaz(bool outra_vez) {
  Escolhe({});
  const bool feito = outra_vez ? historia_.Refaz() : historia_.Desfaz();
  if (!feito) return Avisa(outra_vez ? "Nada a refazer" : "Nada a desfazer");
  MostraTudo();
}

void FrmOficina::Copia() {
  if (escolha_.empty()) return;
  recorte_ = desenho::Recorte(Agora(), escolha_);
  Palco.Machine().SetClipboard(recorte_);
}

void FrmOficina::Cola() {
  auto blocos = desenho::DoRecorte(Palco.Machine().Clipboard());
  if (!blocos) blocos = desenho::DoRecorte(recorte_);
  if (!blocos) return Avisa("Não há blocos copiados");
  Acrescenta(desenho::Poe(Agora(), *blocos, MalhaDe(0).passo));
}

void FrmOficina::Duplica() {
  if (!escolha_.empty()) Acrescenta(desenho::Duplica(Agora(), escolha_, MalhaDe(0)));
}

void FrmOficina::Acrescenta(const std::optional<desenho::Feito>& feito) {
  if (!feito) return Avisa(kCheio);
  escolha_ = feito->novos;
  Muda(feito->desenho);
}

void FrmOficina::Apaga() {
  if (escolha_.empty()) return;
  desenho::Desenho resto = desenho::Apaga(Agora(), std::exchange(escolha_, {}));
  Muda(std::move(resto));
}

void FrmOficina::Espelha(bool no_campo) {
  if (no_campo || escolha_.empty()) {
    Muda(desenho::EspelhaNoCampo(Agora(), escolha_.empty() ? desenho::Tudo(Agora()) : escolha_));
  } else {
    Muda(desenho::EspelhaEmSi(Agora(), escolha_));
  }
}

void FrmOficina::MostraSerie(int serie) {
  Serie = serie;
  DispoeFaixa();
  MostraTudo();
}

}  // namespace oficina
