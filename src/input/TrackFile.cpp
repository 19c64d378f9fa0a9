#include "input/TrackFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "base/DateText.h"
#include "base/Errors.h"
#include "base/Fields.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "geo/AngleText.h"
#include "geo/BezierCubic.h"
#include "geo/Plane.h"
#include "input/NmeaLog.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiGPSEsterno";
constexpr std::size_t MaxFields = 16;

/// The fields of a line, cut once; a separator that is not given is chosen line by line.
class Cut {
 public:
  explicit Cut(std::string_view line) {
    const std::string separator = ScegliSeparatore(line);
    for (FieldCursor cursor(line, separator); cursor.more() && count_ < MaxFields;) {
      fields_.at(count_++) = Rifila(cursor.next());
    }
  }
  std::string_view text(std::size_t k) const { return k <= count_ ? fields_.at(k - 1) : std::string_view(); }
  double number(std::size_t k) const { return Val(text(k)); }

 private:
  std::array<std::string_view, MaxFields> fields_;
  std::size_t count_ = 0;
};

/// The date of fields k and k + 1.
double DataOra(const Cut& cut, std::size_t k) {
  return DataDaTesto(std::string(cut.text(k)) + " " + std::string(cut.text(k + 1)));
}

/// Reads line after line: a date that cannot be read ends the track, a position that cannot be used leaves out its
/// line.
/// @param take gives the fix of a line but for its time; nothing when it has no usable position
template <class Take>
TrackRead PerRiga(std::string_view content, TrackKind kind, std::size_t dateField, Take take) {
  TrackRead read;
  read.kind = kind;
  std::size_t left = 0;
  std::size_t unusable = 0;
  const bool header = kind == TrackKind::Csv;
  for (LineCursor lines(content); lines.more();) {
    const std::string_view line = lines.next();
    read.lines = lines.number();
    if (Rifila(line).empty() || (header && lines.number() == 1)) continue;
    if (left > 0) {
      ++left;
      continue;
    }
    try {
      const Cut cut(line);
      const double when = DataOra(cut, dateField);
      std::optional<PuntoGPSEst> fix = take(cut);
      if (!fix) {
        ++unusable;
        continue;
      }
      fix->DataOra = when;
      read.fixes.append(*fix);
    } catch (const RunTimeError& error) {
      left = 1;
      read.findings.fault(Procedure, "line " + std::to_string(lines.number()) + ": " + error.what());
    }
  }
  if (left > 0) {
    read.findings.fault(Procedure, std::to_string(left) + " lines from there on left out");
  }
  if (unusable > 0) {
    read.findings.fault(Procedure, std::to_string(unusable) + " lines without a usable position left out");
  }
  return read;
}

/// Far beyond any coordinate on the earth; sums of distances stay finite below it.
bool Usabile(double x, double y) {
  constexpr double limit = 1e12;
  return std::abs(x) <= limit && std::abs(y) <= limit;
}

double Finito(double value) { return std::isfinite(value) ? value : 0.0; }

std::string Quanti(std::size_t count, const char* what) { return std::to_string(count) + " " + what; }

/// What a log held that gave no fix.
void RilieviNmea(const NmeaSummary& s, std::size_t withoutDepth, std::size_t fixes, TrackRead& read) {
  for (std::size_t k = 0; k < SentenceKinds; ++k) {
    const std::string name(SentenceNames.at(k));
    if (s.trusted.at(k)) {
      read.findings.fault(Procedure, "every " + name + " sentence has a wrong checksum: they are taken");
    } else if (s.wrongChecksum.at(k) > 0) {
      read.findings.fault(Procedure,
                          Quanti(s.wrongChecksum.at(k), (name + " sentences with a wrong checksum left out").c_str()));
    }
    if (s.malformed.at(k) > 0) {
      read.findings.fault(Procedure,
                          Quanti(s.malformed.at(k), (name + " sentences that cannot be read left out").c_str()));
    }
  }
  if (s.withoutFix > 0) {
    read.findings.note(Procedure, Quanti(s.withoutFix, "position sentences without a fix"));
  }
  if (withoutDepth > 0 && fixes > 0) {
    read.findings.note(Procedure, Quanti(withoutDepth, "fixes without a depth of the last 5 s: depth 0"));
  }
  if (!s.dated && fixes > 0) {
    read.findings.fault(Procedure, "no sentence tells the date: times have none");
  }
}

