#include "BigSurvey.h"

#include <cmath>
#include <span>

#include "base/File.h"
#include "base/NumberText.h"
#include "geo/AngleText.h"
#include "survey/RecordSyscalPro.h"
#include "track/Cable.h"

namespace corvan::bench {
namespace {

double Latitude(std::size_t firing) { return 4524.0 + 0.003 * static_cast<double>(firing % 5000); }
double Longitude(std::size_t firing) {
  return 1218.0 + 0.002 * std::sin(static_cast<double>(firing) / 50.0) + 1e-4 * static_cast<double>(firing % 5000);
}

struct Cleanup {
  std::filesystem::path folder = std::filesystem::temp_directory_path() / "corvan-bench";
  Cleanup() { std::filesystem::create_directories(folder); }
  Cleanup(const Cleanup&) = delete;
  Cleanup& operator=(const Cleanup&) = delete;
  ~Cleanup() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
};

}  // namespace

Answer Silent::MsgBox(const MessageRequest& request) {
  static_cast<void>(request);
  return Answer::Ok;
}

std::optional<std::string> Silent::InputBox(const InputRequest& request) {
  static_cast<void>(request);
  return "";
}

std::filesystem::path Folder() {
  static const Cleanup cleanup;
  return cleanup.folder;
}

void MakeSyscalFile(const std::filesystem::path& path, std::size_t firings, std::size_t length) {
  FileWriter file(path);
  file.write(std::string("\x02\0\0\x80", 4) + std::string(FirstRecord - 4, '\0'));
  RecordSyscalPro r;
  r.scrivi(campo::Tipo, static_cast<std::int16_t>(length == 304 ? 3 : 1));
  r.scrivi(campo::R16, 55.0F);
  r.scrivi(campo::R20, 60.0F);
  r.scrivi(campo::R72, 1000.0F);
  for (std::size_t g = 0; g < firings; ++g) {
    r.scrivi(campo::R48, 2.0F + static_cast<float>(g % 10));
    r.scrivi(campo::GpsNord, static_cast<float>(Latitude(g)));
    r.scrivi(campo::GpsEst, static_cast<float>(Longitude(g)));
    for (int c = 1; c <= 10; ++c) {
      r.scrivi(campo::PosM, static_cast<float>(55 - 5 * c));
      r.scrivi(campo::PosN, static_cast<float>(50 - 5 * c));
      r.scrivi(campo::R68, 10.0F / static_cast<float>(c));
      r.scrivi(campo::Canale, static_cast<std::int16_t>(c));
      file.write(std::span<const std::byte>(r.byte).first(length));
    }
  }
  file.close();
}

std::filesystem::path TextFile(std::size_t lines) {
  std::filesystem::path path = Folder() / ("lines" + std::to_string(lines) + ".txt");
  FileWriter file(path);
  file.write("DISTANCE;DEPTH\r\n");
  for (std::size_t k = 0; k < lines; ++k) {
    std::string line;
    for (int field = 1; field <= 49; ++field) {
      double value = 0.37 * field + 0.001 * static_cast<double>(k % 1000);
      if (field == 26) value = Latitude(k);
      if (field == 27) value = Longitude(k);
      line += (field == 1 ? "" : ";") + FormattaNumero(value, field == 26 || field == 27 ? "0.0000##" : "0.0##");
    }
    file.write(line + "\r\n");
  }
  file.write("\r\n");
  file.close();
  return path;
}

Survey Measurements(std::size_t count) {
  Survey survey;
  survey.Misure.reserve(count);
  for (std::size_t k = 0; k < count; ++k) {
    Misura m;
    m.NumFile = 1;
    ImpostaGeografica(
        m, Latitude(k), Longitude(k),
        {GradiDaNumero(Latitude(k), AngleFormat::DMM_MMM), GradiDaNumero(Longitude(k), AngleFormat::DMM_MMM)});
    m.Val12 = 2.0F + static_cast<float>(k % 10);
    m.Val60 = 55;
    m.Val64 = 60;
    m.Val180 = 1000;
    m.Val184 = -1000;
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      m.Elettrodi.at(c) = static_cast<float>(55 - 5 * static_cast<int>(c));
      m.CanaleA.at(c) = 10.0F / static_cast<float>(c + k % 7);
      m.CanaleB.at(c) = -m.CanaleA.at(c);
    }
    survey.Misure.append(m);
  }
  CreaCavoDaMisure(survey);
  return survey;
}

}  // namespace corvan::bench
