#include "export/OwnCables.h"

#include <algorithm>
#include <cmath>

namespace corvan {
namespace {

constexpr std::size_t C1 = 12;
constexpr std::size_t C2 = 13;

double Posizione(const Misura& m, std::size_t e) {
  if (e == C1) return m.Val60;
  return e == C2 ? m.Val64 : m.Elettrodi.at(e);
}

}  // namespace

OwnCables::OwnCables(const Survey& survey) {
  for (const Misura& m : survey.Misure) {
    if (!m.CavoProprio) continue;
    double& head = heads_.try_emplace(m.NumFile, Posizione(m, C1)).first->second;
    for (std::size_t e = 1; e <= CableElectrodes; ++e) head = std::max(head, Posizione(m, e));
  }
}

double OwnCables::dietro(const Misura& m, std::size_t e) const {
  const auto head = heads_.find(m.NumFile);
  return Posizione(m, e) - (head == heads_.end() ? 0.0 : head->second);
}

double OwnCables::lag(const Misura& m) const { return std::abs(dietro(m, C1) + dietro(m, C2)) / 2.0; }

}  // namespace corvan
