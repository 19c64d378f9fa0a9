#include "session/Caption.h"

#include <algorithm>
#include <vector>

#include "base/NumberText.h"
#include "base/OleDate.h"

namespace corvan {
namespace {

constexpr const char* Between = " \u00B7 ";

std::string File(const Survey& survey) {
  std::vector<std::string> names;
  for (const FileSummary& file : survey.files) {
    if (file.firings > 0) names.push_back(file.path.filename().string());
  }
  constexpr std::size_t most = 3;
  const std::size_t shown = names.size() <= most ? names.size() : most - 1;
  std::string text;
  for (std::size_t i = 0; i < shown; ++i) text += (i > 0 ? ", " : "") + names[i];
  if (shown < names.size()) text += " and " + std::to_string(names.size() - shown) + " more";
  return text;
}

/// From the earliest to the latest time, the day once where it is the same.
std::string Tempi(const Survey& survey) {
  double first = 0.0, last = 0.0;
  for (const Misura& m : survey.Misure) {
    if (!TempoValido(m.Tempo)) continue;
    first = first == 0.0 ? m.Tempo : std::min(first, m.Tempo);
    last = std::max(last, m.Tempo);
  }
  if (first == 0.0) return "no times";
  constexpr std::size_t day = 11;  // "yyyy-mm-dd "
  const std::string from = TestoDataOra(DaGiorni(first)), to = TestoDataOra(DaGiorni(last));
  if (from == to) return from;
  return from + " to " + (from.substr(0, day) == to.substr(0, day) ? to.substr(day) : to);
}

std::string Gradi(const char* name, double radians) {
  return std::string(name) + " " + TestoNumero(ArrotondaDecimale(InGradi(radians), 1)) + "\u00B0";
}

}  // namespace

Caption DidascaliaRilievo(const Survey& survey) {
  if (survey.Misure.empty()) return {};
  const GridZone& grid = survey.settings.griglia;
  return {File(survey), Between + Tempi(survey) + Between + "UTM zone " + std::to_string(grid.zone) +
                            (grid.hemisphere == Hemisphere::North ? " north" : " south")};
}

Caption DidascaliaVista(const Survey& survey, const ViewState& view, bool band, double exaggeration) {
  Caption caption = DidascaliaRilievo(survey);
  if (survey.Misure.empty()) return caption;
  std::string& text = caption.rest;
  text += Between + Gradi("\u03B8", view.AngoloVista) + " " + Gradi("\u03C6", view.AngoloPhi) + " " +
          Gradi("\u03B3", view.AngoloGamma) + Between +
          (view.projection == Projection::Orthographic ? "orthographic" : "perspective");
  if (band) text += Between + ("level " + std::to_string(view.mappa.livello));
  if (exaggeration != 1.0) text += Between + ("heights \u00D7 " + TestoNumero(exaggeration));
  return caption;
}

}  // namespace corvan
