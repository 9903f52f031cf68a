// The play form: owner of the field, of all its controls and timers, and of all procedures of play.
#pragma once

#include <string>
#include <string_view>

#include "core/programa.h"
#include "stage/forms/control_array.h"
#include "stage/painting/glide.h"

namespace korvane {

enum class Sorteio;
struct TabelaBonus;

/// Controls on the form are placed in form units, 0.99375 twips across and 0.9 twips down; the screen and the
/// form itself are in twips. The procedures mix the two by number.
class game : public stage::Form {
 public:
  explicit game(Programa& dono);

  Programa& programa;
  stage::Stage& Palco;
  korvane::Module1& Module1;

  // Controls, from the lowest layer up.

  stage::ControlArray<stage::Image> Box;
  stage::Image ball;
  stage::ControlArray<stage::Image> Imageball;
  stage::ControlArray<stage::Image> ImagePedra;
  stage::Image Imgbonus;
  stage::Image statusbar;
  stage::Label LabelPontos;
  stage::ControlArray<stage::Image> ImagePower;
  stage::ControlArray<stage::Image> life;
  stage::Label Label2;
  stage::ControlArray<stage::Image> ImageBonusParado;
  stage::PictureBox User;
  stage::Image Image1;

  stage::Timer Timer_Move;
  stage::Timer Timer_Move2;
  stage::Timer TimerPisca;
  stage::Timer TimerBonusParado;
  stage::Timer timerDefine;
  stage::Timer TimerDescebonus;
  stage::Timer Timer2;

  // What is seen to glide from beat to beat.

  stage::Glide VooBola;
  stage::Glide QuedaBonus;

  // State.

  /// Play is suspended: the ball and the bonus timers do nothing.
  Flag paused;
  /// The ball's step, form units to the right and down; it takes two in a beat.
  Double VelX = 0;
  Double VelY = 0;
  Integer Vidas;
  /// The ball rests on the paddle and waits for the launch.
  Flag BolaPresa;
  /// The folder that levels and sounds are read from.
  std::string Caminho;
  Integer FaseAtual;
  /// 0 to 3, shown as A to D.
  Integer Serie;
  /// Index of the element that carries the parked bonus, one above the last block.
  Integer ProximoBox;
  /// That element has been made; a level that cannot be read to its end has none.
  Flag TemFechamento;
  /// Code of the falling bonus, -1 for none.
  Integer BonusCaindo;
  /// Code of the parked bonus, 0 for none.
  Integer BonusParado;
  Flag Magnetico;
  /// Normal width of the paddle, form units.
  Integer LarguraBase;
  /// 1 small, 2 normal, 3 large.
  Integer TamanhoUser;
  /// Block type that blinks in this level, 0 for none.
  Integer TipoPisca;
  /// Bonus barred in this level, 0 for none, 10 for all.
  Integer BonusExcluido;
  Flag TemRigido;
  /// Where the ball was when the measuring of the speed began, form units.
  Long TopoInicial;
  /// Hundredths of a second since midnight.
  Single TempoInicial = 0;
  /// Hits on hard blocks since the paddle or another block was hit.
  Integer BatidasRigido;
  /// The held ball's Left minus the paddle's, form units; 0 for the centre.
  Single DeslocaBola = 0;
  Flag EstadoPisca;
  /// Counts the levels taken off the field, so that a procedure that gives way can tell that its level is
  /// gone.
  Long FasesRetiradas;
  /// A level has been read in this run.
  Flag LeuFase;
  /// A game has ended in this run.
  Flag JogouUma;

  // Start and end.

  void Form_Load() override;
  void Form_Unload() override;
  Integer Redimensionar(std::string_view oque, Integer valor) const;

  // Keys and clicks.

  void Form_KeyDown(Integer KeyCode, Integer Shift) override;
  void Form_Click() override;
  void Box_Click(Integer Index);
  void statusbar_Click();
  void Image1_Click();

  // The paddle.

