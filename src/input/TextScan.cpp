#include "input/TextScan.h"

#include <string_view>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/FileLines.h"
#include "input/TextLine.h"

namespace corvan {
namespace {

/// Which lines of firings are data.
enum class Extent : std::uint8_t { ToFirstLostFix, ToLastFix, AllButLast };

/// One walk over the lines of a file.
class TextWalk {
 public:
  TextWalk(Extent extent, std::size_t lastFix, const ReadOptions& options, const MisuraSink& sink, TextScan& scan)
      : extent_(extent), lastFix_(lastFix), options_(options), sink_(sink), scan_(scan) {}

  void line(const FileLines& at) {
    const LineKind kind = GenereRiga(at.line());
    scan_.lines = at.number();
    if (kind != LineKind::Firing) {
      between(kind, at.number());
      return;
    }
    ++scan_.firings;
    if (!ended_ && extent_ == Extent::ToLastFix && at.number() > lastFix_) end(DataEnd::LastFix, lastFix_);
    if (ended_) {
      leaveOut(at.line());
    } else if (at.last() && extent_ != Extent::ToLastFix) {
      lastLine(at);
    } else if (begun(at.line())) {
      take(at);
    }
  }

 private:
  void between(LineKind kind, std::size_t number) {
    if (ended_ || scan_.taken == 0) return;
    if (extent_ == Extent::ToFirstLostFix) {
      end(kind == LineKind::Blank ? DataEnd::Blank : DataEnd::Header, number);
    } else {
      ++passed_;
    }
  }

  /// Whether the data have begun, at this line at the latest.
  bool begun(std::string_view line) {
    if (extent_ == Extent::AllButLast || scan_.anyFix) return true;
    scan_.anyFix = RigaConFix(line);
    if (!scan_.anyFix) ++scan_.leading;
    return scan_.anyFix;
  }

  void lastLine(const FileLines& at) {
    const bool fix = RigaConFix(at.line());
    const bool whole = ContaCampi(at.line(), ";") >= PositionField;
    if (extent_ == Extent::ToFirstLostFix && scan_.anyFix && !fix && whole) {
      lose(at);
      return;
    }
    scan_.anyFix = scan_.anyFix || fix;
    end(DataEnd::LastLine, at.number());
  }

  void take(const FileLines& at) {
    LineRead read;
    try {
      read = LeggiRiga(at.line(), options_.layout);
    } catch (const RunTimeError&) {
      refuse(at);
      return;
    }
    if (!read.fix && extent_ == Extent::ToFirstLostFix) {
      lose(at);
    } else {
      accept(read, at);
    }
  }

  /// A number is too large: that ends the data, but not in a line that is none of them.
  void refuse(const FileLines& at) {
    if (extent_ == Extent::ToFirstLostFix && !RigaConFix(at.line())) {
      lose(at);
      return;
    }
    scan_.endText = CampoFuori(at.line());
    end(DataEnd::OutOfRange, at.number());
    leaveOut(at.line());
  }

  void accept(const LineRead& read, const FileLines& at) {
    if (read.incomplete) scan_.incomplete.add(at.number(), read.values);
    if (read.surplus || at.cut()) scan_.surplus.add(at.number(), read.values);
    if (read.improper) NotaNumeri(at.line(), at.number(), scan_.numbers);
    scan_.format.prendi(read.misura, at.number());
    if (scan_.taken++ == 0) scan_.PrimoValido = at.number();
    scan_.UltimoValido = at.number();
    scan_.passedOver = passed_;
    sink_(read.misura);
  }

  void lose(const FileLines& at) {
    std::string separator = ";";
    const std::string_view field = EstraiTesto(at.line(), separator, PositionField);
    if (const NumeroLetto number = LeggiNumero(field); number.improprio()) {
      scan_.endText = LettoCome(field, number.value);
    }
    end(DataEnd::LostFix, at.number());
    leaveOut(at.line());
  }

  void end(DataEnd why, std::size_t number) {
    ended_ = true;
    scan_.end = why;
    scan_.endLine = number;
  }

  void leaveOut(std::string_view line) {
    ++scan_.left;
    scan_.leftWithFix += RigaConFix(line) ? 1U : 0U;
  }

  Extent extent_;
  std::size_t lastFix_;
  const ReadOptions& options_;
  const MisuraSink& sink_;
  TextScan& scan_;
  bool ended_ = false;
  std::size_t passed_ = 0;  // blank lines and headers behind the first line taken
};

std::size_t UltimaRigaConFix(const std::filesystem::path& path, std::size_t block) {
  std::size_t last = 0;
  for (FileLines lines(path, block); lines.next();) {
    if (GenereRiga(lines.line()) == LineKind::Firing && RigaConFix(lines.line())) last = lines.number();
  }
  return last;
}

}  // namespace

void EsaminaTesto(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink, TextScan& scan,
                  std::size_t block) {
  const auto walk = [&](Extent extent, std::size_t lastFix) {
    scan = TextScan(options);
    TextWalk lines(extent, lastFix, options, sink, scan);
    FileLines file(path, block);
    while (file.next()) lines.line(file);
    file.requireUnchanged();
  };
  if (options.span == ReadSpan::ToFirstLostFix) {
    walk(Extent::ToFirstLostFix, 0);
    if (scan.anyFix) return;
  } else if (const std::size_t last = UltimaRigaConFix(path, block); last > 0) {
    // Looked for first, so that no gap, however long, need be held back until a position follows.
    walk(Extent::ToLastFix, last);
    return;
  }
  walk(Extent::AllButLast, 0);
}

}  // namespace corvan
