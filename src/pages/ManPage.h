// A manual page from a program's options and a text in Markdown.
#pragma once

#include <string>
#include <string_view>

#include "pages/CommandTable.h"

namespace corvan::pages {

struct PageFacts {
  std::string version;
  std::string date;     ///< the day of that version, YYYY-MM-DD
  std::string samples;  ///< the folder of the sample survey
};

/// The page in the man macros. Of Markdown the prose may use "# " and "## " headings, paragraphs, "- " lists, "**", "*"
/// and "`" within a line, and fences of "```"; "@options" in a line of its own stands for the options, "@synopsis" for
/// the usage,
/// "@samples" anywhere for the folder. A list's or paragraph's text is one line in the source or several.
std::string ComponiPagina(const ProgramEntry& program, std::string_view prose, const PageFacts& facts);

/// Text as the formatter must read it to show it as it is. Dashes of options stay dashes that can be searched and
/// copied.
std::string ProteggiTesto(std::string_view text);

}  // namespace corvan::pages
