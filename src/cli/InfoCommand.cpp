// corvan-cli info: what is in each file, without processing it.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/ErrorTrap.h"
#include "base/File.h"
#include "base/NumberText.h"
#include "base/OleDate.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "cli/ColumnOptions.h"
#include "cli/Commands.h"
#include "cli/Report.h"
#include "geo/AngleText.h"
#include "input/ColumnReader.h"
#include "input/InputDriver.h"
#include "input/TrackFile.h"
#include "input/TrackSteps.h"

namespace corvan::cli {
namespace {

constexpr const char* Procedure = "info";

/// A range that grows with each value.
struct Range {
  double low = 0, high = 0;
  bool any = false;

  void widen(double value) {
    low = any ? std::min(low, value) : value;
    high = any ? std::max(high, value) : value;
    any = true;
  }
};

struct FileInfo {
  std::string name;
  std::string format;
  bool track = false;  ///< an external GPS track
  std::uintmax_t bytes = 0;
  std::size_t recordLength = 0;
  std::size_t records = 0;
  std::int32_t channels = 0;
  std::int32_t largestChannel = 0;
  std::size_t firings = 0;
  std::size_t positioned = 0;
  Range time;         ///< days since 1899-12-30
  Range depth;        ///< m
  double length = 0;  ///< of a track, m
  Findings findings;  ///< what would be left unread or is amiss
};

/// Looks at the firings that a reading would give. Nobody has said how the coordinates are written.
void EsaminaMisure(const ColumnOptions& columns, ColumnUse& use, FileInfo& info) {
  ReadOptions options;
  options.layoutChosen = false;
  options.columns = [&] {
    use.columns = true;
    return columns.columns;
  };
  options.spacing = [&](bool) {
    use.spacing = true;
    return columns.spacing.empty() ? std::nullopt : std::optional(Val(columns.spacing));
  };
  const auto count = [&info](const Misura& m) {
    if (TempoValido(m.Tempo)) info.time.widen(m.Tempo);
    if (m.SenzaFix) return;
    ++info.positioned;
    if (std::isfinite(m.Val12)) info.depth.widen(static_cast<double>(m.Val12));
  };
  const FileReport report = PercorriFile(PercorsoDi(info.name), options, count);
  info.findings = report.findings;
  info.format = report.summary.format;
  if (info.format.empty()) return;
  info.bytes = report.summary.bytes;
  info.recordLength = report.summary.recordLength;
  info.records = report.summary.records;
  info.channels = report.summary.channels;
  info.largestChannel = report.largestChannel;
  info.firings = report.summary.firings;
}

/// An external track: its lines tell it, or its name where they do not. Syscal files are not searched for lines.
bool Traccia(const std::string& name, std::string_view text) {
  constexpr std::string_view syscal("\x02\x00\x00\x80", 4);
  if (text.starts_with(syscal)) return false;
  return name.ends_with(".csv") || name.ends_with(".nav") || name.ends_with(".sav") || GenereDaContenuto(text);
}

void EsaminaTraccia(std::string_view text, FileInfo& info) {
  const TrackKind kind = GenereTraccia(info.name, text);
  TrackOptions options;
  TrackRead read = LeggiTraccia(kind, text, options);
  if (read.likely && *read.likely != options.layout) {  // nobody has said how they are written
    options.layout = *read.likely;
    read = LeggiTraccia(kind, text, options);
    const AngleFormatName format = NomeFormato(options.layout);
    read.findings.note(Procedure,
                       std::string("positions taken as ") + format.name + " (" + format.word + ") by their size");
  }
  info.format = NomeGenere(read.kind);
  info.records = read.lines;
  info.firings = info.positioned = read.fixes.size();
  info.length = LunghezzaTraccia(read.fixes);
  for (const PuntoGPSEst& fix : read.fixes) {
    if (TempoValido(fix.DataOra)) info.time.widen(fix.DataOra);
    if (fix.haProf) info.depth.widen(fix.Prof);
  }
  info.findings = read.findings;
  if (read.fixes.empty()) info.findings.fault(Procedure, "holds no fix");
}

/// Tracks are kept in memory while they are looked at. A file too large to be held on suspicion shows by its beginning
/// whether it is one.
constexpr std::uintmax_t LargeFile = std::uintmax_t{16} << 20;
constexpr std::size_t Beginning = std::size_t{1} << 20;

/// Files of measurements by their first bytes or lines; others may be too, when they are no track.
constexpr std::size_t FirstBytes = 11;
constexpr std::size_t FirstLines = std::size_t{1} << 16;
bool SonoMisure(const std::filesystem::path& file, bool stated) {
  const FileBytes first = LeggiInizio(file, FirstBytes);
  if (TestataDiTesto(first.text()) || first.text().starts_with(std::string_view("\x02\0\0\x80", 4))) return true;
  const ColumnStart start = InizioColonne(LeggiInizio(file, FirstLines).text());
  return start == ColumnStart::Named || start == ColumnStart::Partial || (stated && start == ColumnStart::Numbers);
}

FileInfo Esamina(const std::string& name, const ColumnOptions& columns, ColumnUse& use, Findings& findings) {
  FileInfo info;
  info.name = name;
  Trappola(findings, Procedure, [&] {
    const std::filesystem::path file = PercorsoDi(name);
    if (SonoMisure(file, !columns.columns.empty())) return EsaminaMisure(columns, use, info);  // of any size
    if (FileReader(file).size() > LargeFile && !Traccia(name, LeggiInizio(file, Beginning).text())) {
      return EsaminaMisure(columns, use, info);
    }
    const FileBytes bytes = LeggiTutto(file);
    info.track = Traccia(name, bytes.text());
    info.bytes = bytes.size();
    info.track ? EsaminaTraccia(bytes.text(), info) : EsaminaMisure(columns, use, info);
  });
  findings.add(info.findings, PercorsoDi(name));
  return info;
}

std::string Quando(double days) { return TestoDataOra(DaGiorni(days)); }

Json InJson(const FileInfo& info) {
  Json unread = Json::array();
  for (const Finding& finding : info.findings.entries()) unread.push_back(finding.reason);
  return {{"name", info.name},
          {"format", info.format.empty() ? Json(nullptr) : Json(info.format)},
          {"bytes", info.bytes},
          {"record_length", info.recordLength},
          {"records", info.records},
          {"fixes", info.track ? Json(info.firings) : Json(nullptr)},
          {"length", info.track ? Json(info.length) : Json(nullptr)},
          {"channels", info.channels},
          {"largest_channel", info.largestChannel},
          {"firings", info.firings},
          {"positioned", info.positioned},
          {"time_first", info.time.any ? Json(Quando(info.time.low)) : Json(nullptr)},
          {"time_last", info.time.any ? Json(Quando(info.time.high)) : Json(nullptr)},
          {"depth_min", info.depth.any ? Json(info.depth.low) : Json(nullptr)},
          {"depth_max", info.depth.any ? Json(info.depth.high) : Json(nullptr)},
          {"unread", unread}};
}

/// For people.
std::string NomeFormatoFile(const FileInfo& info) {
  if (info.track) return info.format;
  if (info.format == "columns") return "column text";
  return info.format == "text" ? "text export" : "Syscal Pro";
}

std::string InTesto(const FileInfo& info) {
  std::ostringstream out;
  out << Visibile(info.name) << '\n';
  if (info.format.empty()) return out.str() + "  not readable as a survey or a track\n";
  const bool text = info.format != "syscal";
  out << "  format     " << NomeFormatoFile(info) << ", " << info.bytes << " bytes\n";
  if (!text) out << "  records    " << info.records << " of " << info.recordLength << " bytes\n";
  if (text) out << "  lines      " << info.records << '\n';
  if (info.track) {
    out << "  fixes      " << info.firings << '\n';
    out << "  length     " << FormattaNumero(info.length, "0.0##") << " m\n";
  } else {
    out << "  channels   " << info.channels << '\n';
    out << "  firings    " << info.firings << ", " << info.positioned << " with a position\n";
  }
  if (info.time.any) out << "  time       " << Quando(info.time.low) << " to " << Quando(info.time.high) << '\n';
  if (info.depth.any) {
    out << "  depth      " << FormattaNumero(info.depth.low, "0.0##") << " to "
        << FormattaNumero(info.depth.high, "0.0##") << " m\n";
  }
  for (const Finding& finding : info.findings.entries()) out << "  - " << Visibile(finding.reason) << '\n';
  return out.str();
}

int Esegui(const std::vector<std::string>& files, const ColumnOptions& columns, bool json) {
  Findings findings;
  Json list = Json::array();
  ColumnUse use;
  for (const std::string& name : files) {
    const FileInfo info = Esamina(name, columns, use, findings);
    if (json) {
      list.push_back(InJson(info));
    } else {
      std::cout << InTesto(info);
    }
  }
  RilevaColonne(columns, use, findings);
  if (json) std::cout << TestoJson({{"files", list}, {"diagnostics", RilieviJson(findings)}});
  StampaRilievi(findings);
  return findings.anyFault() ? NotAllDone : AllDone;
}

}  // namespace

void AggiungiInfo(CLI::App& app, Work& work) {
  struct Options {
    std::vector<std::string> files;
    ColumnOptions columns;
    bool json = false;
  };
  CLI::App* command = app.add_subcommand("info", "Tell what is in each file, without processing it");
  const auto options = std::make_shared<Options>();
  command->add_option("files", options->files, "Survey files and tracks")->required()->type_name("FILE");
  AggiungiColonne(*command, options->columns);
  command->add_flag("--json", options->json, "Print one JSON object");
  command->callback(
      [options, &work] { work = [options] { return Esegui(options->files, options->columns, options->json); }; });
}

}  // namespace corvan::cli
