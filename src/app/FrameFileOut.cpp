#include "app/FrameFileOut.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QToolButton>

namespace corvan {
namespace {

/// A box of the panel and its place in the grid.
struct BoxEntry {
  int row, column, span;
  const char *name, *caption;
  bool OutputPanel::*value;
  const char* toolTip;
};

constexpr BoxEntry Boxes[] = {
    {3, 0, 1, "BinChk", ".BIN", &OutputPanel::BinChk, "Export selection in IRIS .BIN format"},
    {3, 1, 1, "TxtChk", ".TXT", &OutputPanel::TxtChk, "Export section in IRIS Corvan .TXT format"},
    {4, 0, 1, "EchoZChk", ".ECS", &OutputPanel::EchoZChk, "Save the Echo Sounder profile .ECS (UTMx, UTMy, Depth)"},
    {4, 1, 1, "KMLchk", ".KML", &OutputPanel::KMLchk, "Export the section as a curtain for virtual globes"},
    {5, 0, 1, "TPGChk", ".TPG", &OutputPanel::TPGChk, "No file is written: the format is gone, its box is kept"},
    {5, 1, 1, "ErtChk", ".OHM", &OutputPanel::ErtChk,
     "Unified data file for inversion toolkits: electrodes and readings"},
    {6, 0, 1, "Res2dinvChk", ".DAT", &OutputPanel::Res2dinvChk,
     "RES2DINV data file in the layout of the general array"},
    {6, 1, 1, "BottomChk", "_BOTTOM.CSV", &OutputPanel::BottomChk,
     "The bottom along the section, for the layer of water of an inversion"},
    {7, 0, 1, "GpkgChk", ".GPKG", &OutputPanel::GpkgChk,
     "GeoPackage with measurements, lines, section and readings, coloured by resistivity"},
    {7, 1, 1, "GeojsonChk", ".GEOJSON", &OutputPanel::GeojsonChk, "Measurements, lines and section for web maps"},
    {8, 0, 1, "VtuChk", ".VTU", &OutputPanel::VtuChk, "The section as a curtain of cells for 3D viewers"},
    {9, 0, 1, "Ert3DChk", "OHM on map", &OutputPanel::Ert3DChk,
     "Electrodes of the .OHM by easting and northing instead of along the section"},
    {9, 1, 1, "KmlExactChk", "KML exact", &OutputPanel::KmlExactChk,
     "Coordinates of the .KML without the metres that the older series loses far from the zone's middle"},
    {10, 0, 2, "TruePosChk", "True Position", &OutputPanel::TruePosChk,
     "Correct UTM data for distance between syscal and current electrodes"},
    {11, 0, 2, "ExtGPSChk", "Ext. GPS", &OutputPanel::ExtGPSChk, "Use the External GPS coordinates "}};

}  // namespace

FrameFileOut::FrameFileOut(Session& session, std::function<void()> changed)
    : Frame(session, "FrameFileOut", "File Out", std::move(changed)),
      FileOutTxt_(Named(new QLineEdit, "FileOutTxt", "Set root file name without the extension")),
      CableCmbx_(Named(new QComboBox, "CableCmbx",
                       "Where the electrodes lie: on the straight line of the section, or on the sailed track, each as "
                       "far behind the boat as along the cable; true positions are then those of the current dipole")),
      SmoothTxt_(NumberBox("SmoothTxt",
                           "Window over which the sailed track is smoothed against the noise of the GPS [m]; 0: none; "
                           "empty: one electrode spacing")),
      folder_(new ElidedLabel("FolderLbl", Qt::ElideMiddle)) {
  rendiChiudibile();
  auto* FileOutLbl = Named(new QLabel("File Name Root"), "FileOutLbl");
  FileOutLbl->setBuddy(FileOutTxt_);
  auto* grid = new QGridLayout(this);
  grid->setSpacing(Unit);
  grid->addWidget(FileOutLbl, 0, 0, 1, 2);
  grid->addWidget(FileOutTxt_, 1, 0, 1, 2);
  auto* FolderCmd = Named(new QToolButton, "FolderCmd", "Choose the folder of the outputs");
  FolderCmd->setText(QChar(0x2026));
  FolderCmd->setAccessibleName("Folder");
  auto* target = new QHBoxLayout;
  target->addWidget(new QLabel("in"));
  target->addWidget(folder_, 1);
  target->addWidget(FolderCmd);
  grid->addLayout(target, 2, 0, 1, 2);
  for (const BoxEntry& box : Boxes) {
    choices_.push_back(aggiungi(box.name, box.caption, box.value, box.toolTip));
    grid->addWidget(choices_.back().box, box.row, box.column, 1, box.span);
  }
  auto* SaveOutCmd = Named(new QPushButton(">> Save File Out <<"), "SaveOutCmd", "Save selection with option ");
  grid->addWidget(SaveOutCmd, aggiungiCavo(grid, 12), 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);

  connect(SaveOutCmd, &QPushButton::clicked, this, esegui("SaveOutCmd_Click"));
  connect(FileOutTxt_, &QLineEdit::returnPressed, this, esegui("SaveOutCmd_Click"));
  connect(FileOutTxt_, &QLineEdit::textChanged, this, [this](const QString& text) {
    this->session().exporter.FrameFileOut.FileOutTxt = text.toStdString();
    mostraCartella();
  });
  connect(FolderCmd, &QToolButton::clicked, this, [this] { scegliCartella(); });
}

/// How the cable lies, from a row of the grid on. @return the next row
int FrameFileOut::aggiungiCavo(QGridLayout* grid, int row) {
  CableCmbx_->addItems({"Straight", "Along the track"});
  SmoothTxt_->setPlaceholderText("spacing");
  auto* cable = Named(new QLabel("Cable"), "CableLbl");
  cable->setBuddy(CableCmbx_);
  auto* smoothing = Named(new QLabel("Smoothing [m]"), "SmoothLbl");
  smoothing->setBuddy(SmoothTxt_);
  grid->addWidget(cable, row, 0);
  grid->addWidget(CableCmbx_, row, 1);
  grid->addWidget(smoothing, row + 1, 0);
  grid->addWidget(SmoothTxt_, row + 1, 1);
  connect(CableCmbx_, &QComboBox::currentIndexChanged, this, [this](int index) {
    session().exporter.FrameFileOut.cable = static_cast<CableShape>(index);
    SmoothTxt_->setEnabled(session().exporter.FrameFileOut.cable == CableShape::AlongTrack);
  });
  connect(SmoothTxt_, &QLineEdit::textChanged, this,
          [this](const QString& text) { session().exporter.FrameFileOut.SmoothTxt = text.toStdString(); });
  connect(SmoothTxt_, &QLineEdit::returnPressed, this, esegui("SaveOutCmd_Click"));
  return row + 2;
}

/// Where a root without a folder of its own is written: into the current folder, that of "File In".
void FrameFileOut::mostraCartella() {
  const QString folder = QDir::toNativeSeparators(QFileInfo(FileOutTxt_->text() + ".x").absolutePath());
  folder_->mostra(folder, {}, folder);
}

void FrameFileOut::scegliCartella() {
  const QFileInfo root(FileOutTxt_->text() + ".x");
  const QString folder = QFileDialog::getExistingDirectory(window(), "Folder of the outputs", root.absolutePath());
  if (folder.isEmpty()) return;
  const QString name = root.completeBaseName();
  FileOutTxt_->setText(QDir::toNativeSeparators(QDir(folder).filePath(name.isEmpty() ? "FileOut" : name)));
}

FrameFileOut::Choice FrameFileOut::aggiungi(const char* name, const QString& caption, bool OutputPanel::*value,
                                            const QString& toolTip) {
  auto* box = Named(new QCheckBox(caption), name, toolTip);
  connect(box, &QCheckBox::toggled, this, [this, value](bool on) { session().exporter.FrameFileOut.*value = on; });
  return {box, value};
}

void FrameFileOut::inizia() {
  FileOutTxt_->setFocus();
  FileOutTxt_->selectAll();
}

void FrameFileOut::chiudi() {
  session().exporter.FrameFileOut.visible = false;
  changed();
}

void FrameFileOut::mostra() {
  const OutputPanel& out = session().exporter.FrameFileOut;
  setVisible(out.visible);
  for (const Choice& choice : choices_) choice.box->setChecked(out.*choice.value);
  CableCmbx_->setCurrentIndex(static_cast<int>(out.cable));
  SmoothTxt_->setEnabled(out.cable == CableShape::AlongTrack);
  SetText(SmoothTxt_, out.SmoothTxt);
  SetText(FileOutTxt_, out.FileOutTxt);
  mostraCartella();
}

}  // namespace corvan
