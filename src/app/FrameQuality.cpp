#include "app/FrameQuality.h"

#include <QGridLayout>
#include <string>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan {

FrameQuality::FrameQuality(Session& session, std::function<void()> changed)
    : Frame(session, "FrameQuality", "Quality", std::move(changed)),
      DespikeChk_(Named(new QCheckBox("Spikes over"), "DespikeChk",
                        "Bad: farther from the median around it than so many median absolute deviations (logarithms)")),
      DespikeTxt_(casella("DespikeTxt", "Median absolute deviations from which on a reading is a spike")),
      DespikeWidthTxt_(casella("DespikeWidthTxt", "Measurements around a reading that it is compared with")),
      NegativeChk_(Named(new QCheckBox("Negative resistivities"), "NegativeChk", "Bad: a resistivity below 0")),
      QualityLbl_(Named(new QLabel, "QualityLbl")),
      ForgetCmd_(Named(new QPushButton("Forget Choices by Hand"), "ForgetCmd",
                       "Readings that were excluded or taken by hand are judged by the limits again")) {
  rendiChiudibile();
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  riga(grid, "Current from", limite("MinCurrentTxt", "Bad: a smaller current, mA", &QualityLimits::corrente), "mA");
  riga(grid, "Potential from",
       limite("MinPotentialTxt", "Bad: a smaller potential difference, mV", &QualityLimits::potenziale), "mV");
  riga(grid, "Deviation up to",
       limite("MaxDeviationTxt", "Bad: a larger standard deviation, %; readings without one are not tested",
              &QualityLimits::deviazione),
       "%");
  riga(grid, "Resistivity from",
       limite("RhoMinTxt", "Bad: a smaller apparent resistivity, Ohm m", &QualityLimits::rhoMin), "Ohm m");
  riga(grid, "Resistivity to", limite("RhoMaxTxt", "Bad: a larger apparent resistivity, Ohm m", &QualityLimits::rhoMax),
       "Ohm m");
  const int spikes = grid->rowCount();
  grid->addWidget(DespikeChk_, spikes, 0);
  grid->addWidget(DespikeTxt_, spikes, 1);
  grid->addWidget(new QLabel("MAD"), spikes, 2);
  riga(grid, "in windows of", DespikeWidthTxt_, "meas.");
  grid->addWidget(NegativeChk_, spikes + 2, 0, 1, 3);
  QualityLbl_->setWordWrap(true);
  QualityLbl_->setTextFormat(Qt::PlainText);
  grid->addWidget(QualityLbl_, spikes + 3, 0, 1, 3);
  grid->addWidget(ForgetCmd_, spikes + 4, 0, 1, 3);
  grid->setColumnStretch(1, 1);
  connect(DespikeChk_, &QCheckBox::clicked, this, esegui("DespikeChk_Click"));
  connect(NegativeChk_, &QCheckBox::clicked, this, esegui("NegativeChk_Click"));
  connect(ForgetCmd_, &QPushButton::clicked, this, esegui("ForgetCmd_Click"));
}

/// A box whose number is taken by Enter and on leaving it.
QLineEdit* FrameQuality::casella(const char* name, const char* toolTip) {
  QLineEdit* box = NumberBox(name, toolTip);
  box->setMinimumWidth(8 * Unit);
  connect(box, &QLineEdit::editingFinished, this, [this, box, control = std::string(name) + "_KeyPress"] {
    if (!box->isModified()) return;
    box->setModified(false);
    invio(control.c_str(), box);
  });
  return box;
}

QLineEdit* FrameQuality::limite(const char* name, const char* toolTip, std::optional<double> QualityLimits::*limit) {
  QLineEdit* box = casella(name, toolTip);
  box->setPlaceholderText("any");
  limits_.push_back({box, limit});
  return box;
}

void FrameQuality::riga(QGridLayout* grid, const char* caption, QLineEdit* box, const char* unit) {
  auto* label = new QLabel(caption);
  label->setBuddy(box);
  const int row = grid->rowCount();
  grid->addWidget(label, row, 0);
  grid->addWidget(box, row, 1);
  grid->addWidget(new QLabel(unit), row, 2);
}

void FrameQuality::inizia() {
  limits_.front().edit->setFocus();
  limits_.front().edit->selectAll();
}

void FrameQuality::chiudi() {
  session().survey.qualita().FrameQuality.visible = false;
  changed();
}

void FrameQuality::mostra() {
  const QualityDesk& desk = session().survey.qualita();
  setVisible(desk.FrameQuality.visible);
  for (const Box& box : limits_) {
    const std::optional<double>& limit = desk.limiti().*box.limit;
    SetText(box.edit, limit ? TestoNumero(*limit) : "");
  }
  DespikeChk_->setChecked(desk.limiti().picchi.has_value());
  SetText(DespikeTxt_, TestoNumero(desk.FrameQuality.picchi.fattore));
  SetText(DespikeWidthTxt_, std::to_string(desk.FrameQuality.picchi.finestra));
  NegativeChk_->setChecked(desk.limiti().negative);
  const QualityResult& found = desk.risultato();
  const Quality& quality = session().survey.dati().qualita;
  QualityLbl_->setText(quality.inVigore()
                           ? QString::fromStdString(std::to_string(found.escluse) + " of " +
                                                    Quanti(found.letture, "reading", "readings") + " excluded, " +
                                                    std::to_string(quality.aMano.size()) + " decided by hand")
                           : "Every reading is taken");
  ForgetCmd_->setEnabled(!quality.aMano.empty());
}

}  // namespace corvan
