// Column texts in a session: what the reader asks, and what a project keeps of the answers.
#include "session/SessionFixture.h"

namespace corvan::test {
namespace {

const std::string Numbers = "1 2 3 4 -0.25 288685.5 5030933.25\n1 2 4 5 -0.0625 288685.5 5030933.25\n";

TEST(ColumnTexts, AskForColumnsAndSpacingAndAProjectKeepsTheAnswers) {
  SessionFixture made;
  made.dialogs.answers[Question::ColumnNames] = {"a b m n r easting northing"};
  made.dialogs.answers[Question::ElectrodeSpacing] = {"2.5"};
  made.read({made.folder.write("numbers.dat", Numbers)});
  ASSERT_EQ(made.session.survey.dati().NumMisure(), 1) << Told(made.session.findings());
  EXPECT_EQ(made.m(1).Elettrodi[3], 12.5F);
  // 6.2832 / (1/5 - 1/7.5 - 1/2.5 + 1/5) = -47.124 m
  EXPECT_NEAR(made.m(1).Rho[1], 11.781, 1e-4);
  made.session.salvaProgetto(made.folder / "run.corvan", made.session.progetto());
  SessionFixture again;
  EXPECT_TRUE(again.session.apriProgetto(made.folder / "run.corvan")) << Told(again.session.findings());
  EXPECT_EQ(again.dialogs.questions.size(), 0U);
  ASSERT_EQ(again.session.survey.dati().NumMisure(), 1);
  EXPECT_EQ(again.m(1).Rho, made.m(1).Rho);
}

TEST(ColumnTexts, AStatedSpacingIsNotAskedForAndAProjectKeepsIt) {
  SessionFixture made;
  made.session.survey.FrameFileIn.spacing = "4";
  made.read({made.folder.write("named.dat", "a b m n r x y\n" + Numbers)});
  EXPECT_TRUE(made.dialogs.questions.empty());
  made.session.salvaProgetto(made.folder / "run.corvan", made.session.progetto());
  SessionFixture again;
  EXPECT_TRUE(again.session.apriProgetto(made.folder / "run.corvan"));
  EXPECT_EQ(again.m(1).Elettrodi[1], 12.0F);
}

TEST(ColumnTexts, WithoutAnAnswerAreNotReadAndASpacingOf0IsRefused) {
  SessionFixture none;
  none.read({none.folder.write("numbers.dat", Numbers)});
  EXPECT_EQ(none.session.survey.dati().NumMisure(), 0);
  EXPECT_TRUE(none.faulty());
  SessionFixture zero;
  zero.dialogs.answers[Question::ElectrodeSpacing] = {"0"};
  zero.read({zero.folder.write("named.dat", "a b m n r x y\n" + Numbers)});
  EXPECT_EQ(zero.m(1).Elettrodi[1], 3.0F) << "places";
  EXPECT_TRUE(zero.faulty());
}

}  // namespace
}  // namespace corvan::test
