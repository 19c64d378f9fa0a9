#include "picture/Ticks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/NumberText.h"

namespace corvan {

double PassoTacche(double span, double most) {
  if (!(span > 0.0) || !std::isfinite(span) || !(most > 0.0)) return 0.0;
  const double least = span / most * (1.0 - 1e-12);  // a span of exactly so many steps counts as divided
  const double decade = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * decade >= least) return factor * decade;
  }
  return 10.0 * decade;
}

std::vector<double> Tacche(double from, double to, double step) {
  constexpr double most = 10'000.0, slack = 1e-9;
  std::vector<double> ticks;
  if (!(step > 0.0) || !((to - from) / step <= most)) return ticks;
  const double last = std::floor(to / step + slack);
  for (double k = std::ceil(from / step - slack); k <= last; ++k) ticks.push_back(k * step);
  return ticks;
}

std::string TestoTacca(double value, double step) {
  const double decimals = std::max(0.0, -std::floor(std::log10(step) + 1e-9));
  std::string mask = decimals > 0.0 ? "0." : "0";
  mask.append(static_cast<std::size_t>(std::min(decimals, 12.0)), '0');
  std::string text = FormattaNumero(value, Mask(mask.c_str()));
  if (decimals > 0.0 || std::abs(value) < 10'000.0) return text;
  const std::size_t first = text.front() == '-' ? 1 : 0;
  for (std::size_t at = text.size(); at > first + 3;) {
    at -= 3;
    text.insert(at, "\u2009");  // a thin blank
  }
  return text;
}

}  // namespace corvan
