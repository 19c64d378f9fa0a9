#include "export/SurveyTable.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "export/BlockComposer.h"

namespace corvan {
namespace {

constexpr std::size_t RowsPerBlock = 750;  // about 300 kB

/// One row under construction.
class Row {
 public:
  Row(std::string& out, std::size_t n) : out_(out) { append(n); }
  template <class Number>
  void add(Number value) {
    out_ += ',';
    append(value);
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
  template <class Number>
  void append(Number value) {
    std::array<char, 64> buffer{};
    char* const last = buffer.data() + buffer.size();
    if constexpr (std::is_floating_point_v<Number>) {
      // Whole numbers below 100,000 are never shorter with an exponent; positions along the cable are written in a
      // fifth of the time so.
      const auto whole = static_cast<std::int32_t>(std::abs(value) < Number{1e5} ? value : Number{0});
      if (whole != 0 && static_cast<Number>(whole) == value) {
        append(buffer.data(), std::to_chars(buffer.data(), last, whole).ptr);
        return;
      }
    }
    append(buffer.data(), std::to_chars(buffer.data(), last, value).ptr);
  }
  void append(const char* first, const char* end) { out_.append(first, static_cast<std::size_t>(end - first)); }

  std::string& out_;
};

/// Binary records shorter than those that hold a time have none; text exports keep the 0 that they have always had.
bool HaTempo(const Survey& survey, const Misura& m) {
  const FileSummary* file = survey.fileDi(m);
  return file == nullptr || file->recordLength == 0 || file->timed();
}

std::string Intestazione() {
  std::string header = "n,file,time,lat,lon,utm_x,utm_y,true_x,true_y,distance,step,depth,c1,c2";
  const auto series = [&header](const char* name, std::size_t count) {
    for (std::size_t k = 1; k <= count; ++k) header.append(",").append(name).append(std::to_string(k));
  };
  series("e", PotentialElectrodes);
  header += ",i_a,i_b";
  series("va", MaxChannels);
  series("vb", MaxChannels);
  series("rho", MaxChannels);
  return header + ",discarded,interpolated\n";
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
  row.end();
}

}  // namespace

void SalvaTabella(FileWriter& out, const Survey& survey) {
  out.write(Intestazione());
  const auto compose = [&survey](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t n = first + 1; n <= end; ++n) AggiungiRiga(text, survey, n);
  };
  ComponiBlocchi({survey.Misure.size(), RowsPerBlock}, compose, [&out](std::string_view text) { out.write(text); });
}

}  // namespace corvan
