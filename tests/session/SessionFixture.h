// A session in a folder of its own, with scripted answers and a stopped clock.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "session/Controls.h"
#include "session/Session.h"
#include "support/SurveyFiles.h"

namespace corvan::test {

inline const std::filesystem::path Samples = CORVAN_SAMPLES;

struct SessionFixture {
  TempFolder folder;
  ScriptedAnswers dialogs;
  Session session{dialogs, [] { return DateTime{2026, 6, 15, 12, 0, 0}; }};

  SessionFixture() { session.exporter.FrameFileOut.FileOutTxt = (folder / "section").string(); }

  /// @param text what stands in the box when Enter is pressed in it
  void press(const char* control, const std::string& text = {}) { EseguiControllo(session, control, text); }
  void read(const std::vector<std::filesystem::path>& files) {
    session.survey.FrameFileIn.File1 = files;
    press("ConvertAsciiCmd_Click");
  }
  void readSample(const char* extension = ".bin") {
    session.survey.FrameFileIn.pastGaps = true;
    read({Samples / (std::string("lagoon_1") + extension), Samples / (std::string("lagoon_2") + extension)});
  }
  void readFirings(std::size_t count) { read({folder.write("survey.bin", SyscalFile(Firings(count, 10)))}); }
  const Misura& m(std::size_t k) const { return session.survey.dati().Misure(k); }
  std::string output(const char* extension) const { return Slurp(folder / (std::string("section") + extension)); }
  bool faulty() const { return session.findings().anyFault(); }
};

}  // namespace corvan::test
