#include "export/TextWriters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"
#include "export/BlockComposer.h"

namespace corvan {
namespace {

constexpr Mask Ordinal = "0";
constexpr Mask Place = "#####0.##";
constexpr Mask Reading = "####0.##";
constexpr Mask Quality = "###0.##";
constexpr Mask Coordinate = "#########.0#";
constexpr Mask Metres = "#######0.0#";  // of a profile

// The table's columns behind the ordinal. Current stands before potential and quality before chargeability, other than
// in binary records: programs that read these tables expect it so.
constexpr const char* Header = "N.\tAx\tBx\tMx\tNx\tAy\tBy\tMy\tNy\tAz\tBz\tMz\tNz\ti\tv\tRho\tq\tm\tUTMx\tUTMy\r\n";

constexpr std::size_t PointsPerBlock = 250;    // about 300 kB of table
constexpr std::size_t ProfilePerBlock = 5000;  // about 300 kB of profile

std::string Testo(float value, const Mask& mask) { return FormattaNumero(static_cast<double>(value), mask); }

/// The lines of one point. Its quadrupoles share most numbers, which are written once: 57 instead of 190.
class PointLines {
 public:
  explicit PointLines(const SectionPoint& point) : point_(point) {
    constexpr std::size_t A = 12, B = 13;
    for (std::size_t e = 1; e < A; ++e) {
      x_.at(e) = Testo(point.x.at(e), Place);
      z_.at(e) = Testo(point.z.at(e), Place);
    }
    // y of A, B, M, N is 0 as all electrodes lie on one line; q and m are not measured.
    const std::string zero = FormattaNumero(0.0, Place);
    before_ = " \t" + Testo(point.x[A], Place) + '\t' + Testo(point.x[B], Place) + '\t';
    between_ = '\t' + zero + '\t' + zero + '\t' + zero + '\t' + zero + '\t' + Testo(point.z[A], Place) + '\t' +
               Testo(point.z[B], Place) + '\t';
    current_ = '\t' + Testo(point.current, Reading) + '\t';
    behind_ = '\t' + FormattaNumero(0.0, Quality) + '\t' + FormattaNumero(0.0, Quality) + '\t' +
              Testo(point.est, Coordinate) + '\t' + Testo(point.nord, Coordinate) + "\r\n";
  }

  /// @param k ordinal of the line in the table @param c channel, 1 to 10
  void add(std::string& out, std::size_t k, std::size_t c) const {
    out += ' ';
    AggiungiNumero(out, static_cast<double>(k), Ordinal);
    out += before_;
    ((out += x_.at(c)) += '\t') += x_.at(c + 1);
    out += between_;
    ((out += z_.at(c)) += '\t') += z_.at(c + 1);
    out += current_;
    AggiungiNumero(out, static_cast<double>(point_.potential.at(c)), Reading);
    out += '\t';
    AggiungiNumero(out, static_cast<double>(point_.resistivity.at(c)), Reading);
    out += behind_;
  }

 private:
  const SectionPoint& point_;
  std::array<std::string, PotentialElectrodes + 1> x_;
  std::array<std::string, PotentialElectrodes + 1> z_;
  std::string before_, between_, current_, behind_;
};

}  // namespace

void SalvaAscii(FileWriter& out, const SectionRecords& RecordOut, const std::int32_t& NqpBin) {
  out.write(Header);
  const auto records = static_cast<std::size_t>(std::max(NqpBin, 0));
  const auto compose = [&RecordOut, records](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t point = first; point < end; ++point) {
      const PointLines lines(RecordOut.points()(point + 1));
      const std::size_t before = point * MaxChannels;
      for (std::size_t c = 1; c <= std::min(MaxChannels, records - before); ++c) lines.add(text, before + c, c);
    }
  };
  ComponiBlocchi({(records + MaxChannels - 1) / MaxChannels, PointsPerBlock}, compose,
                 [&out](std::string_view text) { out.write(text); });
}

void SalvaTraccia(FileWriter& out, const Profile& Profilo, std::int32_t Primo, std::int32_t Ultimo) {
  const auto compose = [&Profilo, Primo](std::string& text, std::size_t first, std::size_t end) {
    std::string number;
    for (std::size_t k = first; k < end; ++k) {
      const std::int32_t p = Primo + static_cast<std::int32_t>(k);
      const ProfilePoint& point = Profilo(p);
      PrintLine line;
      line.add(" " + std::to_string(p) + " ");
      for (const double value : {point.est, point.nord, point.prof, point.distanza}) {
        number.clear();
        AggiungiNumero(number, value, Metres);
        line.add(number);
      }
      (text += line.text()) += "\r\n";
    }
  };
  const std::int64_t points = std::int64_t{Ultimo} - Primo + 1;
  ComponiBlocchi({static_cast<std::size_t>(std::max<std::int64_t>(points, 0)), ProfilePerBlock}, compose,
                 [&out](std::string_view text) { out.write(text); });
}

}  // namespace corvan
