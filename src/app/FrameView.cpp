#include "app/FrameView.h"

#include <array>

namespace corvan {

FrameView::FrameView(Session& session, std::function<void()> changed)
    : Frame(session, "FrameView", "View", std::move(changed)),
      Oopt_(Named(new QRadioButton("Orthographic View"), "Oopt")),
      Popt_(Named(new QRadioButton("Perspective View"), "Popt", "Shift and the left button set the vanishing point")),
      Mopt_(Named(new QRadioButton("Map view (top view)"), "Mopt")),
      pin_(Named(new QCheckBox("Keep open"), "ViewPin",
                 "Keep this panel at the edge; else it shows when the pointer is near")) {
  const std::array rows{
      Row{"ThetaChk", "LeftThetacmd", "Thetatxt", "RightThetacmd", "\u03B8", "Rotation around X axes", "Rotate ",
          "Rotate ", &ViewPanel::ThetaChk, &ViewPanel::Thetatxt, "LeftThetacmd_Click", "RightThetacmd_Click",
          "Thetatxt_KeyPress"},
      Row{"PhiChk", "LeftPhicmd", "Phitxt", "RightPhicmd", "\u03C6", "Rotation around Z axes", "Rotate ", "Rotate ",
          &ViewPanel::PhiChk, &ViewPanel::Phitxt, "LeftPhicmd_Click", "RightPhicmd_Click", "Phitxt_KeyPress"},
      Row{"GammaChk", "LeftGammaCmd", "GammaTxt", "RightGammaCmd", "\u03B3", "Rotation Around Y axes", "Rotate ",
          "Rotate ", &ViewPanel::GammaChk, &ViewPanel::GammaTxt, "LeftGammaCmd_Click", "RightGammaCmd_Click",
          "GammaTxt_KeyPress"},
      Row{"ZoomChk", "MinZoomcmd", "Zoomtxt", "MaxZoomcmd", "Zoom", "More than 1 shows more of the survey", "Show less",
          "Show more", nullptr, &ViewPanel::Zoomtxt, "MinZoomcmd_Click", "MaxZoomcmd_Click", "Zoomtxt_KeyPress"}};
  rendiChiudibile();
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  int row = 0;
  for (const Row& r : rows) riga(grid, row++, r);
  for (QRadioButton* option : {Oopt_, Popt_, Mopt_}) grid->addWidget(option, row++, 0, 1, 4);
  auto* TopViewCmd = Named(new QPushButton("Reset Top View [ Zoom = 1 ]"), "TopViewCmd",
                           "See the whole survey from above, turned by \u03C6");
  auto* ResCmd = Named(new QPushButton("\u2500"), "ResCmd", "Rese to central view");
  auto* SaveCmd = Named(new QPushButton("Save Current Picture"), "SaveCmd",
                        "Write the picture as img0.bmp into the current folder");
  for (QPushButton* button : {TopViewCmd, ResCmd, SaveCmd}) grid->addWidget(button, row++, 0, 1, 4);
  grid->setColumnStretch(2, 1);

  pin_->setChecked(true);
  grid->addWidget(pin_, row, 0, 1, 4);

  connect(Oopt_, &QRadioButton::clicked, this, esegui("Oopt_Click"));
  connect(Popt_, &QRadioButton::clicked, this, esegui("Popt_Click"));
  connect(Mopt_, &QRadioButton::clicked, this, esegui("Mopt_Click"));
  connect(TopViewCmd, &QPushButton::clicked, this, [this] {
    this->session().view.FrameView.Phitxt = boxes_[1].edit->text().toStdString();
    esegui("TopViewCmd_Click")();
  });
  connect(ResCmd, &QPushButton::clicked, this, esegui("ResCmd_Click"));
  connect(SaveCmd, &QPushButton::clicked, this, esegui("SaveCmd_Click"));
}

void FrameView::riga(QGridLayout* grid, int row, const Row& r) {
  auto* check = Named(new QCheckBox(QString::fromUtf8(r.caption)), r.check,
                      r.free != nullptr ? "Let the mouse change it" : "No effect");
  if (r.free != nullptr) {
    check->setChecked(true);
    connect(check, &QCheckBox::toggled, this, [this, r](bool on) { session().view.FrameView.*r.free = on; });
  }
  QPushButton* minus = StepButton(r.minus, "\u2212", r.lessTip);
  QPushButton* plus = StepButton(r.plus, "+", r.moreTip);
  QLineEdit* box = NumberBox(r.box, r.boxTip);
  connect(minus, &QPushButton::clicked, this, esegui(r.less));
  connect(plus, &QPushButton::clicked, this, esegui(r.more));
  collega(box, r.enter);
  grid->addWidget(check, row, 0);
  grid->addWidget(minus, row, 1);
  grid->addWidget(box, row, 2);
  grid->addWidget(plus, row, 3);
  boxes_.push_back({box, r.text});
}

/// It comes back when the pointer is near the edge.
void FrameView::chiudi() {
  pin_->setChecked(false);
  hide();
  changed();
}

void FrameView::mostra() {
  for (const Box& box : boxes_) SetText(box.edit, session().view.FrameView.*box.text);
  const bool straight = session().view.state().projection == Projection::Orthographic;
  (straight ? Oopt_ : Popt_)->setChecked(true);  // the map view is a straight one, too
}

}  // namespace corvan
