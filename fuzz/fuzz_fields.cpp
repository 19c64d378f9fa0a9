// Any bytes as lines and fields: the ways of cutting agree, and no text reads as a number that is not finite.
#include <algorithm>
#include <vector>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "Fuzz.h"

namespace {

using namespace corvan;

void CheckLine(std::string_view line, std::string separator) {
  if (!Rifila(line).empty() && separator.empty()) separator = ScegliSeparatore(Rifila(line));
  if (separator.empty()) return;
  std::vector<std::string_view> fields;
  for (FieldCursor cursor(line, separator); cursor.more();) fields.push_back(cursor.next());
  fuzz::Promise(fields.size() == ContaCampi(line, separator), "fields are counted as they are walked");
  for (std::size_t k = 1; k <= std::min<std::size_t>(fields.size() + 1, 60); ++k) {
    const std::string_view expected = k <= fields.size() ? Rifila(fields[k - 1]) : std::string_view();
    fuzz::Promise(EstraiTesto(line, separator, k) == expected, "a field cut alone is the one walked to");
    try {
      const double value = EstraiCampo(line, separator, k);
      fuzz::Promise(std::isfinite(value), "a number read is finite");
      if (SoloNumero(expected)) fuzz::Promise(value == Val(expected), "a field's value is its text's");
    } catch (const RunTimeError&) {
      fuzz::Promise(!expected.empty(), "an empty field is no number out of range");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  std::size_t covered = 0;
  for (LineCursor lines(text); lines.more();) {
    const std::string_view line = lines.next();
    fuzz::Promise(line.find_first_of("\r\n") == std::string_view::npos, "a line holds no line end");
    covered += line.size();
    CheckLine(line, "");
    CheckLine(line, ";");
  }
  const auto ends =
      static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }));
  const std::size_t mark = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  fuzz::Promise(covered + ends + mark == text.size(), "lines and their ends are the whole text");
  return 0;
}
