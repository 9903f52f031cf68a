#include "oficina/prova.h"

#include <system_error>
#include <utility>

#include "core/programa.h"
#include "stage/files/temp_folder.h"
#include "stage/files/text_file.h"

namespace oficina {
namespace {

using std::filesystem::path;

/// The machine at hand with another folder in the place of the player's own. Sounds are still those of the
/// game.
class Emprestada : public stage::Platform {
 public:
  Emprestada(stage::Platform& maquina, path pasta) : maquina_(maquina), pasta_(std::move(pasta)) {}

  bool SessaoAcabou() const { return sessao_acabou_; }

  stage::ScreenSize Screen() override { return maquina_.Screen(); }
  stage::PixelSize DisplaySize() override { return maquina_.DisplaySize(); }
  stage::Artist& Drawing() override { return maquina_.Drawing(); }
  std::optional<stage::Framebuffer> Canvas() override { return maquina_.Canvas(); }
  int RefreshRate() override { return maquina_.RefreshRate(); }
  std::optional<stage::Moment> LastFrame() override { return maquina_.LastFrame(); }
  bool WantsStillness() override { return maquina_.WantsStillness(); }
  void Present(std::span<const stage::PixelRect> changed) override { maquina_.Present(changed); }
  std::optional<stage::Event> NextEvent() override {
    auto evento = maquina_.NextEvent();
    if (evento && std::holds_alternative<stage::QuitAsked>(*evento)) sessao_acabou_ = true;
    return evento;
  }
  void Wait(stage::Moment until, stage::Wake wake) override { maquina_.Wait(until, wake); }
  stage::Moment Now() override { return maquina_.Now(); }
  stage::Double SecondsOfDay() override { return maquina_.SecondsOfDay(); }
  void ShowPointer(bool shown) override { maquina_.ShowPointer(shown); }
  stage::PixelPoint PointerPlace() override { return maquina_.PointerPlace(); }
  void MovePointer(stage::PixelPoint place) override { maquina_.MovePointer(place); }
  void PlaySound(const path& file) override {
    const stage::ProgramFolders pastas = maquina_.Folders();
    maquina_.PlaySound(stage::FileToRead(pastas, pastas.own / file.lexically_relative(pasta_)));
  }
  std::string Clipboard() override { return maquina_.Clipboard(); }
  void SetClipboard(const std::string& text) override { maquina_.SetClipboard(text); }
  void TextWanted(bool wanted) override { maquina_.TextWanted(wanted); }
  void Beside(std::function<void()> work) override { maquina_.Beside(std::move(work)); }
  stage::ProgramFolders Folders() override { return {pasta_, {}}; }

 private:
  stage::Platform& maquina_;
  path pasta_;
  bool sessao_acabou_ = false;
};

void Prepara(const path& pasta, const path& do_jogador, const desenho::Desenho& desenho) {
  std::error_code erro;
  std::filesystem::create_directory(pasta / "levels", erro);
  std::filesystem::copy_file(do_jogador / "config.ini", pasta / "config.ini", erro);
  stage::WriteWhole(pasta / "levels" / "1.sav", desenho::SavDe(desenho));
}

}  // namespace

FimDaProva Prova(stage::Platform& maquina, std::span<const stage::Asset> assets,
                 const desenho::Desenho& desenho) {
  const stage::TempFolder pasta;
  Prepara(pasta.Path(), maquina.Folders().own, desenho);
  Emprestada emprestada(maquina, pasta.Path());
  korvane::Programa(emprestada, assets).CorreProva();
  return emprestada.SessaoAcabou() ? FimDaProva::kSessaoAcabou : FimDaProva::kVolta;
}

}  // namespace oficina
