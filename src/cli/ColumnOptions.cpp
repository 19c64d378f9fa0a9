#include "cli/ColumnOptions.h"

#include "base/NumberText.h"
#include "input/ColumnLayout.h"

namespace corvan::cli {
namespace {

CLI::Validator Colonne() {
  return {[](std::string& text) -> std::string { return LeggiColonne(text).problem; }, "COLUMNS"};
}

CLI::Validator Passo() {
  return {[](std::string& text) -> std::string {
            constexpr double least = 1e-3, most = 1e5;  // m
            const bool fits = SoloNumero(text) && Val(text) >= least && Val(text) <= most;
            return fits ? "" : "\"" + text + "\" is not 0.001 to 100000 m";
          },
          "M"};
}

}  // namespace

void AggiungiColonne(CLI::App& command, ColumnOptions& o) {
  command
      .add_option("--columns", o.columns,
                  "Columns of texts of numbers that name none, e.g. \"a b m n r easting northing\"; - for one that is "
                  "not read")
      ->check(Colonne())
      ->type_name("TEXT");
  command
      .add_option("--spacing", o.spacing,
                  "Column texts: electrodes are numbers, so many metres apart (default: places in metres)")
      ->check(Passo())
      ->type_name("M");
}

void RilevaColonne(const ColumnOptions& options, const ColumnUse& use, Findings& findings) {
  constexpr const char* procedure = "LeggiFileColonne";
  if (!options.columns.empty() && !use.columns) {
    findings.note(procedure, "--columns is not used: no file is a text of numbers without names");
  }
  if (!options.spacing.empty() && !use.spacing) {
    findings.note(procedure, "--spacing is not used: no file is a column text");
  }
}

}  // namespace corvan::cli