/// Points 1..4 of a run and how many points its curve shall have.
void Interpola(const std::array<PuntoGPSEst, 4>& run, std::int16_t count, bool first, Array1<PuntoGPSEst>& out) {
  const auto curve = [&](double PuntoGPSEst::*x, double PuntoGPSEst::*y) {
    BezierCubic bezier;
    bezier.NofInterpPoint(count);
    bezier.SetBasePoints(run[0].*x, run[0].*y, run[1].*x, run[1].*y, run[2].*x, run[2].*y, run[3].*x, run[3].*y);
    return std::pair(bezier.GetXInterpolated(), bezier.GetYInterpolated());
  };
  const auto [X, Y] = curve(&PuntoGPSEst::X, &PuntoGPSEst::Y);
  const auto [lat, lon] = curve(&PuntoGPSEst::GeoA, &PuntoGPSEst::GeoB);
  for (std::size_t i = first ? 1 : 2; i <= X.size(); ++i) {  // the first point of a run is the last of the one before
    const double place = 3.0 * static_cast<double>(i - 1) / (count - 1);
    const std::size_t k = std::min<std::size_t>(2, static_cast<std::size_t>(place));
    const auto between = [&](double PuntoGPSEst::*value) {
      return run.at(k).*value + (run.at(k + 1).*value - run.at(k).*value) * (place - static_cast<double>(k));
    };
    PuntoGPSEst fix = run.at(k);
    fix.X = X(i);
    fix.Y = Y(i);
    fix.GeoA = lat(i);
    fix.GeoB = lon(i);
    fix.DataOra = between(&PuntoGPSEst::DataOra);
    fix.Prof = between(&PuntoGPSEst::Prof);
    out.append(fix);
  }
}

Array1<PuntoGPSEst> Ricampiona(const Array1<PuntoGPSEst>& fixes, std::int16_t count) {
  Array1<PuntoGPSEst> out;
  std::size_t k = 1;
  for (; k + 3 <= fixes.size(); k += 3) {
    Interpola({fixes(k), fixes(k + 1), fixes(k + 2), fixes(k + 3)}, count, k == 1, out);
  }
  for (++k; k <= fixes.size(); ++k) out.append(fixes(k));
  return out;
}

}  // namespace

TrackKind GenereTraccia(std::string_view name, std::string_view content) {
  const std::string_view ending = name.size() < 4 ? name : name.substr(name.size() - 4);
  if (ending == ".sav") return TrackKind::Sav;
  if (ending == ".nav") return SembraNmea(content) ? TrackKind::Nmea : TrackKind::SixColumns;
  if (ending == ".csv") return TrackKind::Csv;
  return TrackKind::SixColumns;
}

const char* NomeGenere(TrackKind kind) {
  switch (kind) {
    case TrackKind::Csv:
      return "table of positions (.csv)";
    case TrackKind::SixColumns:
      return "six columns";
    case TrackKind::Nmea:
      return "NMEA 0183 log";
    case TrackKind::Sav:
      return "six columns (.sav)";
  }
  return "";
}

bool SembraSeiColonne(std::string_view content) {
  for (LineCursor lines(content); lines.more();) {
    const std::string_view line = lines.next().substr(0, 400);
    if (Rifila(line).empty()) continue;
    try {
      const Cut cut(line);
      DataOra(cut, 1);
      return !cut.text(6).empty();
    } catch (const RunTimeError&) {
      return false;
    }
  }
  return false;
}

TrackRead LeggiFileCSV(std::string_view content, GeoGeo& geo) {
  return PerRiga(content, TrackKind::Csv, 3, [&geo](const Cut& cut) -> std::optional<PuntoGPSEst> {
    PuntoGPSEst fix;
    fix.Y = cut.number(11);
    fix.X = cut.number(10);
    fix.Prof = Finito(cut.number(8));
    if (!Usabile(fix.X, fix.Y)) return std::nullopt;
    geo.UTMx(fix.X);
    geo.UTMy(fix.Y);
    if (!geo.UTM2Geo()) return std::nullopt;
    fix.GeoA = NumeroDaGradi(geo.LatGradi(), geo.Layout());
    fix.GeoB = NumeroDaGradi(geo.LonGradi(), geo.Layout());
    return fix;
  });
}

