// What is told of a column text.
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"
#include "geo/AngleText.h"
#include "input/ColumnScan.h"
#include "input/TrackFields.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiFileColonne";

/// "3 rows" with the place of the first: "3 rows without a position (the first in line 4)".
std::string Righe(const Counted& counted, const std::string& what) {
  return Quanti(counted.count, "row ", "rows ") + what + Dove(counted.count, counted.line);
}

std::string Elenca(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + Visibile(name);
  return list;
}

/// Lines that are no rows.
void RilieviLinee(const ColumnScan& scan, std::size_t columns, Findings& out) {
  const RowTally& rows = scan.rows;
  if (scan.end > 0) {
    out.fault(Procedure, "line " + std::to_string(scan.end) + ": " + scan.endReason + ": reading ended there, " +
                             Quanti(scan.left, "line", "lines") + " from there on not read");
  }
  if (scan.numbersBefore.count > 0) {
    out.fault(Procedure, Quanti(scan.numbersBefore.count, "line", "lines") + " of numbers before the header not read" +
                             Dove(scan.numbersBefore.count, scan.numbersBefore.line));
  }
  if (const std::size_t words = scan.preamble.count - scan.numbersBefore.count; words > 0) {
    out.note(Procedure, Quanti(words, "line", "lines") + " of text before the rows passed over");
  }
  if (rows.count.count > 0) {
    out.fault(Procedure,
              Righe(rows.count, "left out: more or fewer values than the " + std::to_string(columns) + " columns") +
                  ", with " + std::to_string(rows.held));
  }
  if (rows.electrodes.count > 0) {
    out.fault(Procedure, Righe(rows.electrodes, "left out: no number for each of the four electrodes"));
  }
  if (rows.words.count > 0) {
    out.fault(Procedure, Quanti(rows.words.count, "line", "lines") + " without any number passed over" +
                             Dove(rows.words.count, rows.words.line));
  }
  if (scan.cut.count > 0) {
    out.fault(Procedure, Quanti(scan.cut.count, "line", "lines") + " too long to be a row left out" +
                             Dove(scan.cut.count, scan.cut.line));
  }
  if (scan.headers.count > 0) {
    out.note(Procedure, Quanti(scan.headers.count, "header", "headers") + " with other columns, read from there on" +
                            Dove(scan.headers.count, scan.headers.line));
  }
  if (const std::size_t passed = scan.blank + scan.comments + scan.repeated; passed > 0) {
    out.note(Procedure, Quanti(passed, "line", "lines") + ", blank, a comment or a repeated header, passed over");
  }
  if (rows.separator.count > 0) out.note(Procedure, Righe(rows.separator, "with another separator"));
  if (!scan.unused.empty()) out.note(Procedure, "columns not used: " + Elenca(scan.unused));
}

/// Values that are not what they should be.
void RilieviValori(const ColumnScan& scan, const ColumnLayout& layout, Findings& out) {
  const RowTally& rows = scan.rows;
  if (rows.numbers.count() > 0) out.fault(Procedure, rows.numbers.detto());
  if (rows.reading.count > 0) {
    out.fault(Procedure, Righe(rows.reading, "without a reading: the channel stays without one"));
  }
  if (rows.factor.count > 0) {
    out.note(Procedure, Righe(rows.factor, "whose electrodes give a geometric factor of 0, and no resistivity"));
  }
  if (rows.disagreement.count > 0) {
    out.note(Procedure, Righe(rows.disagreement,
                              "with an apparent resistivity that differs by over 1 % from what the "
                              "resistance gives, which is taken") +
                            ": " + rows.firstDisagreement);
  }
  if (rows.noDepth.count > 0) out.fault(Procedure, Righe(rows.noDepth, "with a depth that is no number: 0 is taken"));
  if (!layout.ha(Column::Depth)) {
    out.note(Procedure, "no column of depths: they are 0");
  } else if (const std::size_t empty = rows.depthless - rows.noDepth.count; empty > 0) {
    out.note(Procedure, Quanti(empty, "row", "rows") + " without a depth: 0 is taken");
  }
  if (rows.noTime.count > 0) {
    out.fault(Procedure, Righe(rows.noTime, "with a time that is no date and time of 1980 to 2100, which have none"));
  }
  if (scan.firings.nominal > 0) {
    out.note(Procedure, Quanti(scan.firings.nominal, "firing", "firings") +
                            " without a measured current: it stands as 1000 mA, and the potential follows");
  }
}

/// A local grid, or numbers that are no metres at all.
void RilieviGriglia(const ColumnFiringTally& firings, Findings& out) {
  constexpr double largestLatitude = 91.0, largestLongitude = 181.0;  // as elsewhere, with a margin
  const std::string numbers = "eastings up to " + FormattaNumero(firings.east, "0.0###") + " and northings up to " +
                              FormattaNumero(firings.north, "0.0###");
  if (firings.positions > 0 && firings.north < largestLatitude && firings.east < largestLongitude) {
    out.fault(Procedure, numbers + " look like decimal degrees: such columns are named longitude and latitude");
  } else if (firings.outside.count > 0) {
    out.note(Procedure, numbers + " lie on no UTM zone" + Dove(firings.outside.count, firings.outside.line) +
                            ": on a local grid distances hold, latitudes and longitudes mean nothing");
  }
}

void RilieviPosizioni(const ColumnScan& scan, const ColumnLayout& layout, const ReadOptions& options, Findings& out) {
  const ColumnFiringTally& firings = scan.firings;
  if (const Counted& lost = scan.rows.position; lost.count > 0) {
    if (lost.count == scan.rows.rows) {
      out.fault(Procedure, lost.count == 1 ? "the only row has no position"
                                           : "none of the " + Quanti(lost.count, "row", "rows") + " has a position");
    } else {
      out.note(Procedure, Righe(lost, "without a position"));
    }
  }
  if (firings.beyond.count > 0) {
    out.fault(Procedure, QuantiDi(firings.beyond.count, firings.positions, "position", "positions") +
                             " a latitude over 90 or a longitude over 180, the first in line " +
                             std::to_string(firings.beyond.line) + ": they are read as decimal degrees");
  }
  if (!layout.geografica()) RilieviGriglia(firings, out);
  if (const std::string fast = firings.steps.detto("firing"); !fast.empty()) out.fault(Procedure, fast);
  if (!options.layoutChosen) return;
  const std::string format = options.layout ? NomeFormato(*options.layout).word : "utm";
  if (layout.geografica() && options.layout != AngleFormat::D_DDDD) {
    out.note(Procedure,
             "its columns are decimal degrees; the coordinate format (" + format + ") is that of other files");
  }
  if (!layout.geografica() && options.layout) {
    out.note(Procedure,
             "its columns are eastings and northings; the coordinate format (" + format + ") is that of other files");
  }
}

}  // namespace

Findings RilieviColonne(const ColumnScan& scan, const ColumnPlan& plan, const ReadOptions& options) {
  Findings out;
  const ColumnLayout& layout = plan.names.layout;
  RilieviLinee(scan, layout.fields, out);
  RilieviValori(scan, layout, out);
  RilieviPosizioni(scan, layout, options, out);
  if (scan.firings.alone > 0) {
    out.note(Procedure, std::to_string(scan.firings.alone) + " of " +
                            Quanti(scan.firings.firings, "firing", "firings") +
                            (scan.firings.alone == 1 ? " is a row of its own" : " are rows of their own"));
  }
  return out;
}

}  // namespace corvan
