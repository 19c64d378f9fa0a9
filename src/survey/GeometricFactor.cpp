#include "survey/GeometricFactor.h"

#include <cmath>

#include "base/Errors.h"
#include "base/Rounding.h"

namespace corvan {

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

float FattoreDi(const Misura& m, std::size_t channel, const TrackExtent& survey) {
  if (!m.CavoProprio) return survey.FattoreK.at(channel);
  try {
    return FattoreGeometrico(m.Val60, m.Val64, m.Elettrodi.at(channel), m.Elettrodi.at(channel + 1));
  } catch (const RunTimeError&) {
    return 0.0F;
  }
}

}  // namespace corvan
