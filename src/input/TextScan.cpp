#include "input/TextScan.h"

#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr std::string_view Separator = ";";
constexpr std::size_t PositionField = 26;  // latitude or northing; 0 means that the line has no position

/// Whether field 26 of a line, looked at alone, holds a number other than 0.
bool RigaConFix(std::string_view line) {
  std::string separator(Separator);
  return EstraiCampo(line, separator, PositionField) != 0.0;
}

float Singolo(std::string_view field) { return ASingolo(Val(field)); }

struct LineRead {
  Misura misura;
  std::size_t fields = 0;
  bool fix = false;  ///< field 26 is not 0
};

/// Fills a measurement from the 49 fields of one line, in their order.
LineRead LeggiRiga(std::string_view line, bool coordUTM) {
  FieldCursor cursor(line, Separator);
  LineRead read;
  const auto next = [&] {
    if (cursor.more()) ++read.fields;
    return cursor.next();
  };
  Misura& m = read.misura;
  m.Passo = Singolo(next());
  m.Val12 = Singolo(next());
  for (std::size_t c = 1; c <= MaxChannels; ++c) m.Rho[c] = Singolo(next());
  m.Val60 = Singolo(next());
  m.Val64 = Singolo(next());
  for (std::size_t e = 1; e <= PotentialElectrodes; ++e) m.Elettrodi[e] = Singolo(next());
  const double north = Val(next());
  const double east = Val(next());
  m.Val180 = Singolo(next());
  m.Val184 = Singolo(next());
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    m.CanaleA[c] = Singolo(next());
    m.CanaleB[c] = Singolo(next());
  }
  read.fix = north != 0.0;
  m.SorgenteUTM = coordUTM;
  ImpostaPosizione(m, north, east);
  return read;
}

/// The walk over one text: where it stands and what it still holds back.
class TextWalk {
  /// Runs a look at one line; a number out of range is an error that names the line, and what came before is kept.
  template <class Look>
  auto named(std::size_t number, Look&& look) {
    try {
      return look();
    } catch (const RunTimeError& error) {
      release(number - 1);
      throw RunTimeError("line " + std::to_string(number) + ": " + error.what());
    }
  }

 public:
  TextWalk(ReadSpan span, bool coordUTM, const MisuraSink& sink) : span_(span), coordUTM_(coordUTM), sink_(sink) {}

  void line(std::string_view line, std::size_t number) {
    scan_.lines = number;
    if (stopped_) {
      leaveOut(line);
      return;
    }
    if (!scan_.anyFix) {
      if (!named(number, [line] { return RigaConFix(line); })) return;
      scan_.anyFix = true;
      scan_.PrimoValido = number;
    }
    take(line, number);
  }

  /// Parses a line and holds it back until it is known to belong to the data.
  void take(std::string_view line, std::size_t number) {
    const LineRead read = named(number, [&] { return LeggiRiga(line, coordUTM_); });
    if (!read.fix && scan_.anyFix) {
      if (scan_.lostLine == 0) scan_.lostLine = number;
      if (span_ == ReadSpan::ToFirstLostFix) {
        release(number - 1);
        stopped_ = true;
        leaveOut(line);
        return;
      }
    }
    const bool holdsGap = span_ == ReadSpan::PastLostFixes && scan_.anyFix && !read.fix;
    if (span_ == ReadSpan::ToFirstLostFix) release(number - 1);
    noteFields(line, read.fields, number);
    held_.push_back(read.misura);
    if (span_ == ReadSpan::PastLostFixes && !holdsGap) release(number);
  }

  TextScan finish() const { return scan_; }

 private:
  void release(std::size_t lastLine) {
    for (const Misura& m : held_) sink_(m);
    if (!held_.empty()) scan_.UltimoValido = lastLine;
    held_.clear();
  }
  void leaveOut(std::string_view line) {
    if (Rifila(line).empty()) return;
    ++scan_.lostFilled;
    try {
      scan_.lostPositioned += RigaConFix(line) ? 1U : 0U;
    } catch (const RunTimeError&) {
      return;  // a line that is left out anyway
    }
  }
  void noteFields(std::string_view line, std::size_t fields, std::size_t number) {
    if (fields >= TextFields || Rifila(line).empty()) return;
    if (scan_.shortLines++ > 0) return;
    scan_.shortLine = number;
    scan_.shortFields = fields;
  }

  ReadSpan span_;
  bool coordUTM_;
  const MisuraSink& sink_;
  TextScan scan_;
  bool stopped_ = false;
  std::vector<Misura> held_;  // one line in general; past lost fixes a gap whose end is still to come
};

}  // namespace

TextScan EsaminaTesto(std::string_view text, ReadSpan span, bool coordUTM, const MisuraSink& sink) {
  TextWalk walk(span, coordUTM, sink);
  for (LineCursor lines(text); lines.more();) {
    const std::string_view line = lines.next();
    walk.line(line, lines.number());
  }
  const TextScan scan = walk.finish();
  if (scan.anyFix) return scan;

  TextWalk all(ReadSpan::ToFirstLostFix, coordUTM, sink);
  LineCursor lines(text);
  while (lines.more()) {
    const std::string_view line = lines.next();
    all.take(line, lines.number());
  }
  TextScan none = all.finish();
  none.lines = scan.lines;
  return none;
}

}  // namespace corvan
