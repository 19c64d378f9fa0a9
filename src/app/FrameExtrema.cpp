#include "app/FrameExtrema.h"

#include <QGridLayout>
#include <utility>

namespace corvan {
namespace {

QLabel* Descrizione(const char* name) {
  auto* label = Named(new QLabel, name);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(5 * label->fontMetrics().lineSpacing());  // a chosen point's description moves nothing
  label->setContentsMargins(0, Unit / 2, 0, 0);
  return label;
}

}  // namespace

FrameExtrema::FrameExtrema(Session& session, std::function<void()> changed)
    : Frame(session, "FrameExtrema", "Extrema", std::move(changed)),
      PrimoLbl_(Descrizione("PrimoLbl")),
      E1Txt_(NumberBox("E1Txt", "Set the first extrema of the selection")),
      SecondoLbl_(Descrizione("SecondoLbl")),
      E2txt_(NumberBox("E2txt", "Set the second extrema of the selection")) {
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  int row = 0;
  for (const auto& [box, label] : {std::pair(E1Txt_, PrimoLbl_), std::pair(E2txt_, SecondoLbl_)}) {
    box->setFixedWidth(8 * Unit);
    grid->addWidget(box, row, 0, Qt::AlignTop);
    grid->addWidget(label, row++, 1);
  }
  grid->setColumnStretch(1, 1);
  connect(E1Txt_, &QLineEdit::returnPressed, this, [this] {
    this->session().FrameExtrema.E1Txt = E1Txt_->text().toStdString();
    this->session().E1Txt_KeyPress(EnterKey);
    this->changed();
  });
  connect(E2txt_, &QLineEdit::returnPressed, this, [this] {
    this->session().FrameExtrema.E2txt = E2txt_->text().toStdString();
    this->session().E2txt_KeyPress(EnterKey);
    this->changed();
  });
}

void FrameExtrema::mostra() {
  const ExtremaPanel& panel = session().FrameExtrema;
  setVisible(panel.visible);
  PrimoLbl_->setText(QString::fromStdString(panel.PrimoLbl.Caption));
  SecondoLbl_->setText(QString::fromStdString(panel.SecondoLbl.Caption));
  SetText(E1Txt_, panel.E1Txt);
  SetText(E2txt_, panel.E2txt);
}

}  // namespace corvan
