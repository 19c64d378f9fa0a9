// Sections for the writers of open formats, and what these write.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/File.h"
#include "export/Section.h"
#include "support/SurveyFiles.h"
#include "support/Surveys.h"

namespace corvan::test {

/// A survey of test::Measurements, changed by hand before the section is cut out of it. The cable is C1 55, C2 60, E1
/// 50, E2 45 ... E11 0, so electrodes stand on multiples of 5 m.
struct Cut {
  Findings findings;
  Survey survey;
  SectionRequest request;

  explicit Cut(Survey of) : survey(std::move(of)) { request.E2 = survey.NumMisure(); }
  explicit Cut(const std::vector<Firing>& firings) : Cut(Measurements(firings)) {}

  Misura& m(std::size_t n) { return survey.Misure(n); }
  Section section() {
    Findings none;
    return EstraiSezione(survey, request, none);
  }
  /// Potential and resistivity of a channel, mV and ohm m.
  void reading(std::size_t n, std::size_t c, float potential, float rho) {
    m(n).CanaleA.at(c) = potential;
    m(n).CanaleB.at(c) = -potential;
    m(n).Rho.at(c) = rho;
  }
  void current(std::size_t n, float mA) {
    m(n).Val180 = mA;
    m(n).Val184 = -mA;
  }
  void channels(std::size_t n, std::initializer_list<std::size_t> stored) {
    m(n).letture = 0;
    for (const std::size_t c : stored) m(n).letture = static_cast<ReadingSet>(m(n).letture | BitDi(c));
  }
  /// Chargeability (mV/V) and deviation (%) of a channel.
  void quality(std::size_t n, std::size_t c, float chargeability, float deviation) {
    m(n).ConQualita = true;
    m(n).Caricabilita.at(c) = chargeability;
    m(n).Deviazione.at(c) = deviation;
  }
};

/// What `body` writes into a file; its older content where it throws.
template <class Body>
std::string WrittenBy(Body&& body) {
  const TempFolder folder;
  folder.write("out", "older");
  try {
    FileWriter out(folder / "out");
    body(out);
    out.close();
  } catch (const RunTimeError& error) {
    return Slurp(folder / "out") + "!" + error.what();
  }
  return Slurp(folder / "out");
}

inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

inline std::vector<std::string> Words(const std::string& line, char separator = ' ') {
  std::vector<std::string> words(1);
  for (const char c : line) {
    if (c == separator) {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

/// A number as the strictest of readers takes it: digits on both sides of one point, no exponent.
inline double Decimal(const std::string& word) {
  const std::string digits = word.substr(word.rfind('-') == 0 ? 1 : 0);
  const std::size_t point = digits.find('.');
  const bool strict = point != std::string::npos && point > 0 && point + 1 < digits.size() &&
                      digits.find_first_not_of("0123456789.") == std::string::npos && digits.rfind('.') == point;
  EXPECT_TRUE(strict) << word;
  return strict ? std::stod(word) : 0.0;
}

}  // namespace corvan::test
