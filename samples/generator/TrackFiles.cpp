#include "TrackFiles.h"

#include <cmath>

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "geo/Utm.h"

namespace corvan::samples {
namespace {

constexpr GridZone LagoonGrid{33, Hemisphere::North};

DateTime Quando(const TrackFix& fix) { return DaGiorni(fix.day + fix.second / 86400.0); }

std::string Due(int value) { return FormattaNumero(value, "00"); }

/// Degrees and minutes run together, to a ten-thousandth of a minute.
std::string GradiMinuti(double degrees, Mask mask) {
  const double whole = std::floor(degrees);
  return FormattaNumero(whole * 100.0 + (degrees - whole) * 60.0, mask);
}

std::string Frase(const std::string& body) {
  unsigned sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  constexpr const char* digits = "0123456789ABCDEF";
  return "$" + body + "*" + digits[sum >> 4U] + digits[sum & 0xFU] + "\r\n";
}

}  // namespace

std::string FileCsv(const std::vector<TrackFix>& track) {
  std::string file = "N;Line;Date;Time;Lat;Lon;Sats;Depth;Quality;East;North\r\n";
  int number = 0;
  for (const TrackFix& fix : track) {
    const Grid place = VersoUTM({fix.latitude, fix.longitude}, LagoonGrid).value();
    const DateTime when = Quando(fix);
    file += std::to_string(++number) + ";lagoon;" + TestoData(when) + ";" + TestoOra(when) + ";" +
            FormattaNumero(fix.latitude, "0.0000000") + ";" + FormattaNumero(fix.longitude, "0.0000000") + ";9;" +
            FormattaNumero(fix.depth, "0.00") + ";1;" + FormattaNumero(place.easting, "0.00") + ";" +
            FormattaNumero(place.northing, "0.00") + "\r\n";
  }
  return file;
}

std::string FileSeiColonne(const std::vector<TrackFix>& track) {
  std::string file;
  for (const TrackFix& fix : track) {
    const DateTime when = Quando(fix);
    file += TestoData(when) + " " + TestoOra(when) + " 1 " + GradiMinuti(fix.latitude, "0000.00000") + " " +
            GradiMinuti(fix.longitude, "0000.00000") + " " + FormattaNumero(fix.depth, "0.00") + "\r\n";
  }
  return file;
}

std::string FileNmea(const std::vector<TrackFix>& track) {
  std::string file;
  for (std::size_t k = 0; k < track.size(); ++k) {
    const TrackFix& fix = track[k];
    const DateTime when = Quando(fix);
    const std::string time = Due(when.hour) + Due(when.minute) + Due(when.second) + ".00";
    const std::string place =
        GradiMinuti(fix.latitude, "0000.00000") + ",N," + GradiMinuti(fix.longitude, "00000.00000") + ",E";
    file += Frase("SDDPT," + FormattaNumero(fix.depth - 0.5, "0.00") + ",0.5,");
    if (k % 10 == 0) {
      file += Frase("GPRMC," + time + ",A," + place + ",2.4,053.1," + Due(when.day) + Due(when.month) +
                    Due(when.year % 100) + ",,");
    }
    file += Frase("GPGGA," + time + "," + place + ",1,09,0.9,1.2,M,45.0,M,,");
  }
  return file;
}

}  // namespace corvan::samples
