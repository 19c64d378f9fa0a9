#include "app/TranslationFrame.h"

#include <QGridLayout>
#include <QLabel>
#include <utility>

namespace corvan {

TranslationFrame::TranslationFrame(Session& session, const char* name, const QString& caption, const Axis& east,
                                   const Axis& north, std::function<void()> changed)
    : Frame(session, name, caption, std::move(changed)) {
  rendiChiudibile();
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  int row = 0;
  for (const Axis& axis : {east, north}) {
    QPushButton* minus = StepButton(axis.minus, "\u2212", axis.lessTip);
    QPushButton* plus = StepButton(axis.plus, "+", axis.moreTip);
    QLineEdit* box = NumberBox(axis.box, axis.toolTip);
    auto* label = new QLabel(axis.caption);
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    grid->addWidget(minus, row, 1);
    grid->addWidget(box, row, 2);
    grid->addWidget(plus, row, 3);
    ++row;
    connect(minus, &QPushButton::clicked, this, esegui(axis.less));
    connect(plus, &QPushButton::clicked, this, esegui(axis.more));
    collega(box, axis.enter);
    boxes_.push_back({box, axis.text});
  }
  grid->setColumnStretch(2, 1);
}

TranslationFrame* TranslationFrame::dati(Session& session, std::function<void()> changed) {
  return new TranslationFrame(
      session, "FrameDataMove", "Data Translation",
      {"East [m]", "EmCmd", "TestTxt", "EpCmd", "Data: East Tranlation [m]", "Move the data 0.1 m to the west",
       "Move the data 0.1 m to the east", &TranslationPanel::TestTxt, "EmCmd_Click", "EpCmd_Click", "TestTxt_KeyPress"},
      {"North [m]", "NmCmd", "TnordTxt", "NpCmd", "Data: Notrh Translation [m]", "Move the data 0.1 m to the south",
       "Move the data 0.1 m to the north", &TranslationPanel::TnordTxt, "NmCmd_Click", "NpCmd_Click",
       "TnordTxt_KeyPress"},
      std::move(changed));
}

TranslationFrame* TranslationFrame::fondo(Session& session, std::function<void()> changed) {
  return new TranslationFrame(session, "FrameDepthMove", "Depth Translation",
                              {"East [m]", "DEmCmd", "DTestTxt", "DEpCmd", "Depth: East Translation [m]",
                               "Move the depth profile 0.1 m to the west", "Move the depth profile 0.1 m to the east",
                               &TranslationPanel::DTestTxt, "DEmCmd_Click", "DEpCmd_Click", "DTestTxt_KeyPress"},
                              {"North [m]", "DNmCmd", "DTnordTxt", "DNpCmd", "Depth: North Translation [m]",
                               "Move the depth profile 0.1 m to the south", "Move the depth profile 0.1 m to the north",
                               &TranslationPanel::DTnordTxt, "DNmCmd_Click", "DNpCmd_Click", "DTnordTxt_KeyPress"},
                              std::move(changed));
}

/// Both panels come and go together.
void TranslationFrame::chiudi() { esegui("SHtranslation_Click")(); }

void TranslationFrame::mostra() {
  setVisible(session().view.state().layers.MostraTraslazione);
  for (const Box& box : boxes_) SetText(box.edit, session().translations.FrameDataMove.*box.text);
}

}  // namespace corvan
