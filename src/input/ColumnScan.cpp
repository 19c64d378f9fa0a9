#include "input/ColumnScan.h"

#include <utility>

#include "base/Errors.h"
#include "base/FileLines.h"
#include "base/Lines.h"

namespace corvan {
namespace {

bool Bianca(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

/// One walk over the lines of a file.
class ColumnWalk {
 public:
  ColumnWalk(const ColumnPlan& plan, AngleFormat layout, const MisuraSink& sink, ColumnScan& scan)
      : plan_(plan), firings_(plan.names.layout, layout, sink), scan_(scan) {
    rows_.imposta(plan.names.layout, plan.names.separator, plan.spacing);
  }

  void line(const FileLines& at) {
    scan_.lines = at.number();
    if (Bianca(at.line())) {
      ++blank_;
    } else if (scan_.end > 0) {
      if (!RigaDiCommento(at.line())) ++scan_.left;
    } else if (at.number() < plan_.header) {
      before(at);
    } else if (at.number() == plan_.header) {
      units_ = true;
    } else if (RigaDiCommento(at.line())) {
      if (!header(at)) ++scan_.comments;
    } else {
      row(at);
    }
  }

  void fine() {
    firings_.chiudi();
    scan_.rows = rows_.tally();
    scan_.firings = firings_.tally();
  }

 private:
  void before(const FileLines& at) {
    if (RigaDiCommento(at.line())) return;
    scan_.preamble.add(at.number());
    const std::size_t first = at.line().find_first_not_of(" \t");
    const char c = at.line()[first];
    if ((c >= '0' && c <= '9') || c == '-' || c == '+') scan_.numbersBefore.add(at.number());
  }

  void row(const FileLines& at) {
    if (at.cut()) {
      scan_.cut.add(at.number());
      return;
    }
    const bool units = std::exchange(units_, false);
    ColumnRow read;
    RowFault fault = RowFault::None;
    try {
      fault = rows_.leggi(at.line(), at.number(), read);
      if (fault == RowFault::None) firings_.prendi(read, at.number());
    } catch (const RunTimeError& error) {
      end(at.number(), error.what());
      return;
    }
    if (fault == RowFault::None) {
      const std::size_t blank = std::exchange(blank_, 0);
      if (rows_.tally().rows > 1) scan_.blank += blank;  // those before the first row are between nothing
    } else if (fault == RowFault::Words && plan_.header == 0 && rows_.tally().rows == 0) {
      scan_.preamble.add(at.number());  // a header that says too little, most likely: the columns were stated
    } else if (!header(at) && !(units && fault == RowFault::Words && unita())) {
      rows_.conta(fault, at.number());
    }
  }

  bool unita() {
    ColumnLayout layout = rows_.layout();
    if (rows_.fields().size() != layout.fields || !PrendiUnita(rows_.fields(), layout).empty()) return false;
    rows_.imposta(layout, plan_.names.separator, plan_.spacing);
    return true;
  }

  /// Takes a header behind the first one. @return false when the line is none
  bool header(const FileLines& at) {
    const ColumnNames names = LeggiTestata(at.line());
    if (!names.header || plan_.header == 0) return false;
    if (!names.problem.empty()) {
      end(at.number(), "another header, " + names.problem);
      return true;
    }
    units_ = true;
    if (names.layout == plan_.names.layout && !other_) {
      ++scan_.repeated;
      return true;
    }
    other_ = true;
    scan_.headers.add(at.number());
    firings_.chiudi();
    firings_.colonne(names.layout);
    rows_.imposta(names.layout, names.separator, plan_.spacing);
    return true;
  }

  void end(std::size_t line, const std::string& reason) {
    scan_.end = line;
    scan_.endReason = reason;
    scan_.left = 1;
  }

  const ColumnPlan& plan_;
  ColumnRows rows_;
  ColumnFirings firings_;
  ColumnScan& scan_;
  std::size_t blank_ = 0;  // since the last row
  bool units_ = false;     // the line behind a header may hold units
  bool other_ = false;     // a header with other columns is in force
};

}  // namespace

ColumnPlan CercaTestata(std::string_view beginning) {
  for (LineCursor lines(beginning); lines.more();) {
    ColumnNames names = LeggiTestata(lines.next());
    if (names.header) return {std::move(names), lines.number(), 1.0};
  }
  return {};
}

std::optional<ColumnRow> PrimaRiga(std::string_view beginning, const ColumnPlan& plan) {
  ColumnRows rows;
  rows.imposta(plan.names.layout, plan.names.separator, 1.0);
  for (LineCursor lines(beginning); lines.more();) {
    const std::string_view line = lines.next();
    if (lines.number() <= plan.header || Bianca(line) || RigaDiCommento(line)) continue;
    ColumnRow row;
    try {
      const RowFault fault = rows.leggi(line, lines.number(), row);
      if (fault == RowFault::None) return row;
      ColumnLayout layout = plan.names.layout;
      const bool units = fault == RowFault::Words && PrendiUnita(rows.fields(), layout).empty();
      if (units && layout.lunghezze) return std::nullopt;
    } catch (const RunTimeError&) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

void EsaminaColonne(const std::filesystem::path& path, const ColumnPlan& plan, AngleFormat layout,
                    const MisuraSink& sink, ColumnScan& scan, std::size_t block) {
  scan = ColumnScan{};
  scan.unused = plan.names.unused;
  ColumnWalk walk(plan, layout, sink, scan);
  FileLines file(path, block);
  while (file.next()) walk.line(file);
  walk.fine();
  file.requireUnchanged();
}

}  // namespace corvan
