// The program itself, started with files.
#include <QProcess>
#include <QProcessEnvironment>

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

struct Answered {
  std::vector<const char*> arguments;
  int status;
  const char *out, *error;  ///< what each holds; "" for nothing
};

TEST(Start, AnswersWithoutADisplay) {
  const Answered cases[] = {{{"--version"}, 0, "corvan " CORVAN_VERSION "\n", ""},
                            {{"-h"}, 0, "Usage: corvan [OPTIONS] [FILE...]", ""},
                            {{"a.bin", "-style", "fusion", "--help", "--nonsense"}, 0, "--version", ""},
                            {{"--verison"}, 2, "", "corvan: unknown option --verison\n"},
                            {{"-platform", "offscreen", "-x", "--help"}, 2, "", "corvan: unknown option -x\n"},
                            {{"-platform=offscreen", "-\033[31m"}, 2, "", "corvan: unknown option -\\x1B[31m\n"},
                            {{"-style", "-odd", "--version"}, 0, "corvan", ""}};  // "-odd" names a style
  for (const Answered& c : cases) {
    QProcess program;
    auto surroundings = QProcessEnvironment::systemEnvironment();
    surroundings.insert("QT_QPA_PLATFORM", "none of them");
    surroundings.insert("DISPLAY", "");
    program.setProcessEnvironment(surroundings);
    QStringList arguments;
    for (const char* argument : c.arguments) arguments << argument;
    program.start(CORVAN_STARTED, arguments);
    ASSERT_TRUE(program.waitForFinished(10000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << c.arguments.back();
    EXPECT_EQ(program.exitCode(), c.status) << c.arguments.back();
    const QString out = program.readAllStandardOutput();
    const QString error = program.readAllStandardError();
    EXPECT_TRUE(*c.out == '\0' ? out.isEmpty() : out.contains(c.out)) << out.toStdString();
    EXPECT_TRUE(*c.error == '\0' ? error.isEmpty() : error.contains(c.error)) << error.toStdString();
  }
}

TEST(Start, TakesEverythingBehindTwoDashesForFiles) {
  test::TempFolder folder;
  folder.write("-odd.bin", test::SyscalFile(test::Firings(2, 10)));
  QProcess program;
  program.setWorkingDirectory(QString::fromStdString(folder.path().string()));
  program.start(CORVAN_STARTED, {"--", "-odd.bin"});
  ASSERT_TRUE(program.waitForFinished(10000));
  EXPECT_EQ(QString::fromUtf8(program.readAllStandardOutput()).section('\n', 1, 1), "1 file, 2 measurements");
}

}  // namespace
}  // namespace corvan
