#include "input/InputDriver.h"

#include <cstddef>

#include "base/ErrorTrap.h"
#include "base/File.h"
#include "base/Text.h"
#include "input/SyscalReader.h"
#include "input/TextReader.h"

namespace corvan {
namespace {

constexpr std::string_view ExportStart = "DISTANCE";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Which reader a file asks for; a file that cannot be opened gives its fault instead.
template <class Text, class Syscal>
void Scegli(const std::filesystem::path& path, FileReport& failed, Text&& text, Syscal&& syscal) {
  bool isText = false;
  const bool opened = Trappola(failed.findings, "LeggiFile", [&] {
    isText = TestataDiTesto(LeggiInizio(path, ByteOrderMark.size() + ExportStart.size()).text());
  });
  failed.summary.path = path;
  if (!opened) return;
  isText ? text() : syscal();
}

}  // namespace

bool TestataDiTesto(std::string_view firstBytes) {
  if (firstBytes.starts_with(ByteOrderMark)) firstBytes.remove_prefix(ByteOrderMark.size());
  return Maiuscolo(firstBytes.substr(0, ExportStart.size())) == ExportStart;
}

FileReport PercorriFile(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink) {
  FileReport report;
  Scegli(
      path, report, [&] { report = LeggiFileCorvan(path, options, sink); },
      [&] { report = PercorriSyscal(path, options, sink); });
  return report;
}

FileRead LeggiFile(const std::filesystem::path& path, const ReadOptions& options) {
  FileRead read;
  const MisuraSink keep = [&read, &options](const Misura& m) {
    read.measurements.push_back(m);
    options.progredisci(read.measurements.size(), 0);
  };
  Scegli(
      path, read, [&] { static_cast<FileReport&>(read) = LeggiFileCorvan(path, options, keep); },
      [&] { read = LeggiSyscalPro2(path, options); });
  return read;
}

}  // namespace corvan
