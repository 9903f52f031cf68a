// The files of the workshop: levels, maps, and the drawing that nobody has saved yet.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "oficina/desenho/desenho.h"
#include "stage/files/program_folders.h"

namespace desenho {

/// What a file holds that was opened.
struct Aberto {
  /// The name that a map gives the level; a level file has none.
  std::string nome;
  Lido lido;
};

/// Opens a level file, or a text map if its name ends in ".txt". Raises stage::RuntimeError if the file
/// cannot be read, MapError for a map that is none: as both have no drawing, there is nothing to go on with.
Aberto Abre(const std::filesystem::path& arquivo);

/// Where the levels of a player lie. All that writes raises stage::RuntimeError if it cannot be done; what
/// was there is there still then.
class Guarda {
 public:
  explicit Guarda(stage::ProgramFolders pastas) : pastas_(std::move(pastas)) {}

  /// The lowest number from 1 on that no level of the player or of the game has.
  int NumeroLivre() const;
  /// The player's own level file, whether it is there or not.
  std::filesystem::path Fase(int numero) const;
  /// The same, or that of the game where the player has none of this number.
  std::filesystem::path FaseALer(int numero) const;

  /// Writes the level file, whole, and forgets the draft. What stood there and was not written by this Guarda
  /// is kept beside it as NAME.old, or .old2, .old3 and so on: whichever is the first that is free or holds
  /// the same already.
  void Grava(const std::filesystem::path& arquivo, const Desenho& desenho);
  /// The same for any text, such as a map. The draft stays.
  void GravaTexto(const std::filesystem::path& arquivo, std::string_view texto);

  /// Keeps a drawing that is not saved yet for the next start, whatever ends this run.
  void GuardaRascunho(const Desenho& desenho);
  /// What was kept by a run that did not save it.
  std::optional<Desenho> Rascunho() const;
  void EsqueceRascunho();

 private:
  std::filesystem::path Pasta() const;
  std::filesystem::path ArquivoDoRascunho() const;

  stage::ProgramFolders pastas_;
  /// What this run wrote, by file.
  std::map<std::filesystem::path, std::string> escritos_;
};

}  // namespace desenho