  void Form_MouseMove(Integer Button, Integer Shift, Single X, Single Y) override;
  void Box_MouseMove(Integer Index, Integer Button, Integer Shift, Single X, Single Y);
  void Imgbonus_MouseMove(Integer Button, Integer Shift, Single X, Single Y);
  void life_MouseMove(Integer Index, Integer Button, Integer Shift, Single X, Single Y);
  void statusbar_MouseMove(Integer Button, Integer Shift, Single X, Single Y);
  void Label2_MouseMove(Integer Button, Integer Shift, Single X, Single Y);
  void LabelPontos_MouseMove(Integer Button, Integer Shift, Single X, Single Y);
  void User_MouseMove(Integer Button, Integer Shift, Single X, Single Y);
  void Image1_MouseMove(Integer Button, Integer Shift, Single X, Single Y);

  // The ball.

  void Timer_Move_Timer();
  void Timer_Move2_Timer();
  void MoveBola();
  Long UserMeio();
  void hos(Lado Side, Integer boxindex);
  void timerDefine_Timer();

  // Levels.

  /// Puts the level on the field; if its file cannot be read, the first level of the next series.
  void loadup(Integer num);
  /// Takes the level off the field and holds the ball.
  void clearall();
  /// Goes on to the next level if only hard blocks are left.
  void passafase();

  // Bonuses.

  /// Does what the bonus does.
  void consedebonus(Integer nbonus);
  void Timer2_Timer();
  void TimerDescebonus_Timer();
  void TestaBonus();
  void TimerBonusParado_Timer();
  void TimerPisca_Timer();

  // The end of a game.

  void gameover();
  /// Enters the score into the table of records; false if it has no place there.
  Flag VerificaRecord();

  // Status and sound.

  void ExibeVidas(Integer nvida);
  void ExibeBolaAtual();
  void sound(std::string_view swave);

 protected:
  // What the field of the workshop has from that of play.
  void DispoeBarra();
  void DimensionaUser();
  /// Lays a control where the series at hand has a block. Its numbers are those of a level file.
  void DispoeBloco(stage::Control& bloco, Integer topo, Integer esquerda, Integer altura,
                   Integer largura) const;

 private:
  friend TabelaBonus;

  // The rest of start-up.
  void DispoeVidas();
  void DispoeRotulos();
  void LeVelocidade();

  // The steps of a tick of the ball; those that answer tell whether the tick ends.
  void SeguraBola();
  stage::Place LugarPreso();
  bool BateParede();
  void RebateUser();
  void ProcuraBox();
  bool PerdeBola();
  void RepoeBola();
  bool LimpaFase();
  void AvancaBola();

  // What a hit does.
  void InverteVelocidade(Lado Side);
  void PontuaBatida(Integer tipo);
  void BateRigido(Lado Side, Integer boxindex);
  void EncostaBola(Lado Side, Integer boxindex);
  void AmoleceRigidos();

  // The paddle goes where the pointer is, and may meet the falling bonus there.
  void MoveUser(Double posicao);
  void MoveUserTestando(Double posicao);

  // A level read from its file.
  void CarregaFase(Integer num);
  void CriaFechamento();
  void ProximaFase();
  void TodosCompletados(Integer num);

  // What the eye is shown.
  void CuidaEfeitos();
  void EstalaBloco(Integer boxindex);
  void BrilhaRigido(Integer boxindex);
  void RevelaBloco(Integer boxindex);
  void AcendeAmolecido(Integer boxindex);
  void RiscaParede(Lado parede);
  void CaiBola();
  void DeixaUser();
  void ApagaVida(Integer k);
  void AcendeVida(Integer k);
  void EngoleBonus();
  void AcendeUser(Integer codigo);
  void SurgeBonusParado();
  void SurgeFase();

  // Keys.
  void SaltaFase();
  void PedeAjuda();
  void PedePausa();
  void Sai();

  // Bonuses.
  void TrocaBola(Integer codigo);
  void TiraPoderes();
  void PerdeVida();
  void MudaTamanho(Integer tamanho);
  void GanhaFase();
  int CodigoSorteado(Sorteio sorteio);
  int AplicaRegras(int codigo, Sorteio sorteio) const;
  void SoltaBonus();
  bool ProcuraLugar(const stage::Image& fecho, Double& y, Single& x);
  bool LugarLivre(const stage::Image& fecho, Double y, Single x, Long fase);
  bool BolaSobre(const stage::Image& bloco);
};

}  // namespace korvane
