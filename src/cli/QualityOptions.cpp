#include "cli/QualityOptions.h"

#include <cmath>
#include <optional>
#include <utility>

#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "cli/Validators.h"
#include "survey/Quality.h"

namespace corvan::cli {
namespace {

constexpr std::int32_t WidestWindow = 9999;  // measurements

/// The rule of "F" or "F,W"; none when the text is neither.
std::optional<Despike> Picchi(const std::string& text) {
  Despike rule;
  const std::size_t comma = text.find(',');
  const std::string factor = text.substr(0, comma);
  if (!SoloNumero(factor)) return std::nullopt;
  rule.fattore = Val(factor);
  if (comma != std::string::npos) {
    const std::string window = text.substr(comma + 1);
    const bool digits =
        !window.empty() && window.size() <= 4 && window.find_first_not_of("0123456789") == std::string::npos;
    if (!digits) return std::nullopt;
    rule.finestra = std::stoi(window);
  }
  const bool fits = rule.fattore > 0.0 && rule.finestra >= 3 && rule.finestra <= WidestWindow;
  return fits ? std::optional(rule) : std::nullopt;
}

std::optional<std::pair<double, double>> Limiti(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return std::nullopt;
  const std::string low = text.substr(0, comma), high = text.substr(comma + 1);
  if (!SoloNumero(low) || !SoloNumero(high) || !(Val(low) <= Val(high))) return std::nullopt;
  return std::pair(Val(low), Val(high));
}

CLI::Validator NonNegativo() {
  return {[](std::string& text) -> std::string {
            return SoloNumero(text) && Val(text) >= 0.0 ? "" : "\"" + text + "\" is not a number from 0 on";
          },
          "NUMBER"};
}

template <class Reader>
CLI::Validator Letto(Reader reader, const char* form) {
  return {[reader, form](std::string& text) -> std::string {
            return reader(text) ? "" : "\"" + text + "\" is not " + form;
          },
          form};
}

}  // namespace

void AggiungiQualita(CLI::App& command, QualityOptions& o) {
  command.add_option("--min-current", o.minCurrent, "Readings with a smaller current are bad, mA")
      ->check(NonNegativo())
      ->type_name("MA");
  command.add_option("--min-potential", o.minPotential, "Readings with a smaller potential difference are bad, mV")
      ->check(NonNegativo())
      ->type_name("MV");
  command
      .add_option("--max-deviation", o.maxDeviation,
                  "Readings with a larger standard deviation are bad, %; those of files that hold none are not tested")
      ->check(NonNegativo())
      ->type_name("PCT");
  command.add_option("--rho-range", o.rhoRange, "Readings with a resistivity outside these bounds are bad, ohm m")
      ->check(Letto(Limiti, "MIN,MAX with MIN not over MAX"))
      ->type_name("MIN,MAX");
  command
      .add_option("--despike", o.despike,
                  "Readings are bad whose log resistivity is farther than F median absolute deviations from the median "
                  "of W measurements of their channel and line (4,15 without numbers)")
      ->check(Letto(Picchi, "F[,W] with F over 0 and W from 3 on"))
      ->type_name("[F[,W]]");
  command.add_flag("--no-negative", o.noNegative, "Readings with a negative resistivity are bad");
}

void CompletaDespike(std::vector<std::string>& arguments) {
  constexpr const char* option = "--despike";
  const Despike usual;
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    if (arguments[k] != option) continue;
    const bool numbers = k + 1 < arguments.size() && !arguments[k + 1].empty() &&
                         arguments[k + 1].find_first_not_of("0123456789.,+-eE") == std::string::npos;
    if (!numbers) arguments[k] += "=" + TestoNumero(usual.fattore) + "," + std::to_string(usual.finestra);
  }
}

QualityLimits LimitiDi(const QualityOptions& o, QualityLimits limits) {
  const auto take = [](std::optional<double>& limit, const std::string& text) {
    if (!text.empty()) limit = Val(text);
  };
  take(limits.corrente, o.minCurrent);
  take(limits.potenziale, o.minPotential);
  take(limits.deviazione, o.maxDeviation);
  if (const auto range = Limiti(o.rhoRange)) {
    limits.rhoMin = range->first;
    limits.rhoMax = range->second;
  }
  if (!o.despike.empty()) limits.picchi = Picchi(o.despike);
  limits.negative = limits.negative || o.noNegative;
  return limits;
}

}  // namespace corvan::cli
