#include "oficina/robo.h"

#include <exception>

#include "oficina/bot/level_plays.h"
#include "oficina/bot/session.h"
#include "stage/files/temp_folder.h"
#include "stage/files/text_file.h"

namespace oficina {
namespace {

/// Raises std::runtime_error if there is no room for a folder to play in.
std::optional<stage::Double> MinutosDe(const desenho::Desenho& desenho) {
  constexpr std::uint32_t kJogos = 5;
  const stage::TempFolder pasta;
  std::filesystem::create_directory(pasta.Path() / "levels");
  stage::WriteWhole(pasta.Path() / "levels" / "1.sav", desenho::SavDe(desenho));
  std::vector<bot::LevelPlay> jogos;
  for (std::uint32_t semente = 1; semente <= kJogos; ++semente) {
    jogos.push_back(bot::PlayLevel(pasta.Path(), 1, 0, semente));
    if (!jogos.back().ended) return std::nullopt;
  }
  return bot::LevelFigures(0, 1, std::move(jogos)).minutes;
}

}  // namespace

void Robo::Joga(const desenho::Desenho& desenho) {
  jogos_ = std::make_shared<Jogos>();
  maquina_.Beside([jogos = jogos_, desenho] {
    if (jogos.use_count() == 1) return;  // nobody waits for them any more
    try {
      jogos->minutos = MinutosDe(desenho);
    } catch (const bot::Broken&) {  // then nobody knows
    } catch (const std::runtime_error&) {
    }
    jogos->prontos = true;
  });
}

}  // namespace oficina
