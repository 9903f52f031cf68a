#include "oficina/desenho/historia.h"

#include <algorithm>
#include <utility>

namespace desenho {

void Historia::Muda(Desenho novo, int gesto) {
  if (novo == agora_) return;
  desfeitos_.clear();
  if (gesto != 0 && !feitos_.empty() && feitos_.back().gesto == gesto) {
    Aplica(feitos_.back());
    feitos_.pop_back();
  }
  if (novo != agora_) feitos_.push_back(Entre(novo, agora_, gesto));
  agora_ = std::move(novo);
}

bool Historia::Desfaz() { return Passa(feitos_, desfeitos_); }

bool Historia::Refaz() { return Passa(desfeitos_, feitos_); }

Historia::Troca Historia::Entre(const Desenho& de, const Desenho& para, int gesto) {
  const auto [de_onde, para_onde] =
      std::mismatch(de.blocos.begin(), de.blocos.end(), para.blocos.begin(), para.blocos.end());
  auto de_fim = de.blocos.end();
  auto para_fim = para.blocos.end();
  while (de_fim != de_onde && para_fim != para_onde && *(de_fim - 1) == *(para_fim - 1)) {
    --de_fim;
    --para_fim;
  }
  return {para.regra, std::size_t(de_onde - de.blocos.begin()), std::size_t(de_fim - de_onde),
          std::vector<Block>(para_onde, para_fim), gesto};
}

Historia::Troca Historia::Aplica(const Troca& troca) {
  const auto de = agora_.blocos.begin() + std::ptrdiff_t(troca.onde);
  const auto ate = de + std::ptrdiff_t(troca.quantos);
  Troca volta{agora_.regra, troca.onde, troca.novos.size(), std::vector<Block>(de, ate)};
  agora_.regra = troca.regra;
  agora_.blocos.insert(agora_.blocos.erase(de, ate), troca.novos.begin(), troca.novos.end());
  return volta;
}

bool Historia::Passa(std::vector<Troca>& de, std::vector<Troca>& para) {
  if (de.empty()) return false;
  para.push_back(Aplica(de.back()));
  de.pop_back();
  return true;
}

}  // namespace desenho
