#include "pages/ManPage.h"

#include <algorithm>
#include <cctype>

#include "base/Fields.h"

namespace corvan::pages {
namespace {

bool Alfanumerico(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// One character that the formatter would take for something else; dashes aside.
std::string Proteggi(char c) {
  switch (c) {
    case '\\':
      return "\\e";
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    default:
      return {c};
  }
}

/// What is typed as it stands: every dash is one.
std::string ProteggiCodice(std::string_view code) {
  std::string out;
  for (const char c : code) out += c == '-' ? "\\-" : Proteggi(c);
  return out;
}

/// A line may not begin with what begins a request.
std::string Riga(std::string text) {
  if (text.starts_with('.') || text.starts_with('\'')) text.insert(0, "\\&");
  return text + '\n';
}

/// A paragraph in lines that the usual tools of such pages take: no wider than 80 columns, a sentence ends its line.
std::string Righe(std::string_view text) {
  constexpr std::size_t widest = 78;
  std::string out, line;
  for (const std::string& word : CLI::detail::split(std::string(text), ' ')) {
    const bool sentence =
        line.ends_with('.') && !word.empty() && std::isupper(static_cast<unsigned char>(word.front())) != 0;
    if (!line.empty() && (sentence || line.size() + 1 + word.size() > widest)) {
      out += Riga(line);
      line.clear();
    }
    line += (line.empty() ? "" : " ") + word;
  }
  return out + Riga(line);
}

/// Small letters and digits of a form are typed as they stand, capitals stand for something.
std::string Forma(std::string_view form) {
  std::string out;
  char font = 'R';
  for (const char c : form) {
    const char wanted = std::isupper(static_cast<unsigned char>(c)) != 0 ? 'I'
                        : Alfanumerico(c) || c == '.'                    ? 'B'
                                                                         : 'R';
    if (wanted != font) out += std::string("\\f") + wanted;
    font = wanted;
    out += ProteggiCodice({&c, 1});
  }
  return out + (font == 'R' ? "" : "\\fR");
}

/// "**strong**", "*emphatic*" and "`typed`" of one paragraph.
std::string Stile(std::string_view text) {
  std::string out, plain;
  const auto flush = [&] {
    out += ProteggiTesto(plain);
    plain.clear();
  };
  while (!text.empty()) {
    const std::string_view mark = text.starts_with("**")  ? "**"
                                  : text.starts_with('*') ? "*"
                                  : text.starts_with('`') ? "`"
                                                          : "";
    const std::size_t end = mark.empty() ? std::string_view::npos : text.find(mark, mark.size());
    if (end == std::string_view::npos) {
      plain += text.front();
      text.remove_prefix(1);
      continue;
    }
    flush();
    const std::string_view inner = text.substr(mark.size(), end - mark.size());
    out += mark == "*" ? "\\fI" : "\\fB";
    out += (mark == "`" ? ProteggiCodice(inner) : ProteggiTesto(inner)) + "\\fR";
    text.remove_prefix(end + mark.size());
  }
  flush();
  return out;
}

std::string Opzione(const OptionEntry& option) {
  std::string out = ".TP\n";
  for (const std::string& name : option.names) {
    out += (name == option.names.front() ? "\\fB" : ", \\fB") + ProteggiCodice(name) + "\\fR";
  }
  if (!option.value.empty()) out += " " + Forma(option.value);
  return out + "\n" + Righe(ProteggiTesto(option.text) + (option.text.ends_with('.') ? "" : "."));
}

std::string Opzioni(const ProgramEntry& program) {
  std::string out;
  for (const CommandEntry& command : program.commands) {
    if (!command.name.empty()) {
      out += ".SS \"" + program.name + " " + command.name + "\"\n" + Righe(ProteggiTesto(command.text) + ".");
    }
    for (const OptionEntry& option : command.options) out += Opzione(option);
  }
  return out;
}

std::string Sinossi(const ProgramEntry& program) {
  std::string out;
  for (const CommandEntry& command : program.commands) {
    const bool alone = program.commands.size() == 1;
    if (command.name.empty() && !alone) continue;
    if (!out.empty()) out += ".br\n";
    out += "\\fB" + ProteggiCodice(program.name) + (alone ? "" : " " + command.name) + "\\fR " + Forma(command.usage) +
           "\n";
  }
  return out;
}

/// Walks the prose line by line and keeps the paragraph that is being gathered.
class PageWriter {
 public:
  PageWriter(const ProgramEntry& program, std::string& out) : program_(program), out_(out) {}

  void line(std::string_view text) {
    if (text.starts_with("```")) {
      fence();
    } else if (fenced_) {
      out_ += Riga(ProteggiCodice(text));
    } else if (text.empty()) {
      end();
    } else if (text.starts_with('#')) {
      heading(text);
    } else if (text == "@options" || text == "@synopsis") {
      end();
      out_ += text == "@options" ? Opzioni(program_) : Sinossi(program_);
      first_ = false;
    } else {
      gather(text);
    }
  }
  void end() {
    if (paragraph_.empty()) return;
    if (item_) {
      out_ += ".IP \\(bu 2\n";
    } else if (!first_) {
      out_ += ".PP\n";
    }
    out_ += Righe(Stile(paragraph_));
    paragraph_.clear();
    first_ = false;
  }

 private:
  void fence() {
    end();
    out_ += fenced_ ? ".EE\n.RE\n" : first_ ? ".RS 2\n.EX\n" : ".PP\n.RS 2\n.EX\n";
    fenced_ = !fenced_;
    first_ = false;
  }
  void heading(std::string_view text) {
    end();
    const bool section = !text.starts_with("##");
    out_ += (section ? ".SH " : ".SS ") + ProteggiTesto(text.substr(section ? 2 : 3)) + "\n";
    first_ = true;
  }
  void gather(std::string_view text) {
    if (text.starts_with("- ")) {
      end();
      item_ = true;
      text.remove_prefix(2);
    } else if (paragraph_.empty()) {
      item_ = false;
    } else {
      paragraph_ += ' ';
    }
    paragraph_ += Rifila(text);
  }

  const ProgramEntry& program_;
  std::string& out_;
  std::string paragraph_;
  bool item_ = false;   ///< the paragraph is one of a list
  bool first_ = false;  ///< nothing stands below the heading yet
  bool fenced_ = false;
};

std::string Sostituisci(std::string text, std::string_view word, std::string_view with) {
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += with.size()) {
    text.replace(at, word.size(), with);
  }
  return text;
}

}  // namespace

std::string ProteggiTesto(std::string_view text) {
  std::string out;
  bool option = false;  // within a word that begins with a dash
  for (std::size_t k = 0; k < text.size(); ++k) {
    const char before = k > 0 ? text[k - 1] : ' ', next = k + 1 < text.size() ? text[k + 1] : ' ';
    if (text[k] == ' ') option = false;
    if (text[k] != '-') {
      out += Proteggi(text[k]);
      continue;
    }
    option = option || !Alfanumerico(before);
    out += option || !Alfanumerico(next) ? "\\-" : "-";
  }
  return out;
}

std::string ComponiPagina(const ProgramEntry& program, std::string_view prose, const PageFacts& facts) {
  std::string title = program.name;
  std::transform(title.begin(), title.end(), title.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  std::string out = ".TH " + ProteggiCodice(title) + " 1 " + facts.date + " \"Corvan " + facts.version +
                    "\" \"Corvan\"\n.nh\n.ad l\n";
  PageWriter writer(program, out);
  const std::string text = Sostituisci(std::string(prose), "@samples", facts.samples);
  for (const std::string& line : CLI::detail::split(text, '\n')) writer.line(line);
  writer.end();
  return out;
}

}  // namespace corvan::pages
