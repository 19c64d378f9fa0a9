// The columns that table and .csv share.
#include "export/SurveyColumns.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/File.h"
#include "export/SurveyTable.h"
#include "support/SurveyFiles.h"
#include "support/Surveys.h"

namespace corvan {
namespace {

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

// No two fields of a row are equal, so that two that change places are seen.
TEST(Columns, AreThoseOfTheCsvFieldByField) {
  Survey survey = test::Measurements({{500000, 5030000}, {500010.5, 5030001.25, 2}, {0, 0, 3}});
  survey.files[1].recordLength = 280;
  for (std::size_t n = 1; n <= 3; ++n) {
    Misura& m = survey.Misure(n);
    const auto k = static_cast<double>(n);
    m.Tempo = 46188.25 + k / 86400.0;
    m.Lat = 4524.5 + k / 3.0;
    m.Lon = 1218.25 + k / 7.0;
    m.Deriv = {0, 11, 12, 600000.1 + k, 5100000.2 + k};
    m.Distanza = 1e-7 * k;
    m.Passo = 2.7F;
    m.Val12 = 123456.0F + static_cast<float>(n);
    m.CanaleB[3] = -m.CanaleA[3];
    m.Rho[4] = std::numeric_limits<float>::quiet_NaN();
    m.Rho[5] = -0.0F;
    m.Scartata = n == 2;
    m.Interpolata = n == 3;
  }
  const test::TempFolder folder;
  FileWriter out(folder / "t.csv");
  SalvaTabella(out, survey);
  out.close();
  const std::string csv = test::Slurp(folder / "t.csv");
  const auto& columns = ColonneTabella(survey);
  ASSERT_EQ(columns.size(), 59U);
  std::size_t at = 0;
  for (std::size_t n = 0; n <= 3; ++n) {
    const std::size_t end = csv.find('\n', at);
    const std::vector<std::string> fields = Fields(csv.substr(at, end - at));
    at = end + 1;
    ASSERT_EQ(fields.size(), columns.size());
    for (std::size_t k = 0; k < columns.size(); ++k) {
      EXPECT_EQ(n == 0 ? columns[k].name : TestoValore(columns[k].at(survey, n)), fields[k]) << columns[k].name << n;
    }
  }
}

TEST(Columns, OfExcludedReadingsStandBehindTheRestWhileAnyAreJudged) {
  Survey survey = test::Measurements({{500000, 5030000}, {500010.5, 5030001.25}});
  const test::TempFolder folder;
  const auto table = [&] {
    FileWriter out(folder / "t.csv");
    SalvaTabella(out, survey);
    out.close();
    return test::Slurp(folder / "t.csv");
  };
  const std::string plain = table();
  survey.Misure(2).escluse = static_cast<ReadingSet>(BitDi(3) | BitDi(10) | BitDi(4));
  survey.Misure(2).letture = static_cast<ReadingSet>(AllReadings & ~BitDi(4));
  EXPECT_EQ(table(), plain) << "nothing is in force";
  survey.qualita.aMano[{1, 5}] = false;
  const std::string judged = table();
  std::string header = ",excluded1", zeros = ",0";
  for (int c = 2; c <= 10; ++c) header += ",excluded" + std::to_string(c), zeros += ",0";
  const std::vector<std::string> lines{
      plain.substr(0, plain.find('\n')),
      plain.substr(plain.find('\n') + 1, plain.rfind('\n', plain.size() - 2) - plain.find('\n') - 1),
      plain.substr(plain.rfind('\n', plain.size() - 2) + 1)};
  EXPECT_EQ(judged, lines[0] + header + "\n" + lines[1] + zeros + "\n" + lines[2].substr(0, lines[2].size() - 1) +
                        ",0,0,1,0,0,0,0,0,0,1\n")
      << "a reading that does not exist is not excluded";
  const auto& columns = ColonneTabella(survey);
  ASSERT_EQ(columns.size(), 69U);
  EXPECT_EQ(columns[61].name, "excluded3");
  EXPECT_EQ(TestoValore(columns[61].at(survey, 2)) + TestoValore(columns[61].at(survey, 1)), "10");
  survey.qualita = {};
  survey.qualita.limiti.negative = true;
  EXPECT_EQ(ColonneTabella(survey).size(), 69U);
}

TEST(Columns, NameTheirUnits) {
  const std::pair<std::size_t, std::pair<const char*, const char*>> some[] = {{0, {"n", ""}},
                                                                              {2, {"time", ""}},
                                                                              {3, {"lat", ""}},
                                                                              {5, {"utm_x", "m"}},
                                                                              {11, {"depth", "m"}},
                                                                              {14, {"e1", "m"}},
                                                                              {24, {"e11", "m"}},
                                                                              {25, {"i_a", "mA"}},
                                                                              {26, {"i_b", "mA"}},
                                                                              {27, {"va1", "mV"}},
                                                                              {46, {"vb10", "mV"}},
                                                                              {47, {"rho1", "Ohm\u00B7m"}},
                                                                              {56, {"rho10", "Ohm\u00B7m"}},
                                                                              {58, {"interpolated", ""}}};
  for (const auto& [k, column] : some) {
    EXPECT_EQ(ColonneTabella(Survey()).at(k).name, column.first);
    EXPECT_STREQ(ColonneTabella(Survey()).at(k).unit, column.second) << column.first;
  }
}

}  // namespace
}  // namespace corvan
