#include "input/TextLine.h"

#include <cmath>
#include <limits>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "geo/AngleText.h"

namespace corvan {
namespace {

constexpr char Separator = ';';
constexpr std::string_view Separators = ";";

/// The 49 fields of a line as numbers, from left to right. Cuts as FieldCursor does, but looks at each byte once.
class NumberWalk {
 public:
  NumberWalk(std::string_view line, LineRead& read) : read_(read) {
    const std::string_view text = Rifila(line);
    if (text.empty()) return;
    at_ = text.data();
    last_ = at_ + text.size();
    if (*at_ == Separator) ++at_;
  }

  double next() {
    if (at_ == nullptr) return missing();
    const NumeroIniziale number = CercaNumero(rest());
    const bool whole = number.end != nullptr && (number.end == last_ || *number.end == Separator);
    if (!whole) return odd();
    ++read_.values;
    step(number.end);
    return number.value;
  }

  float single() {
    const double value = next();
    const bool fits = std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max());
    return fits ? static_cast<float>(value) : ASingolo(value);
  }

  /// A missing position is no missing value: it is told as a lost fix.
  double coordinate() {
    const bool incomplete = read_.incomplete;
    const double value = next();
    read_.incomplete = incomplete;
    return value;
  }

  /// What stands behind the fields that were asked for.
  void finish() {
    while (at_ != nullptr) {
      const std::string_view field = cut();
      if (field.find_first_not_of(" \t") == std::string_view::npos) continue;
      ++read_.values;
      read_.surplus = true;
    }
  }

 private:
  std::string_view rest() const { return {at_, static_cast<std::size_t>(last_ - at_)}; }
  void step(const char* end) { at_ = end == last_ ? nullptr : end + 1; }
  std::string_view cut() {
    const std::string_view field = rest().substr(0, rest().find(Separator));
    step(field.data() + field.size());
    return field;
  }
  double missing() {
    read_.incomplete = true;
    return 0.0;
  }
  double odd() {
    const NumeroLetto number = LeggiNumero(cut());
    if (number.form == TextForm::Empty) return missing();
    ++read_.values;
    read_.improper = read_.improper || number.improprio();
    return number.value;
  }

  LineRead& read_;
  const char* at_ = nullptr;  // null behind the last field
  const char* last_ = nullptr;
};

}  // namespace

LineKind GenereRiga(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t;");
  if (first == std::string_view::npos) return LineKind::Blank;
  const char letter = line[first];
  if (letter != TextHeader.front() && letter != 'd') return LineKind::Firing;
  return Maiuscolo(line.substr(first, TextHeader.size())) == TextHeader ? LineKind::Header : LineKind::Firing;
}

bool RigaConFix(std::string_view line) {
  std::string separator(Separators);
  try {
    return EstraiCampo(line, separator, PositionField) != 0.0;
  } catch (const RunTimeError&) {
    return true;
  }
}

LineRead LeggiRiga(std::string_view line, std::optional<AngleFormat> layout) {
  LineRead read;
  NumberWalk walk(line, read);
  Misura& m = read.misura;
  m.NumFile = 1;
  m.Passo = walk.single();
  m.Val12 = walk.single();
  for (std::size_t c = 1; c <= MaxChannels; ++c) m.Rho[c] = walk.single();
  m.Val60 = walk.single();
  m.Val64 = walk.single();
  for (std::size_t e = 1; e <= PotentialElectrodes; ++e) m.Elettrodi[e] = walk.single();
  const double north = walk.coordinate();
  const double east = walk.coordinate();
  m.Val180 = walk.single();
  m.Val184 = walk.single();
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    m.CanaleA[c] = walk.single();
    m.CanaleB[c] = walk.single();
  }
  walk.finish();
  read.fix = north != 0.0;
  if (!layout) {
    ImpostaUTM(m, north, east);
  } else {
    ImpostaGeografica(m, north, east, {GradiDaNumero(north, *layout), GradiDaNumero(east, *layout)});
  }
  return read;
}

void NotaNumeri(std::string_view line, std::size_t number, NumberCheck& check) {
  FieldCursor cursor(line, Separators);
  for (std::size_t k = 1; k <= TextFields && cursor.more(); ++k) check.leggi(cursor.next(), number, k);
}

std::string CampoFuori(std::string_view line) {
  FieldCursor cursor(line, Separators);
  for (std::size_t k = 1; k <= TextFields && cursor.more(); ++k) {
    const std::string_view field = cursor.next();
    try {
      const double value = Val(field);
      if (k != PositionField && k != PositionField + 1) ASingolo(value);
    } catch (const RunTimeError&) {
      return "field " + std::to_string(k) + ": " + Citazione(field) + " is too large";
    }
  }
  return "a number is too large";
}

}  // namespace corvan
