// The command line run from outside in a folder of its own, and small surveys in which no two columns are equal.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "support/SurveyFiles.h"

namespace corvan {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs corvan-cli in a folder of its own.
struct Cli {
  test::TempFolder folder;

  /// @param arguments as a POSIX shell takes them; on Windows its quotes and backslashes are understood, no more
  /// @param before what stands before the program on POSIX systems; empty on Windows
  /// @param in where it runs, below its folder
  Outcome operator()(const std::string& arguments, const std::string& input = "", const std::string& before = "",
                     const std::string& in = ".") const;
  bool exists(const std::string& name) const { return std::filesystem::exists(folder / name); }
};

inline bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

using Place = std::pair<std::string, std::string>;  ///< latitude and longitude, or northing and easting, as texts

/// A text survey with measurement n at place n: every column differs from every other and from line to line.
/// The last line of a file without gaps is left out, so it stands twice unless told otherwise.
inline std::string TextSurvey(const std::vector<Place>& places, bool lastTwice = true) {
  constexpr std::array Depths{"3.25", "3.75", "4.5", "5.5", "6.25"};
  std::string file = "DISTANCE\n", line;
  for (std::size_t n = 1; n <= places.size(); ++n) {
    const auto number = static_cast<double>(n);
    std::map<int, std::string> fields{{1, std::to_string(100 + n)},  {2, Depths.at(n - 1)},
                                      {26, places[n - 1].first},     {27, places[n - 1].second},
                                      {28, std::to_string(800 + n)}, {29, "-" + std::to_string(810 + 2 * n)}};
    for (int k = 30; k <= 49; ++k) fields[k] = (k % 2 == 0 ? "" : "-") + std::to_string(k + number / 4.0);
    line = test::TextLine(fields) + "\n";
    file += line;
  }
  return lastTwice ? file + line : file;
}

/// Five measurements on a straight line of slope 3/4 on the grid, 10, 15, 20 and 5 m apart.
inline std::vector<Place> GridPlaces() {
  return {{"5034567.5", "612340.25"},
          {"5034573.5", "612348.25"},
          {"5034582.5", "612360.25"},
          {"5034594.5", "612376.25"},
          {"5034597.5", "612380.25"}};
}

/// Five places on a bent line, in decimal degrees.
inline std::vector<Place> DegreePlaces(const std::string& hemisphere = "") {
  return {{hemisphere + "45.4009", "12.3014"},
          {hemisphere + "45.4012", "12.3021"},
          {hemisphere + "45.4013", "12.3025"},
          {hemisphere + "45.4019", "12.3036"},
          {hemisphere + "45.4023", "12.3041"}};
}

/// Five firings of ten channels, seven seconds apart from 2026-06-15 06:00:00 on. @param side 1 north, -1 south
inline std::vector<test::RecordValues> TimedFirings(float side = 1.0F) {
  std::vector<test::RecordValues> records = test::Firings(5, 10);
  for (std::size_t k = 0; k < records.size(); ++k) {
    const std::size_t firing = k / 10;
    records[k].north *= side;
    records[k].time = 46188.25 + 7.0 * static_cast<double>(firing) / 86400.0;
    records[k].current = 1000.0F + 10.0F * static_cast<float>(firing);
  }
  return records;
}

/// A .csv track of fixes {easting, northing, depth} ten seconds apart. @param start seconds before or after 06:00:00
inline std::string CsvTrack(const std::vector<std::array<double, 3>>& fixes, int start) {
  std::string file = "h\r\n";
  for (std::size_t k = 0; k < fixes.size(); ++k) {
    const int second = start + 10 * static_cast<int>(k);
    const std::string time = second < 0 ? "05:59:" + std::to_string(60 + second) : "06:00:" + std::to_string(second);
    file += "1;2;15/06/2026;" + time + ";5;6;7;" + std::to_string(fixes[k][2]) + ";9;" + std::to_string(fixes[k][0]) +
            ";" + std::to_string(fixes[k][1]) + "\r\n";
  }
  return file;
}

/// Fixes about the measurements of GridPlaces().
inline std::string GridTrack() {
  return CsvTrack({{612346.25, 5034571.0, 7.5},
                   {612358.25, 5034576.0, 8.25},
                   {612366.25, 5034582.0, 9.75},
                   {612377.25, 5034591.75, 11.5}},
                  0);
}

}  // namespace corvan
