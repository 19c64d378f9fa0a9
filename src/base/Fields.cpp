#include "base/Fields.h"

#include "base/NumberText.h"

namespace corvan {
namespace {

/// The k-th field as it stands, empty when absent; settles the separator on the way.
std::string_view Taglia(std::string_view riga, std::string& separatore, std::size_t k) {
  if (Rifila(riga).empty()) return {};  // an empty line settles no separator
  if (separatore.empty()) separatore = ScegliSeparatore(Rifila(riga));
  FieldCursor cursor(riga, separatore);
  std::string_view field;
  for (std::size_t i = 1; i <= k; ++i) {
    if (!cursor.more()) return {};
    field = cursor.next();
  }
  return field;
}

}  // namespace

std::string_view Rifila(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

FieldCursor::FieldCursor(std::string_view riga, std::string_view separatore)
    : rest_(Rifila(riga)), separator_(separatore), done_(rest_.empty()) {
  if (!done_ && rest_.substr(0, separator_.size()) == separator_) rest_.remove_prefix(separator_.size());
}

std::string_view FieldCursor::next() {
  const std::size_t end = separator_.size() == 1 ? rest_.find(separator_.front()) : rest_.find(separator_);
  const std::string_view field = rest_.substr(0, end);
  if (end == std::string_view::npos) {
    rest_ = {};
    done_ = true;
    return field;
  }
  rest_.remove_prefix(end + separator_.size());
  while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  return field;
}

std::string ScegliSeparatore(std::string_view riga) {
  for (const char candidate : {';', '\t', '\0'}) {
    if (riga.find(candidate) != std::string_view::npos) return {candidate};
  }
  return " ";
}

double EstraiCampo(std::string_view riga, std::string& separatore, std::size_t k) {
  return Val(Taglia(riga, separatore, k));
}

std::string_view EstraiTesto(std::string_view riga, std::string& separatore, std::size_t k) {
  return Rifila(Taglia(riga, separatore, k));
}

std::size_t ContaCampi(std::string_view riga, std::string_view separatore) {
  std::size_t count = 0;
  for (FieldCursor cursor(riga, separatore); cursor.more(); ++count) cursor.next();
  return count;
}

}  // namespace corvan
