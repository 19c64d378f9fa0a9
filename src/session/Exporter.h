// Everything that a run writes: the section's formats, the table of the survey, pictures; and what may be replaced.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/OleDate.h"
#include "export/KmlGoogle.h"
#include "export/OutputFiles.h"
#include "export/Section.h"
#include "input/Originals.h"
#include "picture/ColourScale.h"
#include "session/Desk.h"
#include "session/Panels.h"

namespace corvan {

/// What the last extraction gave.
struct SectionSummary {
  std::int32_t from = 0;
  std::int32_t to = 0;
  std::int32_t points = 0;
  std::int32_t records = 0;
};

/// A section to be written: its extremes in either order, the formats and the root of their names.
struct ExportRequest {
  std::int32_t E1 = 1;
  std::int32_t E2 = 1;
  OutputPanel output;
  ColourScale colours;  ///< of the KML
};

class Exporter {
 public:
  using Clock = std::function<DateTime()>;

  /// @param clock the local date and time, for the header of binary files
  Exporter(Desk desk, Survey& survey, Clock clock)
      : desk_(std::move(desk)), survey_(survey), clock_(std::move(clock)) {}

  OutputPanel FrameFileOut;
  OtherOutputs altre;

  void mostra(bool OutputPanel::*format);           ///< shows "File Out" with one format ticked
  static bool spuntato(const OutputPanel& output);  ///< any box of a format is ticked
  /// The folder of the outputs is there and can be asked for: else it is said and nothing is written.
  bool cartella(const OutputPanel& output) const;
  /// Extracts the section and writes the ticked formats; asks for the offsets, and before files are replaced.
  void scrivi(const ExportRequest& request);
  void tabella(const std::string& root);  ///< writes the whole survey as ROOT.csv
  /// Writes a picture. @param compose puts it into the bytes of its format
  void immagine(const std::filesystem::path& name, const std::function<std::string()>& compose);

  /// Writes a project, also over an older one of any name.
  void progetto(const std::filesystem::path& name, const std::string& text);

  /// Names a file that was read: it is never replaced.
  void proteggi(const std::filesystem::path& read) { outputs_.proteggi(read); }
  const std::vector<std::filesystem::path>& outputs() const { return outputs_.written(); }
  /// What the last command of the user wrote, in full names and in the order of writing.
  std::vector<std::filesystem::path> ultimi() const;
  const std::optional<SectionSummary>& section() const { return section_; }
  void azzera() { section_.reset(); }
  /// The last answer to the question for it, m.
  double offsetCavo() const { return offsetCavo_; }
  double offsetEco() const { return offsetEco_; }
  const std::string& quotaKml() const { return quotaKml_; }
  /// What the questions for the offsets offer from now on.
  void proponi(double cable, double echo, std::string kml);

 private:
  std::optional<SectionRequest> chiediSezione(const ExportRequest& request);
  bool leggiLisciatura(const OutputPanel& output, SectionRequest& section);
  bool chiediSostituzione(const OutputPanel& output);
  void scriviSezione(const Section& section, const ExportRequest& request);
  void scriviKml(const Section& section, const ExportRequest& request);
  void scriviAperti(const Section& section, const ExportRequest& request);
  void scrivi(const char* procedure, const std::string& root, const char* extension,
              const std::function<void(FileWriter&)>& body);
  void scriviFile(const char* procedure, const std::filesystem::path& name,
                  const std::function<void(FileWriter&)>& body);
  FileWriter::Progress progresso(const std::filesystem::path& name);
  void annota(const std::filesystem::path& name);
  bool salva(const char* procedure, const std::filesystem::path& name, const std::function<void()>& save);

  Desk desk_;
  Survey& survey_;
  Clock clock_;
  OutputFiles outputs_{Originale};
  std::vector<std::filesystem::path> recent_;
  std::size_t recentCommand_ = 0;  ///< commands of the run when they were written
  std::unique_ptr<KmlGoogle> kml_;
  ProgressStep step_;
  std::optional<SectionSummary> section_;
  double offsetCavo_ = 0;    ///< distance of the first floating electrode from the instrument, m
  std::string proposedKml_;  ///< by a project
  std::string quotaKml_;     ///< the last answer to the question for altitudes
  double offsetEco_ = 0;     ///< distance of the echo sounder from the instrument, m
};

}  // namespace corvan
