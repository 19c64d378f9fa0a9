#include "Ratios.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace corvan::bench {
namespace {

struct Promise {
  const char* what;
  const char* slow;
  const char* fast;  // none: the time itself, in the benchmark's unit
  double goal;
};

constexpr std::array Promises{
    Promise{"Syscal file of 1,000,000 records / its bytes through a buffer of 1 MB", "ReadSyscal", "ReadSyscalBytes",
            2.5},
    Promise{"text export / from_chars over the same numbers", "ReadText", "ReadTextNumbers", 2.0},
    Promise{".bin / bare write of the same bytes", "WriteBin/20000", "WriteBinBytes/20000", 3.0},
    Promise{"all formats of 200,000 firings / bare 1 MB writes of the same bytes, both to the disk", "WriteAll/200000",
            "WriteAllBytes/200000", 3.0},
    Promise{"analysis, 100,000 / 10,000 measurements", "Analysis/100000", "Analysis/10000", 12.0},
    Promise{"extraction", "Extraction/100000", "Extraction/10000", 12.0},
    Promise{"extraction along the track", "ExtractionAlongTrack/100000", "ExtractionAlongTrack/10000", 12.0},
    Promise{".bin", "SalvaBinPro/100000", "SalvaBinPro/10000", 12.0},
    Promise{".txt", "SalvaAscii/100000", "SalvaAscii/10000", 12.0},
    Promise{".ecs", "SalvaTraccia/100000", "SalvaTraccia/10000", 12.0},
    Promise{".kml", "SalvaKML/100000", "SalvaKML/10000", 12.0},
    Promise{".csv", "SalvaTabella/100000", "SalvaTabella/10000", 12.0},
    Promise{".ohm / .csv, for as many bytes", "Open/ohm/100000", "SalvaTabella/100000", 2.0},
    Promise{".dat", "Open/dat/100000", "SalvaTabella/100000", 2.0},
    Promise{"_bottom.csv", "Open/bottom/100000", "SalvaTabella/100000", 2.0},
    Promise{".geojson", "Open/geojson/100000", "SalvaTabella/100000", 2.0},
    Promise{".vtu", "Open/vtu/100000", "SalvaTabella/100000", 2.0},
    Promise{".ohm, 100,000 / 10,000 measurements", "Open/ohm/100000", "Open/ohm/10000", 12.0},
    Promise{".dat", "Open/dat/100000", "Open/dat/10000", 12.0},
    Promise{"_bottom.csv", "Open/bottom/100000", "Open/bottom/10000", 12.0},
    Promise{".geojson", "Open/geojson/100000", "Open/geojson/10000", 12.0},
    Promise{".vtu", "Open/vtu/100000", "Open/vtu/10000", 12.0},
    Promise{".gpkg", "SalvaGeoPackageWhole/100000", "SalvaGeoPackageWhole/10000", 12.0},
    Promise{".gpkg of 100,000 measurements: milliseconds", "SalvaGeoPackageWhole/100000", nullptr, 5000.0},
    Promise{"repaint / painting of its cells, 10,000 cells", "PaintAll/1000", "PaintFloor/1000", 1.3},
    Promise{"100,000 cells", "PaintAll/10000", "PaintFloor/10000", 1.4},
    Promise{"1,000,000 cells", "PaintAll/100000", "PaintFloor/100000", 1.6},
    Promise{"the same with 99 % outside, 10,000 cells", "ZoomAll/1000", "ZoomFloor/1000", 1.3},
    Promise{"100,000 cells", "ZoomAll/10000", "ZoomFloor/10000", 1.8},
    Promise{"1,000,000 cells", "ZoomAll/100000", "ZoomFloor/100000", 3.0},
    Promise{"drag frame / painting of the cells, 10,000 cells", "Drag/1000", "PaintFloor/1000", 0.5},
    Promise{"100,000 cells", "Drag/10000", "PaintFloor/10000", 0.5},
    Promise{"1,000,000 cells", "Drag/100000", "PaintFloor/100000", 0.5},
    Promise{"repaint with 100,000 / 1,000 markers over 10,000 cells", "Markers/100000", "Markers/1000", 5.0},
    Promise{"markers under the pointer, 100,000 of them: microseconds", "HitTest/100000", nullptr, 5.0},
    Promise{"map's band of 100,000 measurements / painting of its pieces", "BandAll/100000", "BandFloor/100000", 2.5},
    Promise{"flat section / painting of its cells, 100,000 cells", "FlatAll/10000", "FlatFloor/10000", 2.5},
    Promise{"1,000,000 cells", "FlatAll/100000", "FlatFloor/100000", 2.5},
    Promise{"the same with all curves: milliseconds", "FlatCurves/100000", nullptr, 50.0},
    Promise{"NMEA log / line ends and checksums of the same bytes", "ReadNmea", "ReadNmeaBytes", 3.0},
    Promise{"link of 100,000 measurements to 1,000,000 fixes / walk over both", "LinkByTime", "LinkWalk", 3.0}};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type == Run::RT_Iteration)
      times_[run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args)].push_back(
          run.GetAdjustedRealTime());
  }
  ConsoleReporter::ReportRuns(runs);
}

bool RatioReporter::printRatios() const {
  bool kept = true;
  std::cout << "\nratio   goal   \n";
  for (const Promise& p : Promises) {
    const auto slow = times_.find(p.slow);
    const auto fast = p.fast == nullptr ? slow : times_.find(p.fast);
    if (slow == times_.end() || fast == times_.end()) continue;
    const double ratio = Median(slow->second) / (p.fast == nullptr ? 1.0 : Median(fast->second));
    kept = kept && ratio <= p.goal;
    std::cout.precision(3);
    std::cout << ratio << "\t<= " << p.goal << "\t" << (ratio <= p.goal ? "ok  " : "OVER") << "  " << p.what << '\n';
  }
  return kept;
}

}  // namespace corvan::bench
