#include "session/BoxNumbers.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Errors.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

std::int16_t Converti(double value, std::int16_t) { return AInt16(value); }
std::int32_t Converti(double value, std::int32_t) { return AInt32(value); }
float Converti(double value, float) { return ASingolo(value); }
double Converti(double value, double) { return value; }

/// " is not 1 to 60", as far as the range has ends of its own.
std::string Fuori(const BoxNumber& box) {
  if (std::isinf(box.low) && std::isinf(box.high)) return " is out of range";
  if (std::isinf(box.high)) return " is not " + TestoNumero(box.low) + " or more";
  if (std::isinf(box.low)) return " is not " + TestoNumero(box.high) + " or less";
  return " is not " + TestoNumero(box.low) + " to " + TestoNumero(box.high);
}

}  // namespace

template <class Number>
std::optional<Number> NumeroDaCasella(std::string_view text, const BoxNumber& box, Findings& findings) {
  try {
    const NumeroLetto read = LeggiNumero(text);
    const Number number = Converti(read.value, Number());
    const auto value = static_cast<double>(number);
    if (value < box.low || value > box.high) throw RunTimeError("out of the box's range");
    if (read.form != TextForm::Number) {
      findings.note(box.procedure,
                    std::string(box.what) + " is not a number from end to end: " + LettoCome(text, read.value));
    }
    return number;
  } catch (const RunTimeError&) {
    findings.fault(box.procedure, std::string(box.what) + " " + Citazione(text) + Fuori(box) + ": nothing is changed");
    return std::nullopt;
  }
}

template <class Number>
std::optional<std::pair<Number, Number>> CoppiaDaCasella(std::string_view text, const BoxNumber& box,
                                                         Findings& findings) {
  const std::size_t separator = text.find(';');
  const std::string_view first = text.substr(0, separator);
  const std::string_view second = separator == std::string_view::npos ? "" : text.substr(separator + 1);
  const auto missing = [](std::string_view side) { return side.find_first_not_of(" \t") == std::string_view::npos; };
  if (missing(first) || missing(second)) {
    findings.note(box.procedure, std::string(box.what) + " " + Citazione(text) +
                                     " is not two numbers with a \";\" between them: nothing is changed");
    return std::nullopt;
  }
  const std::optional<Number> low = NumeroDaCasella<Number>(first, box, findings);
  const std::optional<Number> high = low ? NumeroDaCasella<Number>(second, box, findings) : std::nullopt;
  if (!high) return std::nullopt;
  return std::pair(*low, *high);
}

template std::optional<std::int16_t> NumeroDaCasella(std::string_view, const BoxNumber&, Findings&);
template std::optional<std::int32_t> NumeroDaCasella(std::string_view, const BoxNumber&, Findings&);
template std::optional<float> NumeroDaCasella(std::string_view, const BoxNumber&, Findings&);
template std::optional<double> NumeroDaCasella(std::string_view, const BoxNumber&, Findings&);
template std::optional<std::pair<float, float>> CoppiaDaCasella(std::string_view, const BoxNumber&, Findings&);
template std::optional<std::pair<double, double>> CoppiaDaCasella(std::string_view, const BoxNumber&, Findings&);

}  // namespace corvan
