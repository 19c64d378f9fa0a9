// Writes the sample survey, bit for bit the same on every run: corvan-samples FOLDER.
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "base/File.h"
#include "SampleFiles.h"
#include "TrackFiles.h"

namespace {

void Salva(const std::filesystem::path& path, const std::string& content) {
  corvan::FileWriter file(path);
  file.write(content);
  file.close();
  std::cout << path.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: corvan-samples FOLDER\n";
    return 2;
  }
  try {
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const int line : {1, 2}) {
      const auto firings = corvan::samples::Linea(line);
      const std::string name = "lagoon_" + std::to_string(line);
      Salva(folder / (name + ".bin"), corvan::samples::FileSyscal(firings));
      Salva(folder / (name + ".txt"), corvan::samples::FileTesto(firings));
    }
    const auto track = corvan::samples::Traccia();
    Salva(folder / "lagoon_track.csv", corvan::samples::FileCsv(track));
    Salva(folder / "lagoon_track.nav", corvan::samples::FileNmea(track));
    for (const char* name : {"lagoon_track.sav", "lagoon_track.gps"}) {
      Salva(folder / name, corvan::samples::FileSeiColonne(track));
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "corvan-samples: " << error.what() << '\n';
    return 1;
  }
}
