#include "input/TextReader.h"

#include <cstddef>

#include "base/ErrorTrap.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiFileCorvan";

std::string Righe(std::size_t count) { return std::to_string(count) + (count == 1 ? " line" : " lines"); }

}  // namespace

void LeggiFileCorvan(InputContext& context) {
  Survey& survey = context.survey;
  const std::string name = survey.file.NomeFile.string();
  Trappola(context.findings, Procedure, [&] {
    const FileBytes bytes = LeggiTutto(survey.file.NomeFile);
    survey.file.NumCanali = static_cast<std::int32_t>(MaxChannels);
    FileSummary& summary = survey.files.back();
    summary.format = "text";
    summary.channels = survey.file.NumCanali;
    const auto append = [&survey](const Misura& m) {
      survey.Misure.append(m);
      survey.Misure(survey.Misure.size()).NumFile = survey.file.NumFile;
    };
    TextScan scan;
    try {
      scan = EsaminaTesto(bytes.text(), context.span, survey.settings.CoordUTM, append);
    } catch (const RunTimeError& error) {
      throw FileError(name, std::string(error.what()) + "; reading ended there");
    }
    summary.records = scan.lines;
    context.findings.add(RilieviTesto(scan, context.span), name);
  });
}

Findings RilieviTesto(const TextScan& scan, ReadSpan span) {
  Findings out;
  if (!scan.anyFix) {
    out.fault(Procedure, "none of the " + Righe(scan.lines) + " has a position");
    return out;
  }
  if (scan.PrimoValido > 2) {
    out.note(Procedure, Righe(scan.PrimoValido - 2) + " between the header and the first position left out");
  }
  if (scan.lostFilled > 0) {
    out.fault(Procedure, "fix lost at line " + std::to_string(scan.lostLine) + ": " + Righe(scan.lostFilled) +
                             " from there on left out, " + std::to_string(scan.lostPositioned) +
                             " of them with a position");
  } else if (span == ReadSpan::ToFirstLostFix && scan.lostLine == 0) {
    out.note(Procedure, "the last line, " + std::to_string(scan.lines) + ", is left out");
  }
  if (scan.shortLines > 0) {
    out.fault(Procedure, "line " + std::to_string(scan.shortLine) + " has " + std::to_string(scan.shortFields) +
                             " of " + std::to_string(TextFields) + " fields, the missing ones read as 0 (" +
                             Righe(scan.shortLines) + " so)");
  }
  return out;
}

}  // namespace corvan
