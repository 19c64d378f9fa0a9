// Tracks held as text: the table with positions on the grid and the six columns.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Lines.h"
#include "base/NumberCheck.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "geo/AngleText.h"
#include "input/NmeaWalk.h"
#include "input/TrackFields.h"
#include "input/TrackFile.h"
#include "input/TrackSteps.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiGPSEsterno";

/// One reading of a text: what its lines are checked for. A derived reader takes the position of a line.
class TextTrack {
 public:
  TextTrack(TrackKind kind, std::size_t dateField) : dateField_(dateField) { read_.kind = kind; }
  TextTrack(const TextTrack&) = delete;
  TextTrack& operator=(const TextTrack&) = delete;
  virtual ~TextTrack() = default;

  TrackRead leggi(std::string_view content) {
    std::size_t left = 0, stop = 0;
    for (LineCursor lines(content); lines.more();) {
      const std::string_view line = lines.next();
      read_.lines = line_ = lines.number();
      if (Rifila(line).empty()) continue;
      if (left > 0) {
        ++left;
        continue;
      }
      try {
        prendi(TrackFields(line));
      } catch (const RunTimeError& error) {
        left = 1;
        stop = line_;
        read_.findings.fault(Procedure, "line " + std::to_string(line_) + ": " + error.what());
      }
    }
    if (left > 0) {
      read_.findings.fault(Procedure,
                           Quanti(left, "line", "lines") + " from line " + std::to_string(stop) + " on left out");
    }
    rileva();
    read_.likely = likely();
    return std::move(read_);
  }

 protected:
  /// Fills source and what belongs to it. @return false when the line holds no position that can be used
  virtual bool posizione(const TrackFields& fields, PuntoGPSEst& fix) = 0;
  /// What is amiss with the positions.
  virtual void rilevaPosizioni(Findings& findings) const = 0;
  virtual std::optional<AngleFormat> likely() const { return std::nullopt; }

  /// A number of a position or depth.
  double numero(const TrackFields& fields, std::size_t k) { return numbers_.leggi(fields(k), line_, k); }
  void profondita(const TrackFields& fields, std::size_t k, PuntoGPSEst& fix) {
    const NumeroLetto depth = LeggiNumero(fields(k));
    const bool begins = CercaNumero(fields(k)).end != nullptr;
    if (depth.improprio() && !begins) noDepth_.add(line_);
    if (begins) numbers_.prendi(fields(k), depth, line_, k);
    fix.haProf = begins;
    fix.Prof = begins ? depth.value : 0.0;
  }
  bool senzaPosizione() {
    withoutPosition_.add(line_);
    return false;
  }
  std::size_t line() const { return line_; }
  NumberCheck& numbers() { return numbers_; }
  bool none() const { return read_.fixes.empty(); }

 private:
  void prendi(const TrackFields& fields) {
    if (read_.kind == TrackKind::Csv && line_ == 1) {
      headerDated_ = dataInTestata(fields);
      return;
    }
    PuntoGPSEst fix;
    fix.DataOra = fields.quando(dateField_);
    if (!posizione(fields, fix)) return;
    if (!fix.haProf) ++depthless_;
    read_.fixes.append(fix);
    lines_.push_back(line_);
  }

  bool dataInTestata(const TrackFields& fields) const {
    try {
      return fields.quando(dateField_) != 0.0;
    } catch (const RunTimeError&) {
      return false;
    }
  }

  void rileva() {
    Findings& findings = read_.findings;
    if (headerDated_) findings.fault(Procedure, "line 1, left out as the header, holds a date and time");
    if (numbers_.count() > 0) findings.fault(Procedure, numbers_.detto());
    if (noDepth_.count > 0) {
      findings.fault(Procedure, Quanti(noDepth_.count, "depth is no number", "depths are no numbers") +
                                    Dove(noDepth_.count, noDepth_.line) +
                                    (noDepth_.count == 1 ? ": its fix has none" : ": their fixes have none"));
    }
    rilevaPosizioni(findings);
    if (const std::string fast = PassiVeloci(read_.fixes, lines_); !fast.empty()) findings.fault(Procedure, fast);
    if (withoutPosition_.count > 0) {
      findings.note(Procedure, Quanti(withoutPosition_.count, "line", "lines") + " without a position left out" +
                                   Dove(withoutPosition_.count, withoutPosition_.line));
    }
    if (depthless_ > 0) {
      findings.note(Procedure, QuantiDi(depthless_, read_.fixes.size(), "fix", "fixes") + " no depth");
    }
  }

  TrackRead read_;
  std::vector<std::size_t> lines_;  // of the fixes
  std::size_t dateField_;
  std::size_t line_ = 0;
  std::size_t depthless_ = 0;
  NumberCheck numbers_;
  Counted withoutPosition_, noDepth_;
  bool headerDated_ = false;
};

/// The largest numbers of the positions: they tell the layout.
struct Extent {
  double latitude = 0, longitude = 0;

