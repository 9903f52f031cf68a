// The form that levels are drawn on: the field, bar and paddle of the play form at rest, blocks as they look
// in play, and where the status line is in play what the hand draws with.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"
#include "oficina/desenho/edicao.h"
#include "oficina/desenho/historia.h"
#include "oficina/marca.h"
#include "oficina/oficina.h"

namespace oficina {

using stage::Double;
using stage::Integer;
using stage::Single;

/// Places of the drawing are in design units of the 12000 by 9000 screen. Block number i of the drawing is
/// Box(i + 1).
class FrmOficina : public korvane::game {
 public:
  explicit FrmOficina(Oficina& dono);

  const desenho::Desenho& Agora() const { return historia_.Agora(); }
  const desenho::Escolha& Escolhidos() const { return escolha_; }
  /// It is not what was opened or saved last.
  bool Mudado() const { return Agora() != salvo_; }

  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload() override;
  void Form_Unload() override;
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;
  void Form_KeyUp(Integer KeyCode, Integer Shift) override;
  bool Form_MouseDown(Integer Button, Integer Shift, Single X, Single Y) override;
  void Form_MouseMove(Integer Button, Integer Shift, Single X, Single Y) override;
  void Form_MouseUp(Integer Button, Integer Shift, Single X, Single Y) override;
  void Form_Wheel(Integer Steps, Integer Shift) override;

  // Controls, from the lowest layer up.

  stage::Image Sombra;  // of the block that a click would put
  std::vector<std::unique_ptr<Marca>> Inalcancaveis;
  std::vector<std::unique_ptr<Marca>> Contornos;
  std::array<Marca, 8> Alcas;
  std::array<Marca, 4> Elastico;
  Marca Limite;  // blocks end above it
  stage::ControlArray<stage::Image> Paleta;
  Marca TipoEscolhido;
  stage::ControlArray<stage::Label> Series;
  stage::Label Titulo;
  stage::Label Palavras;
  stage::Image ImagemPisca;
  stage::Label TextoPisca;
  stage::Image ImagemBarrado;
  stage::Label TextoBarrado;
  stage::Label Conta;

  stage::Timer TimerMao;
  stage::Timer TimerConfere;
  stage::Timer TimerRascunho;
  stage::Timer TimerRobo;

 private:
  static constexpr const char* kCheio = "Não cabem mais de 598 blocos";
  static constexpr std::array<desenho::Alca, 8> kAlcas{
      {{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}}};

  enum class Gesto { kNada, kPinta, kMove, kEstica, kElastico, kApaga };

  /// What the hand is about while a button is down.
  struct Mao {
    Gesto gesto = Gesto::kNada;
    int numero = 0;           // of the gesture, for the history
    desenho::Ponto inicio{};  // where the button went down
    desenho::Ponto de{};      // the corner that the grid holds on to, or how far the pointer has removed
    std::optional<desenho::Ponto> ate{};  // where the pointer has gone since something was done
    int shift = 0;                        // what is held down with it
    desenho::Alca alca{};
    desenho::Desenho antes{};
    desenho::Escolha escolha{};
    bool andou = false;  // it moves or resizes what is chosen
  };

  // The drawing and what is seen of it.
  void Muda(desenho::Desenho novo, int gesto = 0);
  void Escolhe(desenho::Escolha escolha);
  void MostraTudo();
  void MostraBlocos();
  void MostraBloco(Integer indice, const desenho::Block& bloco);
  void MostraEscolha();
  void MostraAlcas();
  void MostraRegra();
  void MostraElastico(desenho::Ponto a, desenho::Ponto b);
  void MostraSombra(desenho::Ponto ponto, int shift);
  void MostraInalcancaveis(const std::vector<std::size_t>& quais);
  void Pisca();
  void PoeMarca(Marca& marca, const desenho::Block& lugar, Double folga);
  stage::TwipRect CaixaDaEscolha() const;
  desenho::Ponto NoDesenho(Single X, Single Y) const;
  Double Deslocamento() const;

  // The hand.
  desenho::Malha MalhaDe(int shift) const;
  desenho::Ponto CantoSob(desenho::Ponto ponto, int shift) const;
  std::optional<desenho::Alca> AlcaEm(Single X, Single Y) const;
  void Comeca(Gesto gesto, desenho::Ponto ponto);
  void ComecaEsquerdo(desenho::Ponto ponto, int shift, std::optional<desenho::Alca> alca);
  void ComecaNoBloco(std::size_t bloco, desenho::Ponto ponto, int shift);
  void SegueMao();
  void Continua(desenho::Ponto ponto, int shift);
  void Arrasta(desenho::Ponto ponto, int shift);
  void ApagaAte(desenho::Ponto ponto);
  void ApagaSob(desenho::Ponto ponto);
  void Desiste();
  void Termina();
  void TomaDe(desenho::Ponto ponto);

  // The keys.
  void TeclaComCtrl(int codigo, int shift);
  void TeclaSimples(int codigo, int shift);
  void Desloca(int codigo, int shift);
  void Desfaz(bool outra_vez);
  void Copia();
  void Cola();
  void Duplica();
  void Apaga();
  void Espelha(bool no_campo);
  void MostraSerie(int serie);
  void Acrescenta(const std::optional<desenho::Feito>& feito);
  void Fecha();

  // The band below the bar.
  void DispoeFaixa();
  /// For the next blocks, and for those that are chosen.
  void EscolheTipo(int tipo);
  void MarcaTipo();
  void Avisa(const std::string& aviso);
  std::string PalavrasSobPonteiro() const;
  void SobFaixa(const std::string& palavras);
  void Escreve();
  void Confere();
  void PerguntaAoRobo();
  void EditaRegra();
  void MostraTitulo();
  std::string PalavrasDoBloco(std::size_t bloco) const;

  // The files.
  bool PodeLargar();
  void PerguntaAbrir();
  bool Abre(const std::filesystem::path& arquivo);
  void Comeca(desenho::Desenho desenho);
  bool Guarda();
  void Exporta();
  void RecuperaRascunho();
  void GuardaRascunho();
  std::filesystem::path ArquivoDe(const std::string& resposta, bool a_ler) const;
  std::string Oferta() const;
  void Prova();

  // Drawings come in addresses and go in them.
  void AbrePedido(const std::string& pedido);
  void AbreEndereco(std::string_view endereco);
  void CopiaEndereco();

  Oficina& dono_;
  desenho::Historia historia_;
  desenho::Desenho salvo_;
  desenho::Escolha escolha_;
  desenho::Block modelo_;
  bool malha_ = true;
  Mao mao_;
  int gestos_ = 0;
  int tecla_ = 0;        // the arrow that is held down
  int gesto_tecla_ = 0;  // what it does
  std::string recorte_;  // what was copied last, for machines whose clipboard cannot be read
  std::filesystem::path arquivo_;
  std::string nome_;
  std::string aviso_;
  std::optional<desenho::Ponto> ponto_;  // where the pointer is, while it is over the field
  std::string sob_faixa_;                // what it is over, while it is over the band
  std::string veredito_;
  bool robo_joga_ = false;
  bool por_responder_ = false;  // nobody has said what becomes of the drawing of an earlier run
  bool descartado_ = false;     // by the player: what is not saved may be lost
};

}  // namespace oficina
