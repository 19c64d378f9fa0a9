#include "app/FrameFileIn.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLocale>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QVBoxLayout>
#include <utility>

namespace corvan {
namespace {

constexpr int PathRole = Qt::UserRole;

std::filesystem::path Percorso(const QString& name) { return std::filesystem::path(name.toStdU16String()); }

/// Volumes that a user knows: not the system's own file systems.
bool Mostrabile(const QStorageInfo& volume) {
  if (!volume.isValid() || !volume.isReady()) return false;
  if (volume.isRoot()) return true;
  const QString root = volume.rootPath();
#ifdef Q_OS_LINUX
  return root.startsWith("/media/") || root.startsWith("/mnt/") || root.startsWith("/run/media/") || root == "/home";
#else
  return !root.isEmpty();
#endif
}

QString Descrizione(const QStorageInfo& volume) {
  const QString name = volume.name().isEmpty() ? QString() : volume.name() + ", ";
  return QStringLiteral("%1  (%2%3 free)")
      .arg(QDir::toNativeSeparators(volume.rootPath()), name, QLocale::c().formattedDataSize(volume.bytesFree(), 0));
}

/// A folder's name behind as many blanks as it has parents.
void AggiungiCartella(QListWidget* list, const QString& text, const QString& path, int depth) {
  auto* item = new QListWidgetItem(QString(qsizetype{2} * depth, QLatin1Char(' ')) + text, list);
  item->setData(PathRole, path);
  item->setToolTip(QDir::toNativeSeparators(path));
}

}  // namespace

FrameFileIn::FrameFileIn(Session& session, std::function<void()> changed)
    : Frame(session, "FrameFileIn", "File In", std::move(changed)),
      Drive1_(Named(new QComboBox, "Drive1", "Volume")),
      Dir1_(Named(new QListWidget, "Dir1")),
      File1_(new FileList([this] { leggiSelezione(); })),
      LatLonCmbx_(Named(new QComboBox, "LatLonCmbx", "Format of the coordinates in the files")),
      Option1_(Named(new QRadioButton("No Filter"), "Option1")),
      Option2_(Named(new QRadioButton("Skip bad GPS"), "Option2")),
      Option3_(Named(new QRadioButton("Interpolate bad GPS"), "Option3")),
      pastGaps_(Named(new QCheckBox("Read past lost fixes"), "PastGapsChk",
                      "Go on behind a lost fix to the last record with a position; else the file ends there")),
      Donelbl_(Named(new QLabel, "Donelbl")) {
  LatLonCmbx_->addItems({"DDMMSS", "DDMM:MMM", "DD.DDDDD", "UTM"});
  LatLonCmbx_->setCurrentIndex(static_cast<int>(session.survey.FrameFileIn.LatLonCmbx));
  rendiChiudibile();
  Drive1_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* CancCmd = Named(new QPushButton("Cancel"), "CancCmd");
  auto* AddCmd =
      Named(new QPushButton("Add Files"), "AddCmd", "Read the survey's files and the selected ones behind them");
  auto* ConvertAsciiCmd =
      Named(new QPushButton("Read File"), "ConvertAsciiCmd", "Read the selected files in the order shown");
  CancCmd->setToolTip("Close without reading");

  auto* format = new QLabel("Coordinates");
  format->setBuddy(LatLonCmbx_);
  auto* grid = new QGridLayout;
  grid->setSpacing(Unit);
  grid->addWidget(format, 0, 0);
  grid->addWidget(LatLonCmbx_, 0, 1);
  int row = 1;
  for (QWidget* choice : {static_cast<QWidget*>(Option1_), static_cast<QWidget*>(Option2_),
                          static_cast<QWidget*>(Option3_), static_cast<QWidget*>(pastGaps_)}) {
    grid->addWidget(choice, row++, 0, 1, 2);
  }
  grid->addWidget(AddCmd, row, 0);
  grid->addWidget(ConvertAsciiCmd, row++, 1);
  grid->addWidget(CancCmd, row, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(Unit);
  layout->addWidget(Drive1_);
  layout->addWidget(Dir1_, 2);
  layout->addWidget(File1_, 3);
  layout->addLayout(grid);
  layout->addWidget(Donelbl_);

  InputPanel& in = session.survey.FrameFileIn;
  connect(LatLonCmbx_, &QComboBox::currentIndexChanged, this,
          [&in](int index) { in.LatLonCmbx = static_cast<CoordinateEntry>(index); });
  for (const auto& [option, filter] : {std::pair(Option1_, BadGps::NoFilter), std::pair(Option2_, BadGps::Skip),
                                       std::pair(Option3_, BadGps::Interpolate)}) {
    connect(option, &QRadioButton::toggled, this, [&in, filter = filter](bool on) {
      if (on) in.filter = filter;
    });
  }
  connect(pastGaps_, &QCheckBox::toggled, this, [&in](bool on) { in.pastGaps = on; });
  connect(Drive1_, &QComboBox::activated, this,
          [this](int index) { apriCartella(Drive1_->itemData(index).toString()), this->changed(); });
  connect(Dir1_, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { apriCartella(item->data(PathRole).toString()), this->changed(); });
  connect(ConvertAsciiCmd, &QPushButton::clicked, this, [this] { leggiSelezione(); });
  connect(AddCmd, &QPushButton::clicked, this, [this] { aggiungi(); });
  connect(CancCmd, &QPushButton::clicked, this, esegui("CancCmd_Click"));
}

void FrameFileIn::apriCartella(const QString& folder) {
  if (!QDir(folder).exists()) return;
  QDir::setCurrent(folder);  // one that may not be entered is shown all the same: the list says why it is empty
  session().survey.FrameFileIn.Dir1 = Percorso(folder);
  session().survey.FrameFileIn.DonelblVisible = false;
  mostraCartelle();
  mostra();
}

void FrameFileIn::apri(const QString& folder) {
  apriCartella(folder);
  mostraPerScegliere();
}

void FrameFileIn::leggiScelti() {
  const QStringList files = File1_->scelti();
  files.isEmpty() ? mostraPerScegliere() : leggi(files);
}

void FrameFileIn::mostraPerScegliere() {
  session().survey.FrameFileIn.visible = true;
  changed();
  inizia();
}

void FrameFileIn::aggiungi() {
  const QStringList files = File1_->scelti();
  if (files.isEmpty()) return mostraPerScegliere();
  std::vector<std::filesystem::path> paths;
  for (const QString& file : files) paths.push_back(Percorso(file));
  session().findings().comincia("Add Files");
  session().aggiungi(paths);
  changed();
}

void FrameFileIn::mostraCartelle() {
  const QString folder = QDir(QString::fromStdU16String(session().survey.FrameFileIn.Dir1.u16string())).absolutePath();
  const QSignalBlocker quiet(Drive1_);
  Drive1_->clear();
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (!Mostrabile(volume)) continue;
    Drive1_->addItem(Descrizione(volume), volume.rootPath());
    if (folder.startsWith(volume.rootPath())) Drive1_->setCurrentIndex(Drive1_->count() - 1);
  }
  Dir1_->clear();
  QStringList parents{folder};
  for (QDir above(folder); above.cdUp();) parents.prepend(above.absolutePath());
  int depth = 0;
  for (const QString& path : parents) {
    const QString name = QFileInfo(path).fileName();
    AggiungiCartella(Dir1_, name.isEmpty() ? QDir::toNativeSeparators(path) : name, path, depth++);
  }
  Dir1_->setCurrentRow(depth - 1);
  const QDir current(folder);
  for (const QString& name : current.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
    AggiungiCartella(Dir1_, name, current.absoluteFilePath(name), depth);
  }
  Dir1_->scrollToItem(Dir1_->item(depth - 1));
  File1_->apri(folder);
}

void FrameFileIn::leggi(const QStringList& files) {
  if (files.isEmpty()) return;
  apriCartella(QFileInfo(files.front()).absolutePath());
  InputPanel& in = session().survey.FrameFileIn;
  in.File1.clear();
  for (const QString& file : files) in.File1.push_back(Percorso(file));
  esegui("ConvertAsciiCmd_Click")();
}

void FrameFileIn::leggiSelezione() {
  const QStringList files = File1_->scelti();
  if (!files.isEmpty()) {
    leggi(files);
    return;
  }
  session().survey.FrameFileIn.File1.clear();
  esegui("ConvertAsciiCmd_Click")();
}

void FrameFileIn::mostra() {
  const InputPanel& in = session().survey.FrameFileIn;
  setVisible(in.visible);
  LatLonCmbx_->setCurrentIndex(static_cast<int>(in.LatLonCmbx));
  QRadioButton* const options[] = {Option1_, Option2_, Option3_};
  options[static_cast<int>(in.filter)]->setChecked(true);
  pastGaps_->setChecked(in.pastGaps);
  Donelbl_->setText(in.DonelblVisible ? QString::fromStdString(in.Donelbl) : QString());
}

}  // namespace corvan
