#include "exchange/GeneralArray.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "exchange/DecimalText.h"
#include "exchange/ToolkitReadings.h"
#include "export/BlockComposer.h"
#include "export/CablePlaces.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaSchieraGenerale";
constexpr std::size_t PointsPerBlock = 500;  // about 250 kB
constexpr std::size_t A = 12;
constexpr std::size_t B = 13;

/// Title, spacing, layout, and what the readings are; lines end in CR LF.
std::string Testa(const Survey& survey, const Section& section, std::size_t count) {
  constexpr std::size_t longest = 40;  // the title has room for 80 characters
  std::string source = survey.files.empty() ? "survey" : Visibile(survey.files.front().path.filename().string());
  if (source.size() > longest) source.resize(longest);
  if (survey.files.size() > 1) source += " +" + std::to_string(survey.files.size() - 1);
  std::string text = source + ", x along section (m), rhoa (ohm m)\r\n";
  AggiungiDecimale(text, section.Passo);
  text +=
      "\r\n11\r\n0\r\n"
      "Type of measurement (0=app. resistivity,1=resistance)\r\n"
      "0\r\n";
  AggiungiIntero(text, count);
  return text + "\r\n1\r\n0\r\n";  // x are horizontal distances; no induced polarisation
}

void AggiungiLettura(std::string& out, const SectionPoint& point, const ElectrodePlaces& at, std::size_t c) {
  out += '4';
  for (const std::size_t electrode : {A, B, c, c + 1}) {
    out += ' ';
    AggiungiDecimale(out, at.at(electrode).x);
    out += " 0.0";
  }
  out += ' ';
  AggiungiDecimale(out, point.resistivity.at(c));
  out += "\r\n";
}

}  // namespace

void SalvaSchieraGenerale(FileWriter& out, const Survey& survey, const Section& section, Findings& findings) {
  const CablePlaces places(section);
  const ToolkitReadings readings(survey, section, places);
  readings.esigi(Procedure, findings);
  const auto& points = section.RecordOut.points();
  out.write(Testa(survey, section, readings.readings()));
  const auto compose = [&](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t i = first + 1; i <= end; ++i) {
      const ReadingSet taken = readings.di(i);
      if (taken == 0) continue;
      const ElectrodePlaces at = places(points(i));
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        if ((taken & BitDi(c)) != 0) AggiungiLettura(text, points(i), at, c);
      }
    }
  };
  ComponiBlocchi({points.size(), PointsPerBlock}, compose, [&out](std::string_view text) { out.write(text); });
  out.write("0\r\n0\r\n0\r\n0\r\n0\r\n");  // no topography, nothing fixed
}

}  // namespace corvan
