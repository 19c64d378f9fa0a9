#include "cli/ColourOptions.h"

#include <string>
#include <string_view>
#include <vector>

#include "cli/Validators.h"
#include "picture/Palette.h"

namespace corvan::cli {
namespace {

constexpr std::string_view Reversed = ":reversed";

bool Rovesciata(std::string_view text) { return text.ends_with(Reversed); }

const PaletteEntry* Scelta(std::string_view text) {
  if (Rovesciata(text)) text.remove_suffix(Reversed.size());
  return PaletteDaParola(text);
}

CLI::Validator TavolozzaNota() {
  std::vector<std::string> words;
  for (const PaletteEntry& entry : PaletteTable) {
    words.emplace_back(entry.word);
    words.push_back(words.back() + std::string(Reversed));
  }
  return {[](std::string& text) -> std::string {
            if (Scelta(text) != nullptr) return "";
            return "\"" + text + "\" is not one of " + ParoleDiPalette() + ", each with or without \":reversed\"";
          },
          "NAME", Offerta("words", words)};
}

}  // namespace

void AggiungiColori(CLI::App& command, ColourOptions& o) {
  command
      .add_option("--palette", o.palette,
                  "Colours of picture and .kml: " + ParoleDiPalette() + "; \":reversed\" behind it turns it round")
      ->check(TavolozzaNota())
      ->type_name("NAME[:reversed]");
  command.add_flag("--log", o.logarithmic, "Logarithmic scale of colours, where both bounds are over 0");
  command
      .add_option("--range", o.range,
                  "Bounds of the colour scale, ohm m: from the data (auto, the default), from percentiles of the "
                  "readings (e.g. p2,98), or two numbers")
      ->check(Intervallo())
      ->type_name("auto|pLOW,HIGH|MIN;MAX");
}

void ImpostaColori(Session& session, const ColourOptions& options, bool used) {
  ColourDesk& colours = session.survey.colori();
  if (!options.range.empty()) colours.chiediIntervallo();
  if (!options.palette.empty()) {
    colours.scegli(Scelta(options.palette)->name);
    colours.inverti(Rovesciata(options.palette));
  }
  if (options.logarithmic) colours.logaritmo(true);
  if (used) return;
  if (!options.palette.empty()) session.findings().note("SetPalette", "--palette is not used: no picture and no .kml");
  if (options.logarithmic) session.findings().note("SetPalette", "--log is not used: no picture and no .kml");
}

}  // namespace corvan::cli
