#include "cli/CableOptions.h"

#include <map>

#include "base/NumberText.h"
#include "cli/Validators.h"

namespace corvan::cli {

void AggiungiCavo(CLI::App& command, CableOptions& o) {
  const std::map<std::string, CableShape> shapes{{"straight", CableShape::Straight}, {"track", CableShape::AlongTrack}};
  command
      .add_option("--cable-geometry", o.shape,
                  "How the cable lies behind the boat: stretched along the straight line of the section, or along the "
                  "sailed track (default straight)")
      ->transform(CLI::Transformer(shapes))
      ->type_name("straight|track");
  command
      .add_option("--track-smoothing", o.smoothing,
                  "Window over which the sailed track is smoothed, m; 0 for none (default: one electrode spacing)")
      ->check(NumeroTra(0.0, WidestSmoothing))
      ->type_name("M");
}

void Verifica(const CableOptions& o) {
  if (!o.smoothing.empty() && o.shape != CableShape::AlongTrack) {
    throw CLI::RequiresError("--track-smoothing", "--cable-geometry track");
  }
}

void ImpostaCavo(OutputPanel& output, const CableOptions& o) {
  output.cable = o.shape.value_or(output.cable);
  if (!o.smoothing.empty()) output.SmoothTxt = o.smoothing;
}

}  // namespace corvan::cli
