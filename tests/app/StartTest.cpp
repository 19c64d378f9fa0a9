// The program itself, started with files.
#include <QProcess>

#include "Window.h"

namespace corvan {
namespace {

QStringList Started(const QStringList& arguments) {
  QProcess program;
  program.start(CORVAN_STARTED, arguments);
  EXPECT_TRUE(program.waitForFinished(10000)) << program.errorString().toStdString();
  EXPECT_EQ(program.exitCode(), 0);
  return QString::fromUtf8(program.readAllStandardOutput()).split('\n');
}

TEST(Start, ReadsTheFilesNamedInTheirOrder) {
  test::TempFolder folder;
  const auto file = [&](const char* name, std::size_t firings) {
    return QString::fromStdString(folder.write(name, test::SyscalFile(test::Firings(firings, 10))).string());
  };
  const QString second = file("b.bin", 3), first = file("a.bin", 2);
  const QStringList shown = Started({second, first});
  EXPECT_EQ(shown.value(0), "Ardevo - Corvan Data Pre-Process");
  EXPECT_EQ(shown.value(1), "2 files, 5 measurements");
  EXPECT_EQ(shown.value(3), "File.b.bin") << "measurement 1";
  EXPECT_EQ(shown.value(4), "File.a.bin") << "measurement 4";
}

TEST(Start, WithoutFilesWaitsAndTellsOfOnesThatAreNotThere) {
  EXPECT_EQ(Started({}).value(1), "No survey");
  EXPECT_NE(Started({"/nowhere/lost.bin"}).value(2).indexOf("lost.bin: No such file"), -1);
}

}  // namespace
}  // namespace corvan
