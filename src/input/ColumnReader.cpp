#include "input/ColumnReader.h"

#include <algorithm>
#include <cmath>
#include <system_error>

#include "base/ErrorTrap.h"
#include "base/File.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "input/ColumnScan.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiFileColonne";
constexpr std::size_t Beginning = std::size_t{1} << 16;
constexpr std::size_t FewestColumns = 7;  // four electrodes, a reading and a position

/// A line of numbers, enough of them for a row.
bool RigaDiNumeri(std::string_view line, std::vector<std::string_view>& fields) {
  for (const char separator : ColumnSeparators) {
    TagliaColonne(line, separator, fields);
    if (fields.size() < FewestColumns) continue;
    const auto number = [](std::string_view field) {
      try {
        const TextForm form = LeggiNumero(field).form;
        return form == TextForm::Number || form == TextForm::Comma;
      } catch (const RunTimeError&) {
        return true;
      }
    };
    if (std::all_of(fields.begin(), fields.end(), number)) return true;
  }
  return false;
}

/// Numbers of electrodes rather than places: whole, and the nearest two differ by 1.
bool Numerati(const ColumnRow& row) {
  std::array<float, 4> sorted = row.electrodes;
  std::sort(sorted.begin(), sorted.end());
  float least = sorted[1] - sorted[0];
  for (std::size_t k = 2; k < sorted.size(); ++k) least = std::min(least, sorted.at(k) - sorted.at(k - 1));
  return least == 1.0F && std::all_of(sorted.begin(), sorted.end(), [](float p) { return p == std::trunc(p); });
}

/// The columns that the rows are read by. @throws RunTimeError telling why they cannot be
ColumnPlan Prepara(std::string_view beginning, const std::string& columns, Findings& findings) {
  ColumnPlan plan = CercaTestata(beginning);
  if (plan.header > 0 && plan.names.problem.empty()) {
    if (!columns.empty()) findings.note(Procedure, "the columns that were stated are not used: the header names them");
    return plan;
  }
  if (columns.empty()) {
    if (plan.header == 0)
      throw RunTimeError("no header names the columns and nobody has stated them (--columns): nothing is read");
    throw RunTimeError("line " + std::to_string(plan.header) + ", " + plan.names.problem + ": nothing is read");
  }
  plan = {LeggiColonne(columns), 0, 1.0};
  if (!plan.names.problem.empty()) throw RunTimeError("columns as stated, " + plan.names.problem + ": nothing is read");
  return plan;
}

/// What electrodes are multiplied with.
void ChiediPasso(std::string_view beginning, const ReadOptions& options, ColumnPlan& plan, Findings& findings) {
  const std::optional<ColumnRow> first = PrimaRiga(beginning, plan);
  const bool numbered = first && !plan.names.layout.lunghezze && Numerati(*first);
  const std::optional<double> spacing = options.spacing ? options.spacing(numbered) : std::nullopt;
  plan.spacing = spacing.value_or(1.0);
  if (spacing && plan.names.layout.lunghezze) {
    findings.note(Procedure, "the spacing that was stated is not used: the electrodes' units are lengths");
  } else if (numbered && !spacing) {
    findings.note(Procedure, "electrodes look like numbers: they are taken as places, 1 m apart");
  }
}

}  // namespace

ColumnStart InizioColonne(std::string_view beginning) {
  beginning = beginning.substr(0, Beginning);
  if (beginning.find('\0') != std::string_view::npos) return ColumnStart::None;
  if (const ColumnPlan plan = CercaTestata(beginning); plan.header > 0) {
    return plan.names.problem.empty() ? ColumnStart::Named : ColumnStart::Partial;
  }
  std::vector<std::string_view> fields;
  for (LineCursor lines(beginning); lines.more();) {
    if (RigaDiNumeri(lines.next(), fields)) return ColumnStart::Numbers;
  }
  return ColumnStart::None;
}

FileReport LeggiFileColonne(const std::filesystem::path& path, const std::string& columns, const ReadOptions& options,
                            const MisuraSink& sink, std::size_t block) {
  FileReport report;
  FileSummary& summary = report.summary;
  summary.path = path;
  std::error_code ignored;
  if (const auto bytes = std::filesystem::file_size(path, ignored); !ignored) summary.bytes = bytes;
  ColumnPlan plan;
  ColumnScan scan;
  std::size_t handed = 0;
  const MisuraSink counted = [&](const Misura& m) {
    ++handed;
    sink(m);
  };
  const bool whole = Trappola(report.findings, Procedure, [&] {
    const FileBytes beginning = LeggiInizio(path, Beginning);
    plan = Prepara(beginning.text(), columns, report.findings);
    ChiediPasso(beginning.text(), options, plan, report.findings);
    EsaminaColonne(path, plan, options.layout.value_or(AngleFormat::DMM_MMM), counted, scan, block);
  });
  if (scan.lines == 0) {
    if (whole) report.findings.fault(Procedure, "the file is empty");
    return report;
  }
  summary.format = "columns";
  summary.channels = report.largestChannel = scan.firings.channels;
  summary.records = scan.lines;
  summary.firings = handed;
  summary.rowsTimed = scan.firings.timed;
  if (!whole) return report;
  if (handed == 0) report.findings.fault(Procedure, "no row could be read");
  const Findings found = RilieviColonne(scan, plan, options);
  for (const Finding& finding : found.entries()) report.findings.add(finding);
  return report;
}

}  // namespace corvan
