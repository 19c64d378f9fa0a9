#include "exchange/UnifiedData.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/NumberText.h"
#include "base/Text.h"
#include "exchange/DecimalText.h"
#include "exchange/ToolkitReadings.h"
#include "export/BlockComposer.h"
#include "export/CablePlaces.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaDatiUnificati";
constexpr std::size_t PointsPerBlock = 500;  // about 200 kB
constexpr std::size_t A = 12;
constexpr std::size_t B = 13;

/// What is known of the quality of the readings that are written.
struct ReadingQuality {
  bool error = false;          ///< the column of errors is written
  bool chargeability = false;  ///< likewise
  float least = 0;             ///< smallest deviation over 0, %
  std::size_t without = 0;     ///< firings without quality
  std::size_t firings = 0;     ///< firings that are written
  std::size_t zero = 0;        ///< readings whose deviation is 0 or not finite
  std::size_t notFinite = 0;   ///< readings whose chargeability is not finite
};

bool Scarto(float deviation) { return deviation > 0.0F && std::isfinite(deviation); }

ReadingQuality ValutaQualita(const Section& section, const ToolkitReadings& readings) {
  ReadingQuality q;
  const auto& points = section.RecordOut.points();
  for (std::size_t i = 1; i <= points.size(); ++i) {
    const ReadingSet taken = readings.di(i);
    if (taken == 0) continue;
    const SectionPoint& point = points(i);
    ++q.firings;
    if (!point.conQualita) ++q.without;
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if ((taken & BitDi(c)) == 0) continue;
      const float deviation = point.deviazione.at(c);
      if (!std::isfinite(point.caricabilita.at(c))) ++q.notFinite;
      if (!Scarto(deviation)) {
        ++q.zero;
      } else if (q.least == 0.0F || deviation < q.least) {
        q.least = deviation;
      }
    }
  }
  q.error = q.without == 0 && q.least > 0.0F;
  q.chargeability = q.without == 0 && q.notFinite == 0;
  return q;
}

void RilevaQualita(const ReadingQuality& q, std::size_t readings, Findings& findings) {
  if (q.without > 0) {
    findings.note(Procedure, std::to_string(q.without) + " of " + Quanti(q.firings, "measurement", "measurements") +
                                 (q.without == 1 ? " holds" : " hold") +
                                 " no deviation and chargeability: the columns err and ip are left out");
    return;
  }
  if (!q.error) {
    findings.note(Procedure, "none of " + Quanti(readings, "reading", "readings") +
                                 " has a deviation over 0: the column err is left out");
  } else if (q.zero > 0) {
    findings.note(Procedure, Quanti(q.zero, "reading has", "readings have") +
                                 " a deviation of 0 or none that is a number: the smallest of the others, " +
                                 TestoNumero(q.least) + " %, is written instead");
  }
  if (!q.chargeability) {
    findings.note(Procedure, Quanti(q.notFinite, "chargeability is", "chargeabilities are") +
                                 " not finite: the column ip is left out");
  }
}

/// One file: the text of its two tables.
class Tables {
 public:
  Tables(const Section& section, const ToolkitReadings& readings, const CablePlaces& places, ErtDimension dimension,
         const ReadingQuality& quality)
      : points_(section.RecordOut.points()),
        readings_(readings),
        places_(places),
        dimension_(dimension),
        quality_(quality) {
    before_.reserve(points_.size());
    std::size_t count = 0;
    for (std::size_t i = 1; i <= points_.size(); ++i) {
      before_.push_back(count);
      count += static_cast<std::size_t>(std::popcount(ElettrodiDi(readings.di(i))));
    }
  }

  /// @param i point, from 1
  void electrodes(std::string& out, std::size_t i) const {
    const ElectrodeSet used = ElettrodiDi(readings_.di(i));
    if (used == 0) return;
    const ElectrodePlaces at = places_(points_(i));
    for (std::size_t e = 1; e <= CableElectrodes; ++e) {
      if ((used & BitElettrodo(e)) == 0) continue;
      if (dimension_ == ErtDimension::Two) {
        AggiungiDecimale(out, at.at(e).x);
      } else {
        AggiungiDecimale(out, at.at(e).est);
        out += ' ';
        AggiungiDecimale(out, at.at(e).nord);
      }
      out += " 0.0\n";
    }
  }

