// What a reader of survey files is asked and what it gives: it changes no survey.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Findings.h"
#include "base/Position.h"
#include "survey/Misura.h"
#include "survey/Survey.h"

namespace corvan {

/// Up to where a file is read.
enum class ReadSpan {
  ToFirstLostFix,  ///< the records or lines from the first lost fix on are left out
  PastLostFixes    ///< on to the last positioned one; the firings between keep their readings and are bad fixes
};

struct ReadOptions {
  ReadSpan span = ReadSpan::ToFirstLostFix;
  std::optional<AngleFormat> layout = AngleFormat::DMM_MMM;  ///< of latitudes and longitudes; none: the file holds UTM
  /// Somebody chose the layout for the file: positions that look like another one's are a fault.
  bool layoutChosen = true;
  /// Asked for the records of a firing where the file leaves them open, with the default answer; an empty answer takes
  /// it. Never set: the default is taken.
  std::function<std::string(std::int32_t)> channels;
  /// Asked for the columns of a text of numbers without a header (see ColumnLayout.h). An empty answer, or nobody to
  /// ask: the text is not read.
  std::function<std::string()> columns = {};
  /// Asked for the distance from electrode to electrode of a column text, m, over 0: what its electrodes' numbers are
  /// multiplied with. None: they are places. @param whole they are whole numbers and neighbours differ by 1
  std::function<std::optional<double>(bool)> spacing = {};
  /// Told from time to time while firings are kept: their number so far and about how many will come, 0 where nobody
  /// knows. What it throws that is no std::exception ends the reading.
  std::function<void(std::size_t, std::size_t)> progress = {};

  void progredisci(std::size_t firings, std::size_t expected) const {
    constexpr std::size_t each = 2048;
    if (progress && firings % each == 0) progress(firings, expected);
  }
};

/// Takes the firings of a file in their order; NumFile is left to the taker, but for 1 in firings that hold a record.
using MisuraSink = std::function<void(const Misura&)>;

/// What a walk over a file found.
struct FileReport {
  FileSummary summary;
  std::string HeaderBin;            ///< the first 1030 bytes of a binary file
  std::int32_t largestChannel = 0;  ///< largest channel number stored; 10 in a text export
  Findings findings;                ///< without the file's name where they are about the file
};

/// The same with the firings.
struct FileRead : FileReport {
  std::vector<Misura> measurements;
};

}  // namespace corvan
