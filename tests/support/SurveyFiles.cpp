#include "support/SurveyFiles.h"

#include <atomic>
#include <fstream>
#include <iterator>

#include "base/File.h"

namespace corvan::test {

TempFolder::TempFolder() {
  static std::atomic<int> made{0};
  const std::string start = "corvan-test-" + std::to_string(NumeroProcesso()) + "-";
  do {
    path_ = std::filesystem::temp_directory_path() / (start + std::to_string(++made));
  } while (!std::filesystem::create_directory(path_));  // one of an earlier process with this number may still be there
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TempFolder::write(const std::string& name, const std::string& content) const {
  std::filesystem::path full = *this / name;
  std::ofstream(full, std::ios::binary) << content;
  return full;
}

std::string Slurp(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Write(const std::filesystem::path& path, std::string_view text) {
  FileWriter out(path);
  out.write(text);
  out.close();
}

std::vector<std::string> Hidden(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.front() == '.') names.push_back(name);
  }
  return names;
}

std::string Reason(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.reason();
  }
  return "no error";
}

std::vector<std::string> CrLfLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t at = 0;
  for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", at)) {
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  EXPECT_EQ(at, text.size()) << "text does not end in CR LF";
  return lines;
}

std::string Told(const Findings& findings) {
  std::string told;
  for (const Finding& f : findings.entries()) told += (f.severity == Severity::Fault ? "!" : "-") + f.reason + "\n";
  return told;
}

Answer ScriptedAnswers::MsgBox(const MessageRequest& request) {
  messages.push_back({request.question, PromptDi(request), TestoDi(request.question).title, request.details, ""});
  return messageAnswer;
}

std::optional<std::string> ScriptedAnswers::InputBox(const InputRequest& request) {
  questions.push_back({request.question, PromptDi(request), TitoloDi(request), request.details, request.defaultAnswer});
  std::vector<std::string>& left = answers[request.question];
  if (left.empty()) return std::nullopt;
  std::string answer = left.front();
  left.erase(left.begin());
  return answer;
}

std::string SyscalFile(const std::vector<RecordValues>& records, std::int16_t type, std::size_t length) {
  std::string file(FirstRecord + records.size() * length, '\0');
  for (std::size_t k = 0; k < records.size(); ++k) {
    const RecordValues& v = records[k];
    RecordSyscalPro r;
    r.scrivi(campo::Tipo, type);
    r.scrivi(campo::R16, v.c1);
    r.scrivi(campo::R20, v.c2);
    r.scrivi(campo::PosM, v.m);
    r.scrivi(campo::PosN, v.n);
    r.scrivi(campo::R48, v.depth);
    r.scrivi(campo::R68, v.potential);
    r.scrivi(campo::R72, v.current);
    r.scrivi(campo::R76, v.rho);
    r.scrivi(campo::Caricabilita, v.chargeability);
    r.scrivi(campo::Qualita, v.deviation);
    r.scrivi(campo::Val248, v.bits);
    r.scrivi(campo::Canale, v.channel);
    r.scrivi(campo::GpsNord, v.north);
    r.scrivi(campo::GpsEst, v.east);
    r.scrivi(campo::Tempo, v.time);
    file.replace(FirstRecord + k * length, length, reinterpret_cast<const char*>(r.byte.data()), length);
  }
  return file;
}

std::vector<RecordValues> Firings(std::size_t firings, std::size_t channels) {
  std::vector<RecordValues> records;
  for (std::size_t g = 1; g <= firings; ++g) {
    for (std::size_t c = 1; c <= channels; ++c) {
      RecordValues r;
      r.channel = static_cast<std::int16_t>(c);
      r.rho = static_cast<float>(g) + static_cast<float>(c) / 100.0F;
      r.north = 4524.0F + static_cast<float>(g) / 128.0F;
      r.east = 1218.0F + static_cast<float>(g) / 64.0F;
      r.m = static_cast<float>(55 - 5 * static_cast<int>(c));
      r.n = r.m - 5.0F;
      records.push_back(r);
    }
  }
  return records;
}

std::string TextLine(const std::map<int, std::string>& changed) {
  std::string line;
  for (int k = 1; k <= 49; ++k) {
    const auto found = changed.find(k);
    line += (k == 1 ? "" : ";") + (found == changed.end() ? std::to_string(k) : found->second);
  }
  return line;
}

}  // namespace corvan::test