  void widen(double first, double second) {
    latitude = std::max(latitude, std::abs(first));
    longitude = std::max(longitude, std::abs(second));
  }
  bool within(double first, double second) const { return latitude < first && longitude < second; }
  std::optional<AngleFormat> layout() const {
    if (latitude == 0.0) return std::nullopt;
    if (within(91.0, 181.0)) return AngleFormat::D_DDDD;
    if (within(9'100.0, 18'100.0)) return AngleFormat::DMM_MMM;
    if (within(910'000.0, 1'810'000.0)) return AngleFormat::DMMSS;
    return std::nullopt;
  }
  /// The format of the list that such numbers are most likely in.
  std::string format() const {
    const std::optional<AngleFormat> angles = layout();
    if (!angles) return "UTM metres";
    const AngleFormatName format = NomeFormato(*angles);
    return std::string(format.name) + " (" + format.word + ")";
  }
};

class GridTable : public TextTrack {
 public:
  GridTable() : TextTrack(TrackKind::Csv, 3) {}

 private:
  bool posizione(const TrackFields& fields, PuntoGPSEst& fix) override {
    constexpr double limit = 1e12;  // far beyond any grid; sums of distances stay finite below it
    const double northing = numero(fields, 11), easting = numero(fields, 10);
    if (northing == 0.0 || easting == 0.0) return senzaPosizione();
    if (std::abs(northing) > limit || std::abs(easting) > limit) {
      unusable_.add(line());
      return false;
    }
    extent_.widen(northing, easting);
    fix.sorgente = Grid{easting, northing};
    profondita(fields, 8, fix);
    return true;
  }

  void rilevaPosizioni(Findings& findings) const override {
    if (unusable_.count > 0) {
      findings.fault(Procedure, Quanti(unusable_.count, "line", "lines") + " with a position on no grid left out" +
                                    Dove(unusable_.count, unusable_.line));
    }
    if (!none() && extent_.within(9'000.0, 18'000.0)) {
      findings.fault(Procedure, "every northing is below 9000 m and every easting below 18000 m: they look like " +
                                    extent_.format() + ", a table holds UTM metres");
    }
  }

  Extent extent_;
  Counted unusable_;
};

class SixColumns : public TextTrack {
 public:
  SixColumns(TrackKind kind, AngleFormat layout) : TextTrack(kind, 1), layout_(layout) {}

 private:
  bool posizione(const TrackFields& fields, PuntoGPSEst& fix) override {
    const Geographic place{GradiDaTesto(fields(4), layout_), GradiDaTesto(fields(5), layout_)};
    fix.GeoA = numeroAngolo(fields, 4, place.latitude);
    fix.GeoB = numeroAngolo(fields, 5, place.longitude);
    if (place.latitude == 0.0 || place.longitude == 0.0) return senzaPosizione();
    extent_.widen(fix.GeoA, fix.GeoB);
    if (std::abs(place.latitude) > 90.0 || std::abs(place.longitude) > 180.0) {
      beyond_.add(line());
      return false;
    }
    fix.sorgente = place;
    fix.Riserva = riserva(fields(3));
    profondita(fields, 6, fix);
    return true;
  }

  /// The number of an angle's text. Degree and minute marks belong to it; anything else behind it does not.
  double numeroAngolo(const TrackFields& fields, std::size_t k, double degrees) {
    const NumeroLetto plain = LeggiNumero(fields(k));
    if (!plain.improprio()) return plain.value;
    std::string bare(fields(k));
    for (const char* mark : {"\xC2\xB0", "\xB0", "'", " "}) bare = Senza(bare, mark);
    const NumeroLetto angle{NumeroDaGradi(degrees, layout_), LeggiNumero(bare).form};
    numbers().prendi(fields(k), angle, line(), k);
    return angle.value;
  }

  std::uint32_t riserva(std::string_view text) {
    const NumeroLetto number = LeggiNumero(text);
    const bool fits = std::abs(number.value) <= 32767.0;
    if (number.improprio() || !fits) noNumber_.add(line());
    return fits ? static_cast<std::uint16_t>(AInt16(number.value)) : 0U;
  }

  void rilevaPosizioni(Findings& findings) const override {
    if (beyond_.count > 0) {
      findings.fault(Procedure, Quanti(beyond_.count, "line", "lines") +
                                    " with a latitude over 90 or a longitude over 180 degrees left out" +
                                    Dove(beyond_.count, beyond_.line) + altroFormato());
    } else if (!none() && layout_ != AngleFormat::D_DDDD && extent_.within(91.0, 181.0)) {
      findings.fault(Procedure, "every latitude is below 91 and every longitude below 181: the numbers look like " +
                                    extent_.format());
    }
    if (noNumber_.count > 0) {
      findings.note(Procedure, Quanti(noNumber_.count, "value", "values") + " of field 3 no 16-bit number" +
                                   Dove(noNumber_.count, noNumber_.line));
    }
  }

  std::optional<AngleFormat> likely() const override { return extent_.layout(); }

  /// Which format the numbers beyond the earth look like, if it is another one.
  std::string altroFormato() const {
    const std::string likely = extent_.format();
    if (!extent_.layout()) return ": the numbers look like " + likely + ", six columns hold angles";
    return *extent_.layout() == layout_ ? "" : ": the numbers look like " + likely;
  }

  AngleFormat layout_;
  Extent extent_;
  Counted beyond_, noNumber_;
};

}  // namespace

TrackRead LeggiFileCSV(std::string_view content, const TrackOptions&) { return GridTable().leggi(content); }

TrackRead LeggiGPS6Col(std::string_view content, const TrackOptions& options) {
  return SixColumns(TrackKind::SixColumns, options.layout).leggi(content);
}

TrackRead LeggiFileSav(std::string_view content, const TrackOptions& options) {
  return SixColumns(TrackKind::Sav, options.layout).leggi(content);
}

}  // namespace corvan
