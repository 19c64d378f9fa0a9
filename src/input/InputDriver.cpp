#include "input/InputDriver.h"

#include <cstddef>
#include <string>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/File.h"
#include "base/Text.h"
#include "input/ColumnReader.h"
#include "input/SyscalReader.h"
#include "input/TextReader.h"

namespace corvan {
namespace {

constexpr std::string_view ExportStart = "DISTANCE";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

constexpr std::string_view Signature("\x02\0\0\x80", 4);
constexpr std::size_t FirstBytes = ByteOrderMark.size() + ExportStart.size();
constexpr std::size_t FirstLines = std::size_t{1} << 16;

/// The reader that a file asks for.
struct Reader {
  enum class Kind { None, Syscal, Text, Columns } kind = Kind::None;
  std::string columns;  ///< of a column text whose header does not name them
};

/// A file of neither of the instrument's kinds shows by its lines whether it is a column text.
Reader ScegliTraLinee(const std::filesystem::path& path, const ReadOptions& options) {
  const ColumnStart start = InizioColonne(LeggiInizio(path, FirstLines).text());
  if (start == ColumnStart::None) return {Reader::Kind::Syscal, {}};
  const bool asked = start != ColumnStart::Named && options.columns;
  return {Reader::Kind::Columns, asked ? std::string(Rifila(options.columns())) : std::string()};
}

/// Which reader a file asks for; a file that cannot be opened gives its fault instead.
Reader Scegli(const std::filesystem::path& path, const ReadOptions& options, FileReport& failed) {
  Reader reader;
  failed.summary.path = path;
  Trappola(failed.findings, "LeggiFile", [&] {
    const FileBytes first = LeggiInizio(path, FirstBytes);
    if (TestataDiTesto(first.text())) {
      reader.kind = Reader::Kind::Text;
    } else if (first.text().starts_with(Signature)) {
      reader.kind = Reader::Kind::Syscal;
    } else {
      reader = ScegliTraLinee(path, options);
    }
  });
  return reader;
}

}  // namespace

bool TestataDiTesto(std::string_view firstBytes) {
  if (firstBytes.starts_with(ByteOrderMark)) firstBytes.remove_prefix(ByteOrderMark.size());
  return Maiuscolo(firstBytes.substr(0, ExportStart.size())) == ExportStart;
}

FileReport PercorriFile(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink) {
  FileReport failed;
  const Reader reader = Scegli(path, options, failed);
  switch (reader.kind) {
    case Reader::Kind::None:
      return failed;
    case Reader::Kind::Syscal:
      return PercorriSyscal(path, options, sink);
    case Reader::Kind::Text:
      return LeggiFileCorvan(path, options, sink);
    case Reader::Kind::Columns:
      return LeggiFileColonne(path, reader.columns, options, sink);
  }
  return failed;
}

FileRead LeggiFile(const std::filesystem::path& path, const ReadOptions& options) {
  FileRead read;
  const Reader reader = Scegli(path, options, read);
  const MisuraSink keep = [&read, &options](const Misura& m) {
    read.measurements.push_back(m);
    options.progredisci(read.measurements.size(), 0);
  };
  if (reader.kind == Reader::Kind::Syscal) return LeggiSyscalPro2(path, options);
  if (reader.kind == Reader::Kind::Text) static_cast<FileReport&>(read) = LeggiFileCorvan(path, options, keep);
  if (reader.kind == Reader::Kind::Columns) {
    static_cast<FileReport&>(read) = LeggiFileColonne(path, reader.columns, options, keep);
  }
  return read;
}

}  // namespace corvan