  void readings(std::string& out, std::size_t i) const {
    const ReadingSet taken = readings_.di(i);
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if ((taken & BitDi(c)) != 0) reading(out, i, c);
    }
  }

 private:
  /// The number of an electrode in the file, from 1.
  std::size_t number(std::size_t i, std::size_t electrode) const {
    const unsigned upTo = ElettrodiDi(readings_.di(i)) & ((2U << electrode) - 1U);
    return before_[i - 1] + static_cast<std::size_t>(std::popcount(upTo));
  }

  void reading(std::string& out, std::size_t i, std::size_t c) const {
    const SectionPoint& p = points_(i);
    for (const std::size_t electrode : {A, B, c, c + 1}) {
      AggiungiIntero(out, number(i, electrode));
      out += ' ';
    }
    AggiungiDecimale(out, p.potential.at(c) / p.current);  // mV / mA
    const auto add = [&out](float value) {
      out += ' ';
      AggiungiDecimale(out, value);
    };
    add(p.resistivity.at(c));
    add(p.potential.at(c) / 1000.0F);
    add(p.current / 1000.0F);
    const float deviation = p.deviazione.at(c);
    if (quality_.error) add((Scarto(deviation) ? deviation : quality_.least) / 100.0F);
    if (quality_.chargeability) add(p.caricabilita.at(c));
    out += '\n';
  }

  const Array1<SectionPoint>& points_;
  const ToolkitReadings& readings_;
  const CablePlaces& places_;
  ErtDimension dimension_;
  const ReadingQuality& quality_;
  std::vector<std::size_t> before_;  ///< electrodes of the points before
};

/// Readers allow a remark behind a count, but not before the first one nor behind the readings, and no digit in it.
std::string TestaElettrodi(std::size_t count, ErtDimension dimension) {
  const bool flat = dimension == ErtDimension::Two;
  return std::to_string(count) + "# electrodes of a floating cable, " +
         (flat ? "x along the section (m)" : "x easting and y northing (m)") + ", z at the water's surface\n" +
         (flat ? "# x z\n" : "# x y z\n");
}

std::string TestaLetture(std::size_t count, const ReadingQuality& quality) {
  return std::to_string(count) + "# readings, r (ohm), rhoa (ohm m), u (V), i (A)" +
         (quality.error ? ", err (share)" : "") + (quality.chargeability ? ", ip (mV/V)" : "") +
         "\n# a b m n r rhoa u i" + (quality.error ? " err" : "") + (quality.chargeability ? " ip" : "") + "\n";
}

}  // namespace

void SalvaDatiUnificati(FileWriter& out, const Survey& survey, const Section& section, ErtDimension dimension,
                        Findings& findings) {
  const CablePlaces places(section);
  const ToolkitReadings readings(survey, section, places);
  readings.esigi(Procedure, findings);
  const ReadingQuality quality = ValutaQualita(section, readings);
  RilevaQualita(quality, readings.readings(), findings);
  const Tables tables(section, readings, places, dimension, quality);
  const auto table = [&](void (Tables::*row)(std::string&, std::size_t) const) {
    const auto compose = [&](std::string& text, std::size_t first, std::size_t end) {
      for (std::size_t i = first + 1; i <= end; ++i) (tables.*row)(text, i);
    };
    ComponiBlocchi({section.RecordOut.points().size(), PointsPerBlock}, compose,
                   [&out](std::string_view text) { out.write(text); });
  };
  out.write(TestaElettrodi(readings.electrodes(), dimension));
  table(&Tables::electrodes);
  out.write(TestaLetture(readings.readings(), quality));
  table(&Tables::readings);
}

}  // namespace corvan
