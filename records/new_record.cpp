// Whether a score enters the table, and where.
#include "core/game.h"
#include "records/FrmEntrarecord.h"
#include "records/FrmMostraRecords.h"
#include "records/store.h"

namespace korvane {

Flag game::VerificaRecord() {
  korvane::Module1& m = Module1;
  Integer i = 1;
  while (i <= kRecords && !(Double(m.Pontos) > Int(m.RecPontos(i)))) i = i + 1;
  if (i > kRecords) return false;
  programa.FrmEntrarecord.Show(stage::kModal);
  if (m.NomeRecord.empty()) {
    m.RecNovo = 0;
  } else {
    for (Integer j = kRecords; j > i; j = j - 1) {
      m.RecNome(j) = m.RecNome(j - 1);
      m.RecPontos(j) = m.RecPontos(j - 1);
    }
    m.RecNome(i) = m.NomeRecord;
    m.RecPontos(i) = Double(m.Pontos);
    GravaRecords(m);
    m.RecNovo = i;
  }
  programa.FrmMostraRecords.Show(stage::kModal);
  return true;
}

}  // namespace korvane
