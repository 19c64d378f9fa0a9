// A run of the program: its desks side by side, and what must follow when one of them changes something.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "session/AnswerBook.h"
#include "session/Exporter.h"
#include "session/PictureMouse.h"
#include "session/Project.h"
#include "session/SectionDesk.h"
#include "session/SectionMouse.h"
#include "session/Selection.h"
#include "session/SurveyDesk.h"
#include "session/TrackDesk.h"
#include "session/Translations.h"
#include "session/ViewDesk.h"

namespace corvan {

/// Window and command line own one Session each and turn every control or option into a command of a desk, or of the
/// session where it reaches across several. Commands trap their own errors: what went wrong is in findings(), what the
/// user must hear goes through Dialogs.
class Session {
 public:
  using Clock = Exporter::Clock;

  /// @param dialogs must outlive the session
  /// @param clock the local date and time, for the header of binary files
  Session(Dialogs& dialogs, Clock clock);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Findings& findings() { return findings_; }
  const Findings& findings() const { return findings_; }

 private:
  AnswerBook answers_;
  Findings findings_;
  History history_;

 public:
  SurveyDesk survey;
  TrackDesk track;
  Selection selection;
  ViewDesk view;
  SectionDesk section;
  PictureMouse mouse{view};
  SectionMouse sectionMouse{section, survey.dati()};
  Exporter exporter;
  Translations translations;

  /// "Read File": reads the selected files and runs the whole chain.
  void leggi();
  /// Reads the files of the survey that is there and these behind them as one batch.
  void aggiungi(const std::vector<std::filesystem::path>& files);
  void leggiTraccia(const std::filesystem::path& file);
  void collegaPerTempo(double clockOffset);
  void chiediCollegaPerTempo();  ///< the same after a question for the offset
  void collegaPerPosizione();
  /// "SalvaEstrattoFile": writes the chosen section in these formats.
  void salvaEstratto(const OutputPanel& output);
  void salvaImmagine();  ///< "Save Current Picture": the one that is shown as img0.bmp in the current folder
  /// Does what a press, a release or a double click on the picture asked for.
  void esegui(const PictureRequest& request);
  /// Likewise on the flat section.
  void esegui(const SectionChoice& choice);

  /// Excludes a reading, or takes an excluded one again.
  void escludi(const ReadingUnder& reading);

  /// Everything that makes the run, with the files as they are now.
  Project progetto() const;
  /// Does all of a project again: its acts, then its choices.
  void esegui(const Project& project);
  /// Names the files that are not what they were when the project was saved: they are read as they are.
  void confronta(const Project& project);
  void rifai(const std::vector<Act>& acts);
  void riprendi(const Project& project);
  /// Writes a project. A file that is there and no project is replaced as any output is.
  void salvaProgetto(const std::filesystem::path& file, const Project& project);
  /// What a project file holds; none, which is a fault, where it cannot be read.
  std::optional<Project> leggiProgetto(const std::filesystem::path& file);
  /// Reads a project and does it again; one that cannot be read changes nothing and is a fault.
  /// @return false when nothing was changed
  bool apriProgetto(const std::filesystem::path& file);

  /// What Ctrl+Z would take back; empty for nothing.
  std::string annullabile() const { return history_.prossimo(); }
  void annulla();

  /// Another number each time that something in the survey has changed, for those who show it in place.
  std::size_t revisione() const { return revision_; }

 private:
  Desk desk();
  void segui(Change change);
  void rifai(const Act& act);
  void guarda(const Project& project);
  void collegata(const char* what, std::size_t without, std::function<void()> back, Act act);

  std::size_t revision_ = 0;
  std::vector<std::filesystem::path> letti_;  ///< the files of the survey that is there
};

}  // namespace corvan