TrackRead LeggiGPS6Col(std::string_view content, GeoGeo& geo) {
  return PerRiga(content, TrackKind::SixColumns, 1, [&geo](const Cut& cut) -> std::optional<PuntoGPSEst> {
    PuntoGPSEst fix;
    const double number = cut.number(3);
    fix.Riserva = std::abs(number) <= 32767.0 ? static_cast<std::uint16_t>(AInt16(number)) : 0;
    fix.GeoA = cut.number(4);
    fix.GeoB = cut.number(5);
    fix.Prof = Finito(cut.number(6));
    try {
      if (geo.UTMzone() == 0) geo.Nord(!(fix.GeoA < 0.0));  // before any survey the track tells the hemisphere
      geo.Lat(cut.text(4));
      geo.Lon(cut.text(5));
    } catch (const RunTimeError&) {
      return std::nullopt;
    }
    if (!geo.Geo2UTM() || !Usabile(geo.UTMx(), geo.UTMy()) || !Usabile(fix.GeoA, fix.GeoB)) return std::nullopt;
    fix.X = geo.UTMx();
    fix.Y = geo.UTMy();
    return fix;
  });
}

TrackRead LeggiFileNav(std::string_view content, GeoGeo& geo) {
  TrackRead read;
  read.kind = TrackKind::Nmea;
  read.fixes.reserve(content.size() / 512);  // a fix a second between the sentences of other instruments
  std::size_t withoutDepth = 0;
  std::size_t unconverted = 0;
  const auto take = [&](const NmeaFix& fix) {
    if (geo.UTMzone() == 0) geo.Nord(fix.latitude >= 0.0);
    geo.Posizione(fix.latitude, fix.longitude);
    if (!geo.Geo2UTM() || !Usabile(geo.UTMx(), geo.UTMy())) {
      ++unconverted;
      return;
    }
    withoutDepth += fix.hasDepth ? 0U : 1U;
    PuntoGPSEst point;
    point.GeoA = NumeroDaGradi(fix.latitude, geo.Layout());
    point.GeoB = NumeroDaGradi(fix.longitude, geo.Layout());
    point.X = geo.UTMx();
    point.Y = geo.UTMy();
    point.Prof = fix.depth;
    point.DataOra = fix.seconds / 86400.0;
    read.fixes.append(point);
  };
  const auto restart = [&] {
    read.fixes.clear();
    withoutDepth = unconverted = 0;
  };
  const NmeaSummary summary = PercorriNmea(content, take, restart);
  for (PuntoGPSEst& fix : read.fixes) fix.DataOra += summary.firstDay;
  read.lines = summary.lines;
  RilieviNmea(summary, withoutDepth, read.fixes.size(), read);
  if (unconverted > 0) {
    read.findings.fault(Procedure, Quanti(unconverted, "positions that cannot be converted left out"));
  }
  return read;
}

TrackRead LeggiFileSav(std::string_view content, GeoGeo& geo, Dialogs& dialogs) {
  TrackRead read = LeggiGPS6Col(content, geo);
  read.kind = TrackKind::Sav;
  if (read.fixes.size() < 4) return read;
  const std::string answer = dialogs.InputBox({"N Bezier Points", "Set the interpolation", ""});
  if (Rifila(answer).empty()) return read;
  const std::int16_t count = AInt16(Val(answer));
  if (count >= 2) read.fixes = Ricampiona(read.fixes, count);
  return read;
}

TrackRead LeggiTraccia(TrackKind kind, std::string_view content, GeoGeo& geo, Dialogs& dialogs) {
  switch (kind) {
    case TrackKind::Csv:
      return LeggiFileCSV(content, geo);
    case TrackKind::SixColumns:
      return LeggiGPS6Col(content, geo);
    case TrackKind::Nmea:
      return LeggiFileNav(content, geo);
    case TrackKind::Sav:
      return LeggiFileSav(content, geo, dialogs);
  }
  return {};
}

double CalcolaProgressiva(Array1<PuntoGPSEst>& fixes) {
  for (std::size_t p = 2; p <= fixes.size(); ++p) {
    const PuntoGPSEst& before = fixes(p - 1);
    fixes(p).Progressiva = before.Progressiva + dist(before.X, before.Y, fixes(p).X, fixes(p).Y);
  }
  if (!fixes.empty()) fixes(1).Progressiva = 0.0;
  return fixes.size() < 2 ? 0.0 : fixes(fixes.size()).Progressiva / static_cast<double>(fixes.size() - 1);
}

}  // namespace corvan
