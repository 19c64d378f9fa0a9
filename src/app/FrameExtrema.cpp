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
  rendiChiudibile();
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  int row = 0;
  for (const auto& [box, label] : {std::pair(E1Txt_, PrimoLbl_), std::pair(E2txt_, SecondoLbl_)}) {
    box->setFixedWidth(8 * Unit);
    grid->addWidget(box, row, 0, Qt::AlignTop);
    grid->addWidget(label, row++, 1);
  }
  grid->setColumnStretch(1, 1);
  // Enter and leaving the box both end the editing; what nobody typed chooses nothing.
  for (const auto& [box, control] : {std::pair(E1Txt_, "E1Txt_KeyPress"), std::pair(E2txt_, "E2txt_KeyPress")}) {
    connect(box, &QLineEdit::editingFinished, this, [this, box = box, control = control] {
      if (!box->isModified()) return;
      box->setModified(false);
      invio(control, box);
    });
  }
}

void FrameExtrema::inizia() {
  E1Txt_->setFocus();
  E1Txt_->selectAll();
}

void FrameExtrema::chiudi() {
  session().selection.FrameExtrema.visible = false;
  changed();
}

void FrameExtrema::mostra() {
  const ExtremaPanel& panel = session().selection.FrameExtrema;
  setVisible(panel.visible);
  PrimoLbl_->setText(QString::fromStdString(panel.PrimoLbl));
  SecondoLbl_->setText(QString::fromStdString(panel.SecondoLbl));
  SetText(E1Txt_, panel.E1Txt);
  SetText(E2txt_, panel.E2txt);
}

}  // namespace corvan
