// The glossary against the names in the headers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace corvan {
namespace {

const std::filesystem::path Root = CORVAN_ROOT;

/// English words of our names that end as Italian ones do.
const std::set<std::string> English{
    "altitude",   "angle",    "area",     "ascii",       "base",       "before",  "beside",   "cable",
    "change",     "choice",   "close",    "coordinate",  "database",   "date",    "decltype", "despike",
    "double",     "echo",     "edge",     "electrode",   "extrema",    "extreme", "extrude",  "fclose",
    "figure",     "file",     "finalise", "frame",       "free",       "gamma",   "give",     "google",
    "hemisphere", "hide",     "image",    "implausible", "info",       "into",    "isfinite", "leave",
    "line",       "message",  "mode",     "more",        "mouse",      "move",    "mzone",    "name",
    "nmea",       "note",     "outcome",  "outline",     "package",    "page",    "palette",  "patience",
    "picture",    "place",    "plane",    "profile",     "quadrupole", "range",   "release",  "require",
    "reserve",    "resize",   "resource", "reverse",     "rule",       "runtime", "save",     "scale",
    "scene",      "sentence", "shape",    "side",        "signature",  "size",    "source",   "sqlite",
    "state",      "style",    "sure",     "table",       "tessellate", "theta",   "time",     "tone",
    "true",       "type",     "value",    "write",       "zero",       "zone"};

std::string Slurp(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

bool Letter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// Comments and quoted texts taken out.
std::string Code(const std::string& header) {
  std::string code;
  for (std::size_t k = 0; k < header.size(); ++k) {
    if (header.compare(k, 2, "//") == 0) {
      k = std::min(header.find('\n', k), header.size());
    } else if (header[k] == '"') {
      while (++k < header.size() && header[k] != '"') k += header[k] == '\\' ? 1 : 0;
    } else {
      code += header[k];
    }
  }
  return code;
}

/// Words of a name in lower case: "chiediZona" holds "chiedi" and "zona", "DaUTM" holds "da" and "utm".
std::set<std::string> Words(const std::string& name) {
  std::set<std::string> words;
  const auto upper = [&](std::size_t k) {
    return k < name.size() && std::isupper(static_cast<unsigned char>(name[k])) != 0;
  };
  const auto lower = [&](std::size_t k) {
    return k < name.size() && std::islower(static_cast<unsigned char>(name[k])) != 0;
  };
  for (std::size_t k = 0; k < name.size();) {
    std::string word;
    if (upper(k)) word += static_cast<char>(std::tolower(static_cast<unsigned char>(name[k++])));
    if (lower(k)) {
      while (lower(k)) word += name[k++];
    } else {
      while (upper(k) && !lower(k + 1)) word += static_cast<char>(std::tolower(static_cast<unsigned char>(name[k++])));
      if (word.empty()) ++k;
    }
    if (!word.empty()) words.insert(word);
  }
  return words;
}

/// Words of the functions and types that the headers declare, each with one of its names.
std::map<std::string, std::string> Declared() {
  std::map<std::string, std::string> words;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Root / "src")) {
    if (entry.path().extension() != ".h") continue;
    const std::string code = Code(Slurp(entry.path()));
    std::string before;
    for (std::size_t k = 0; k < code.size();) {
      if (!Letter(code[k])) {
        ++k;
        continue;
      }
      std::size_t end = k;
      while (end < code.size() && Letter(code[end])) ++end;
      const std::string name = code.substr(k, end - k);
      const bool type = before == "class" || before == "struct" || before == "using";
      const bool function = end < code.size() && code[end] == '(' && k > 0 && code[k - 1] != '.' && code[k - 1] != '(';
      if (type || function) {
        for (const std::string& word : Words(name)) words.emplace(word, name);
      }
      before = name;
      k = end;
    }
  }
  return words;
}

/// What stands between backticks behind a heading of the glossary, up to the next one.
std::set<std::string> Quoted(const std::string& heading) {
  const std::string text = Slurp(Root / "docs" / "glossary.md");
  const std::size_t from = text.find("## " + heading), to = std::min(text.find("\n## ", from + 1), text.size());
  EXPECT_NE(from, std::string::npos);
  std::set<std::string> quoted;
  for (std::size_t k = text.find('`', from); k < to; k = text.find('`', k)) {
    const std::size_t end = text.find('`', k + 1);
    quoted.insert(text.substr(k + 1, end - k - 1));
    k = end + 1;
  }
  return quoted;
}

TEST(Glossary, TranslatesEveryItalianWordOfTheHeadersAndNoOther) {
  const auto declared = Declared();
  const auto words = Quoted("Words");
  EXPECT_GT(words.size(), 250U);
  for (const auto& [word, name] : declared) {
    if (word.size() <= 3 || std::string("aeio").find(word.back()) == std::string::npos || English.contains(word))
      continue;
    EXPECT_TRUE(words.contains(word)) << word << " in " << name << " is missing in docs/glossary.md";
  }
  for (const std::string& word : words) {
    const bool example = std::any_of(word.begin(), word.end(), [](unsigned char c) { return std::isupper(c) != 0; });
    EXPECT_TRUE(example || declared.contains(word)) << word << " is in no header any more";
  }
}

}  // namespace
}  // namespace corvan
