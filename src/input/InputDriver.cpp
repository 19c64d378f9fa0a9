#include "input/InputDriver.h"

#include <cstddef>
#include <system_error>

#include "base/ErrorTrap.h"
#include "base/File.h"
#include "base/Text.h"
#include "input/SyscalReader.h"
#include "input/TextReader.h"

namespace corvan {

bool TestataDiTesto(std::string_view firstBytes) {
  return Maiuscolo(firstBytes.substr(0, TextHeader.size())) == TextHeader;
}

void LeggiFile(InputContext& context) {
  Survey& survey = context.survey;
  const std::size_t before = survey.Misure.size();
  FileSummary summary;
  summary.path = survey.file.NomeFile;
  std::error_code ignored;
  const auto bytes = std::filesystem::file_size(summary.path, ignored);
  if (!ignored) summary.bytes = bytes;
  survey.files.push_back(summary);

  Trappola(context.findings, "LeggiFile", [&] {
    survey.file.TipoFile = Maiuscolo(LeggiInizio(survey.file.NomeFile, TextHeader.size()).text());
    if (TestataDiTesto(survey.file.TipoFile)) {
      LeggiFileCorvan(context);
    } else {
      LeggiSyscalPro2(context);
    }
  });
  survey.files.back().firings = survey.Misure.size() - before;
  survey.file.FileLetto = 1;
}

}  // namespace corvan
