#include "input/SyscalReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "input/SyscalScan.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiSyscalPro2";

/// The channels per firing: the counted run, or what the user answers when the stored numbers say otherwise.
std::int32_t ChiediCanali(const SyscalScan& scan, Dialogs& dialogs) {
  if (scan.counted == scan.MaxCanale) return scan.counted;
  const std::string answer =
      dialogs.InputBox({"Set Channel Number", "N. Channel", TestoNumero(static_cast<double>(scan.counted))});
  const std::int32_t channels = Rifila(answer).empty() ? scan.counted : AInt16(Val(answer));
  if (channels < 1) throw RunTimeError("channel number " + std::to_string(channels) + " is not 1 or more");
  return channels;
}

/// Copies the readings of one record into its firing. Values that all channels share are rewritten by each.
void CopiaCanale(Misura& m, const SyscalRecords& records, std::size_t k, std::size_t channel) {
  m.Val12 = records.leggi(k, campo::R48);
  m.Val60 = records.leggi(k, campo::R16);
  m.Val64 = records.leggi(k, campo::R20);
  m.Val180 = records.leggi(k, campo::R72);
  m.Val184 = -m.Val180;
  m.Tempo = records.leggi(k, campo::Tempo);
  if (channel > MaxChannels) return;
  m.Rho[channel] = records.leggi(k, campo::R76);
  m.Elettrodi[channel] = records.leggi(k, campo::PosM);
  m.Elettrodi[channel + 1] = records.leggi(k, campo::PosN);
  m.CanaleA[channel] = records.leggi(k, campo::R68);
  m.CanaleB[channel] = -m.CanaleA[channel];
}

/// Builds the firing whose records are first..last.
Misura LeggiScatto(const InputContext& context, std::size_t first, std::size_t last) {
  const CurrentFile& file = context.survey.file;
  Misura m;
  m.SorgenteUTM = context.survey.settings.CoordUTM;
  float north = 0.0F;
  float east = 0.0F;
  for (std::size_t k = first; k <= last; ++k) {
    const bool fix = NordDi(file.RecordPro, k) != 0.0F && EstDi(file.RecordPro, k) != 0.0F;
    if (!fix && context.span == ReadSpan::ToFirstLostFix) continue;
    m.NumFile = file.NumFile;  // a firing without any record read keeps 0
    CopiaCanale(m, file.RecordPro, k, k - first + 1);
    if (!fix) continue;
    north = NordDi(file.RecordPro, k);
    east = EstDi(file.RecordPro, k);
  }
  ImpostaPosizione(m, north, east);
  return m;
}

void AggiungiScatti(InputContext& context, std::size_t first, std::size_t last) {
  Survey& survey = context.survey;
  const auto channels = static_cast<std::size_t>(survey.file.NumCanali);
  survey.Misure.reserve(survey.Misure.size() + (last - first) / channels + 1);
  for (std::size_t k = first; k <= last; k += channels) {
    survey.Misure.append(LeggiScatto(context, k, std::min(k + channels - 1, last)));
  }
}

/// Takes the file's records over as the survey's current file.
void PrendiFile(Survey& survey, const SyscalScan& scan) {
  survey.file.LungRecord = static_cast<std::int16_t>(scan.records.length());
  survey.file.HeaderBin = scan.records.header();
  FileSummary& summary = survey.files.back();
  summary.format = "syscal";
  summary.recordLength = scan.records.length();
  summary.records = scan.records.size();
}

}  // namespace

void LeggiSyscalPro2(InputContext& context) {
  Survey& survey = context.survey;
  const std::string name = survey.file.NomeFile.string();
  Trappola(context.findings, Procedure, [&] {
    FileBytes bytes = LeggiTutto(survey.file.NomeFile);
    if (const std::string reason = RifiutoSyscal(bytes.size()); !reason.empty()) throw FileError(name, reason);
    SyscalScan scan = EsaminaSyscal(std::move(bytes));
    if (AltroGenere(scan)) throw FileError(name, "is neither a Syscal file nor a text export");
    PrendiFile(survey, scan);

    std::int32_t channels = scan.counted;
    if (scan.records.size() > 0) {
      try {
        channels = ChiediCanali(scan, context.dialogs);
      } catch (const RunTimeError& error) {
        throw FileError(name, error.what());
      }
    }
    const bool past = context.span == ReadSpan::PastLostFixes && scan.anyFix();
    const std::size_t last = past ? scan.ultimoFix : scan.UltimoValido;
    context.findings.add(RilieviSyscal(scan, last, channels, past), name);
    survey.file.NumCanali = survey.files.back().channels = channels;
    survey.file.CanaliImpostati = 1;
    const std::size_t first = scan.PrimoValido;
    survey.file.RecordPro = std::move(scan.records);
    if (survey.file.RecordPro.size() == 0) return;
    AggiungiScatti(context, first, last);
  });
}

OldSyscalFile LeggiBin2(const std::filesystem::path& path, std::size_t recordLength) {
  FileBytes bytes = LeggiTutto(path);
  OldSyscalFile old;
  if (bytes.size() < ShortestSyscal) return old;
  const SyscalRecords records(std::move(bytes), recordLength);
  old.HeaderBin = records.header();
  old.RecordBin.resize(records.size());
  for (std::size_t k = 1; k <= records.size(); ++k) {
    const RecordSyscalPro record = records.record(k);
    std::copy_n(record.byte.begin(), OldRecordLength, old.RecordBin(k).begin());
  }
  return old;
}

}  // namespace corvan
