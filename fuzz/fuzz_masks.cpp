// Any number through any mask and back, and any angle through its three layouts.
#include <algorithm>
#include <cstring>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "Fuzz.h"
#include "geo/AngleText.h"

namespace {

using namespace corvan;

void CheckMask(double value, const std::string& maskText) {
  const Mask mask = maskText.c_str();
  const std::string text = FormattaNumero(value, mask);
  if (!std::isfinite(value)) {
    fuzz::Promise(text.empty(), "a number that is not finite has no text");
    return;
  }
  fuzz::Promise(text.find_first_not_of("0123456789.-") == std::string::npos, "a masked number is plain");
  fuzz::Promise(text.find('.') == std::string::npos || mask.point, "a point only where the mask has one");
  fuzz::Promise(text.substr(0, 1) != "-" || text.find_first_of("123456789") != std::string::npos,
                "no minus before zeros");
  if (std::abs(value) > 1.7e308) return;  // 15 digits of it may be more than a number holds
  const double unit = std::pow(10.0, -mask.places);
  const double allowed = 0.5 * unit + std::abs(value) * 1e-14;
  fuzz::Promise(std::abs(Val(text) - value) <= allowed * (1 + 1e-9), "a masked number is near its value");
}

void CheckPlain(double value) {
  if (!std::isfinite(value)) return;
  fuzz::Promise(Val(TestoNumero(value)) == value, "a plain number reads back");
  const float single = static_cast<float>(std::clamp(value, -3e38, 3e38));
  fuzz::Promise(static_cast<float>(Val(TestoNumero(single))) == single, "a plain single reads back");
}

void CheckAngle(double degrees, AngleFormat format) {
  if (!std::isfinite(degrees) || std::abs(degrees) > 1e6) return;
  const std::string text = TestoDaGradi(degrees, format);
  const double lastPlace = format == AngleFormat::DMMSS     ? 0.01 / 3600
                           : format == AngleFormat::DMM_MMM ? 1e-6 / 60
                                                            : 1e-10;
  fuzz::Promise(std::abs(GradiDaTesto(text, format) - degrees) <= 0.51 * lastPlace + std::abs(degrees) * 1e-13,
                "an angle reads back");
  if (format != AngleFormat::D_DDDD) {
    const std::size_t point = text.find('.');
    fuzz::Promise(text.substr(point - 2, 2) < "60", "no piece reads 60");
  }
  const double number = std::abs(NumeroDaGradi(degrees, format));
  if (format != AngleFormat::D_DDDD) {
    fuzz::Promise(std::fmod(number, 100.0) < 60.0, "no piece of a number reads 60");
    if (format == AngleFormat::DMMSS) fuzz::Promise(std::fmod(number, 10000.0) < 6000.0, "nor its minutes");
  }
  const double again = GradiDaTesto(TestoNumero(NumeroDaGradi(degrees, format)), format);
  fuzz::Promise(std::abs(again - degrees) <= 1e-11 * (1 + std::abs(degrees)), "an angle as a number reads back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double value = 0;
  if (size < sizeof value + 1) return 0;
  std::memcpy(&value, data, sizeof value);
  std::string mask;
  for (std::size_t k = sizeof value; k < std::min<std::size_t>(size, 40); ++k) mask += "#0."[data[k] % 3];
  CheckMask(value, mask);
  CheckPlain(value);
  for (const AngleFormat format : {AngleFormat::DMMSS, AngleFormat::DMM_MMM, AngleFormat::D_DDDD}) {
    CheckAngle(value, format);
    try {
      const double degrees = GradiDaTesto(fuzz::Text(data, size), format);
      fuzz::Promise(std::isfinite(degrees), "an angle read is finite");
    } catch (const RunTimeError&) {
      continue;  // a piece too large for a number
    }
  }
  return 0;
}
