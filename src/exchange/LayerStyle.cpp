#include "exchange/LayerStyle.h"

#include <cstddef>
#include <utility>

#include "base/NumberText.h"
#include "exchange/DecimalText.h"

namespace corvan {
namespace {

constexpr std::size_t Classes = 16;
constexpr double Beyond = 1e30;  // ohm m

std::string Numero(double value) {
  std::string text;
  AggiungiDecimale(text, value);
  return text;
}

/// Enough digits for the ground and for water.
std::string Etichetta(double value) {
  return FormattaNumero(value, value < 10.0 && value > -10.0 ? Mask("0.0#####") : Mask("0.0#"));
}

std::string Intervallo(const ColourScale& colours, std::size_t k) {
  const double step = 1.0 / static_cast<double>(Classes), share = static_cast<double>(k) * step;
  double low = ValoreScala(colours, share), high = ValoreScala(colours, share + step);
  const bool rising = low <= high;
  if (!rising) std::swap(low, high);
  const std::string label = Etichetta(low) + " - " + Etichetta(high);
  if (k == (rising ? 0 : Classes - 1)) low = -Beyond;
  if (k == (rising ? Classes - 1 : 0)) high = Beyond;
  return "<range lower=\"" + Numero(low) + "\" upper=\"" + Numero(high) + "\" symbol=\"" + std::to_string(k) +
         "\" label=\"" + label + "\" render=\"true\"/>";
}

std::string Simbolo(const ColourScale& colours, std::size_t k) {
  constexpr std::size_t width = 256 / Classes;
  const std::uint32_t rgb = ColoreScala(colours, k * width + width / 2);
  const std::string colour = std::to_string(rgb >> 16U & 0xFFU) + "," + std::to_string(rgb >> 8U & 0xFFU) + "," +
                             std::to_string(rgb & 0xFFU) + ",255";
  return "<symbol type=\"marker\" name=\"" + std::to_string(k) +
         "\" alpha=\"1\" clip_to_extent=\"1\"><layer class=\"SimpleMarker\" enabled=\"1\" locked=\"0\" pass=\"0\">"
         "<prop k=\"color\" v=\"" +
         colour +
         "\"/><prop k=\"name\" v=\"circle\"/><prop k=\"outline_style\" v=\"no\"/><prop k=\"size\" v=\"2\"/>"
         "<prop k=\"size_unit\" v=\"MM\"/></layer></symbol>";
}

}  // namespace

std::string StileQml(const std::string& column, const ColourScale& colours) {
  std::string ranges, symbols;
  for (std::size_t k = 0; k < Classes; ++k) {
    ranges += Intervallo(colours, k);
    symbols += Simbolo(colours, k);
  }
  return "<!DOCTYPE qgis PUBLIC 'http://mrcc.com/qgis.dtd' 'SYSTEM'>\n"
         "<qgis version=\"3.16\" styleCategories=\"Symbology\"><renderer-v2 type=\"graduatedSymbol\" attr=\"" +
         column +
         "\" graduatedMethod=\"GraduatedColor\" symbollevels=\"0\" enableorderby=\"0\" forceraster=\"0\"><ranges>" +
         ranges + "</ranges><symbols>" + symbols + "</symbols></renderer-v2></qgis>\n";
}

}  // namespace corvan
