#include "base/Rounding.h"

#include <cmath>
#include <limits>
#include <string>

#include "base/Errors.h"
#include "base/NumberText.h"

namespace corvan {
namespace {

template <class Integer>
Integer AIntero(double value) {
  const double rounded = ArrotondaPari(value);
  const double low = std::numeric_limits<Integer>::min();
  const double high = std::numeric_limits<Integer>::max();
  if (!(rounded >= low && rounded <= high)) {
    throw RunTimeError("value " + TestoNumero(value) + " is not " + TestoNumero(low) + " to " + TestoNumero(high));
  }
  return static_cast<Integer>(rounded);
}

/// Values past the largest single but nearer to it than to the next power of two round down to it, as IEEE 754 has it.
bool HaSingolo(double value) {
  constexpr double half = 0x1.ffffffp127;
  return std::abs(value) < half;
}

}  // namespace

double ArrotondaPari(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction < 0.5) return below;
  if (fraction > 0.5) return below + 1.0;
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

std::int16_t AInt16(double value) { return AIntero<std::int16_t>(value); }

std::int32_t AInt32(double value) { return AIntero<std::int32_t>(value); }

float ASingolo(double value) {
  if (!HaSingolo(value)) throw RunTimeError("value " + TestoNumero(value) + " has no single-precision form");
  return static_cast<float>(value);
}

float SingoloOppure(double value, float otherwise) { return HaSingolo(value) ? static_cast<float>(value) : otherwise; }

}  // namespace corvan
