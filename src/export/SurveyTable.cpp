#include "export/SurveyTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string>

namespace corvan {
namespace {

/// One row under construction.
class Row {
 public:
  template <class Number>
  void add(Number value) {
    if (!text_.empty()) text_ += ',';
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    text_.append(buffer.data(), result.ptr);
  }
  /// Adds slots 1..Size-1 of a per-channel array.
  template <std::size_t Size>
  void addAll(const std::array<float, Size>& values) {
    for (std::size_t k = 1; k < Size; ++k) add(values[k]);
  }
  /// An empty field.
  void skip() { text_ += ','; }
  const std::string& line() { return text_ += '\n'; }

 private:
  std::string text_;
};

/// Binary records shorter than those that hold a time have none; text exports keep the 0 that they have always had.
bool HaTempo(const Survey& survey, const Misura& m) {
  const auto file = static_cast<std::size_t>(std::max<std::int16_t>(m.NumFile, 0));
  if (file < 1 || file > survey.files.size()) return true;
  return survey.files[file - 1].recordLength == 0 || survey.files[file - 1].timed();
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

}  // namespace

void SalvaTabella(FileWriter& out, const Survey& survey) {
  out.write(Intestazione());
  std::size_t n = 0;
  for (const Misura& m : survey.Misure) {
    Row row;
    row.add(++n);
    row.add(m.NumFile);
    if (HaTempo(survey, m)) {
      row.add(m.Tempo);
    } else {
      row.skip();
    }
    for (const double value : {m.Lat, m.Lon, m.UTMx, m.UTMy, m.Deriv[3], m.Deriv[4], m.Distanza})
      row.add(value);
    for (const float value : {m.Passo, m.Val12, m.Val60, m.Val64}) row.add(value);
    row.addAll(m.Elettrodi);
    row.add(m.Val180);
    row.add(m.Val184);
    row.addAll(m.CanaleA);
    row.addAll(m.CanaleB);
    row.addAll(m.Rho);
    row.add(m.Scartata ? 1 : 0);
    row.add(m.Interpolata ? 1 : 0);
    out.write(row.line());
  }
}

}  // namespace corvan
