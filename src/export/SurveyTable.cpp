#include "export/SurveyTable.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "export/BlockComposer.h"
#include "export/SurveyColumns.h"

namespace corvan {
namespace {

constexpr std::size_t RowsPerBlock = 750;  // about 300 kB

/// One row under construction.
class Row {
 public:
  Row(std::string& out, std::size_t n) : out_(out) { AggiungiValore(out_, n); }
  template <class Number>
  void add(Number value) {
    out_ += ',';
    AggiungiValore(out_, value);
  }
  /// Adds slots 1..Size-1 of a per-channel array. @return where the text of each slot begins; slot 0 is unused
  template <std::size_t Size>
  std::array<std::size_t, Size> addAll(const std::array<float, Size>& values) {
    std::array<std::size_t, Size> begin{};
    for (std::size_t k = 1; k < Size; ++k) {
      begin.at(k) = out_.size() + 1;
      add(values.at(k));
    }
    return begin;
  }
  /// The same of an array which as a rule holds another one's numbers with the opposite sign: texts are copied, which
  /// halves the writing of the table. @param begin of the other one's texts, the last that were added
  template <std::size_t Size>
  void addOpposites(const std::array<float, Size>& values, const std::array<float, Size>& others,
                    const std::array<std::size_t, Size>& begin) {
    const std::size_t end = out_.size() + 1;
    for (std::size_t k = 1; k < Size; ++k) {
      if (others.at(k) > 0 && values.at(k) == -others.at(k)) {
        const std::size_t behind = k + 1 < Size ? begin.at(k + 1) : end;
        out_ += ",-";
        out_.append(out_, begin.at(k), behind - 1 - begin.at(k));
      } else {
        add(values.at(k));
      }
    }
  }
  /// An empty field.
  void skip() { out_ += ','; }
  void end() { out_ += '\n'; }

 private:
  std::string& out_;
};

std::string Intestazione(const Survey& survey) {
  std::string header;
  for (const TableColumn& column : ColonneTabella(survey)) header.append(header.empty() ? "" : ",").append(column.name);
  return header + "\n";
}

void AggiungiRiga(std::string& out, const Survey& survey, std::size_t n) {
  const Misura& m = survey.Misure(n);
  Row row(out, n);
  row.add(m.NumFile);
  if (HaTempo(survey, m)) {
    row.add(m.Tempo);
  } else {
    row.skip();
  }
  for (const double value : {m.Lat, m.Lon, m.UTMx, m.UTMy, m.Deriv[3], m.Deriv[4], m.Distanza}) row.add(value);
  for (const float value : {m.Passo, m.Val12, m.Val60, m.Val64}) row.add(value);
  row.addAll(m.Elettrodi);
  row.add(m.Val180);
  row.add(m.Val184);
  row.addOpposites(m.CanaleB, m.CanaleA, row.addAll(m.CanaleA));
  row.addAll(m.Rho);
  row.add(m.Scartata ? 1 : 0);
  row.add(m.Interpolata ? 1 : 0);
  for (std::size_t c = 1; c <= MaxChannels && survey.qualita.inVigore(); ++c) {
    row.add(HaLettura(m, c) && !InUso(m, c) ? 1 : 0);
  }
  row.end();
}

}  // namespace

void SalvaTabella(FileWriter& out, const Survey& survey) {
  out.write(Intestazione(survey));
  const auto compose = [&survey](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t n = first + 1; n <= end; ++n) AggiungiRiga(text, survey, n);
  };
  ComponiBlocchi({survey.Misure.size(), RowsPerBlock}, compose, [&out](std::string_view text) { out.write(text); });
}

}  // namespace corvan
