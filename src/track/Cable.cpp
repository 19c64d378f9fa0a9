#include "track/Cable.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr std::size_t C1 = 12;
constexpr std::size_t C2 = 13;

bool HaCavo(const Misura& m) {
  const auto set = [](float position) { return std::isfinite(position) && position != 0.0F; };
  return set(m.Val60) || set(m.Val64) || std::any_of(m.Elettrodi.begin() + 1, m.Elettrodi.end(), set);
}

/// The token of the configuration text that holds electrode k.
constexpr std::size_t Gettone(std::size_t k) {
  if (k == C1) return 2;
  if (k == C2) return 4;
  return 2 * k + 4;
}

}  // namespace

float FattoreGeometrico(float A, float B, float M, float N) {
  const auto between = [](float p, float q) { return std::abs(static_cast<double>(p) - static_cast<double>(q)); };
  const double AM = between(A, M);
  const double AN = between(A, N);
  // B is compared with N, not with M: published factors depend on it.
  const double BM = B != N ? between(B, M) : 0.0;
  const double BN = B != N ? between(B, N) : 0.0;
  double sum = 0.0;
  if (AM > 0) sum += 1 / AM;
  if (AN > 0) sum -= 1 / AN;
  if (BM > 0) sum -= 1 / BM;
  if (BN > 0) sum += 1 / BN;
  return sum == 0.0 ? 0.0F : ASingolo(6.2832 / sum);
}

void CreaCavoDaMisure(Survey& survey) {
  if (survey.Misure.empty()) return;
  const auto found = std::find_if(survey.Misure.begin(), survey.Misure.end(), HaCavo);
  const Misura& m = found == survey.Misure.end() ? survey.Misure(1) : *found;
  Cable& cable = survey.cavo;
  std::copy(m.Elettrodi.begin(), m.Elettrodi.end(), cable.PosCavo.begin());
  cable.PosCavo[C1] = m.Val60;
  cable.PosCavo[C2] = m.Val64;
  cable.StringaCavo = ComponiStringaCavo(cable.PosCavo);
  const double middle = (static_cast<double>(cable.PosCavo[1]) + static_cast<double>(cable.PosCavo[2])) * 0.5;
  for (std::size_t k = 1; k <= CableElectrodes; ++k) {
    const double relative = static_cast<double>(cable.PosCavo.at(k)) - middle;
    cable.PosCavoRel.at(k) = std::isfinite(relative) ? relative : 0.0;
  }
}

std::array<float, CableElectrodes + 1> LeggiStringaCavo(std::string_view text) {
  std::array<float, CableElectrodes + 1> positions{};
  std::string separator;
  for (std::size_t k = 1; k <= CableElectrodes; ++k)
    positions.at(k) = ASingolo(EstraiCampo(text, separator, Gettone(k)));
  return positions;
}

std::string ComponiStringaCavo(const std::array<float, CableElectrodes + 1>& positions) {
  std::string text = " C1 " + TestoConSegno(positions[C1]) + " C2 " + TestoConSegno(positions[C2]);
  for (std::size_t k = 1; k <= PotentialElectrodes; ++k) {
    text += " E" + std::to_string(k) + " " + TestoConSegno(positions.at(k));
  }
  return std::string(Rifila(text));
}

}  // namespace corvan
