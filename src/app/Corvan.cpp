#include "app/Corvan.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include "app/AboutBox.h"
#include "app/RecentMenu.h"
#include "base/Clock.h"
#include "base/NumberText.h"
#include "session/Controls.h"

namespace corvan {
namespace {

constexpr int LeftWidth = 33 * Unit;
constexpr int RightWidth = 29 * Unit;

QVBoxLayout* Colonna(QWidget* column, int width) {
  column->setFixedWidth(width);
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Unit);
  return layout;
}

QStringList Files(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) files << url.toLocalFile();
  }
  files.sort(Qt::CaseInsensitive);
  return files;
}

}  // namespace

Corvan::Corvan(Dialogs& dialogs) : dialogs_(dialogs, *this), session_(dialogs_, Adesso) {
  setObjectName("Corvan");
  setWindowTitle("Ardevo - Corvan Data Pre-Process");
  setWindowIcon(QIcon(":/app/corvan.png"));
  setAcceptDrops(true);
  setMinimumSize(1024, 680);
  creaPannelli();
  creaStato();
  creaMenu();
  aggiorna();
}

Corvan::~Corvan() { session_.view.picture().tela(nullptr); }

void Corvan::creaPannelli() {
  const auto changed = [this] { aggiorna(); };
  fileIn_ = new FrameFileIn(session_, [this] {
    riprendiVista();
    aggiorna();
  });
  fileIn_->apriCartella(QDir::currentPath());
  fileOut_ = new FrameFileOut(session_, changed);
  extrema_ = new FrameExtrema(session_, changed);
  view_ = new FrameView(session_, changed);
  dataMove_ = TranslationFrame::dati(session_, changed);
  depthMove_ = TranslationFrame::fondo(session_, changed);
  picture_ = new CoordPic(session_, changed, [this](const PuntoPixel& place) { mostraPunto(place); });

  left_ = new QWidget;
  QVBoxLayout* left = Colonna(left_, LeftWidth);
  left->addWidget(fileIn_, 1);
  left->addWidget(fileOut_);
  left->addWidget(extrema_);
  left->addStretch(0);
  right_ = new QWidget;
  QVBoxLayout* right = Colonna(right_, RightWidth);
  right->addWidget(view_);
  right->addWidget(dataMove_);
  right->addWidget(depthMove_);
  right->addStretch(1);

  auto* centre = new QWidget;
  auto* layout = new QHBoxLayout(centre);
  layout->setContentsMargins(Unit, Unit, Unit, 0);
  layout->setSpacing(Unit);
  layout->addWidget(left_);
  auto* Frame1 = Named(new QWidget, "Frame1");
  auto* inner = new QHBoxLayout(Frame1);
  inner->setContentsMargins(0, 0, 0, 0);
  inner->addWidget(picture_);
  layout->addWidget(Frame1, 1);
  layout->addWidget(right_);
  setCentralWidget(centre);
  connect(view_->pin(), &QCheckBox::toggled, this, [this](bool pinned) {
    if (pinned) mostraVista(true);
  });
}

void Corvan::creaStato() {
  for (QLabel** label : {&filesLbl_, &placeLbl_, &pointLbl_}) {
    *label = new QLabel;
    (*label)->setContentsMargins(Unit, 0, Unit, 0);
    statusBar()->addWidget(*label);
  }
  noteLbl_ = new QLabel;
  noteLbl_->setContentsMargins(Unit, 0, Unit, 0);
  noteLbl_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(noteLbl_, 1);
  filesLbl_->setObjectName("StatusFiles");
  placeLbl_->setObjectName("StatusPlace");
  pointLbl_->setObjectName("StatusPoint");
  noteLbl_->setObjectName("StatusNote");
}

QAction* Corvan::voce(QMenu* menu, const char* name, const QString& caption, const QKeySequence& key,
                      const char* control) {
  QAction* action = menu->addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setShortcut(key);
  if (control == nullptr) return action;
  connect(action, &QAction::triggered, this, [this, control] {
    EseguiControllo(session_, control);
    aggiorna();
  });
  return action;
}

void Corvan::creaMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("File");
  voce(file, "LoadFiles", "&Load Floating Electrodes File(s)", QKeySequence::Open, "LoadFiles_Click");
  QAction* LoadGPS = voce(file, "LoadGPS", "Load E&xternal GPS file", QKeySequence("Ctrl+G"), nullptr);
  connect(LoadGPS, &QAction::triggered, this, [this] { leggiTraccia(); });
  file->addMenu(new RecentMenu(
      remembered_, [this](const QStringList& files) { leggi(files); }, this));
  file->addSeparator();
  voce(file, "SaveFileOut", "Save File Out (.&BIN format)", QKeySequence::Save, "SaveFileOut_Click");
  voce(file, "SaveFileOutTxt", "Save File Out (.T&XT Format)", QKeySequence("Ctrl+T"), "SaveFileOutTxt_Click");
  voce(file, "SaveEcho", "Save &EchoSounder Profile", QKeySequence("Ctrl+E"), "SaveEcho_Click");
  file->addSeparator();
  QAction* exit = voce(file, "Exit", "E&xit", QKeySequence("Ctrl+Q"), nullptr);
  connect(exit, &QAction::triggered, this, &QWidget::close);

  QMenu* operation = menuBar()->addMenu("Operation");
  operation->setObjectName("Operation");
  voce(operation, "LinkToGPST", "Link Data to External GPS by Time", QKeySequence("Ctrl+L"), "LinkToGPST_Click");
  voce(operation, "LinkToGPSP", "Link Data to External GPS by Pos.", {}, "LinkToGPSP_Click");
  operation->addSeparator();
  voce(operation, "SetUtmZone", "Set UTM Zone", QKeySequence("Ctrl+U"), "SetUtmZone_Click");
  voce(operation, "CableConf", "Set Cable Configuration", QKeySequence("Ctrl+K"), "CableConf_Click");
  operation->addSeparator();
  QAction* first = voce(operation, "SelFirst", "Select First Data", QKeySequence("Ctrl+1"), "SelFirst_Click");
  connect(first, &QAction::triggered, this, [this] { extrema_->primo(); });
  voce(operation, "SelectLast", "Select Last Data", QKeySequence("Ctrl+2"), "SelectLast_Click");

  QMenu* image = menuBar()->addMenu("Image");
  image->setObjectName("Image");
  for (const LayerEntry& layer : LayerTable) {
    const std::string control = std::string(layer.name) + "_Click";
    QAction* action = voce(image, layer.name, layer.caption, QKeySequence(layer.key), nullptr);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, control] {
      EseguiControllo(session_, control);
      aggiorna();
    });
    switches_.push_back({action, layer.flag});
  }
  image->addSeparator();
  voce(image, "SetRange", "Set Colour Scale Range", QKeySequence("Ctrl+R"), "SetRange_Click");

  QAction* info = menuBar()->addAction("Info");
  info->setObjectName("Info");
  connect(info, &QAction::triggered, this, [this] { AboutBox(this).exec(); });
  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("Help");
  connect(voce(help, "Manual", "&Manual", QKeySequence::HelpContents, nullptr), &QAction::triggered, this,
          [this] { apriManuale(); });
}

void Corvan::apriManuale() {
  if (manual_ == nullptr) manual_ = new ManualWindow(this);
  manual_->apri();
}

void Corvan::ripristina(QSize usual) {
  remembered_.ripristinaFinestra(*this, usual);
  view_->pin()->setChecked(remembered_.vistaFissata());
  liked_ = remembered_.vista();
  session_.view.proietta(liked_->perspective ? Projection::Perspective : Projection::Orthographic);
  riprendiVista();
  aggiorna();
  // Started from a folder of surveys, that one is meant; a desktop starts programs at home or at the root.
  const bool nowhere = QDir::current() == QDir::home() || QDir::current().isRoot();
  if (nowhere && !remembered_.cartella().isEmpty()) fileIn_->apriCartella(remembered_.cartella());
}

/// A reading puts the layers back to those of the start: then those that the user likes are shown again. What the
/// reading has to say on the picture is never hidden.
void Corvan::riprendiVista() {
  if (!liked_) return;
  for (const LayerEntry& layer : LayerTable) {
    const bool shown = liked_->layers.*layer.flag || layer.flag == &Layers::MostraInfo;
    if (session_.view.state().layers.*layer.flag != shown) session_.view.mostra(layer.flag, shown);
  }
}

ViewPreferences Corvan::vista() const {
  const ViewState& state = session_.view.state();
  return {state.layers, state.projection == Projection::Perspective};
}

void Corvan::closeEvent(QCloseEvent* event) {
  remembered_.ricordaFinestra(*this);
  remembered_.ricordaVistaFissata(view_->fissato());
  remembered_.ricordaVista(vista());
  remembered_.ricordaCartella(QDir::currentPath());
  QMainWindow::closeEvent(event);
}

/// Whichever way a survey was chosen, its files are offered again.
void Corvan::ricordaLettura() {
  QStringList files;
  for (const auto& file : session_.survey.dati().files) files << QString::fromStdU16String(file.path.u16string());
  if (!files.isEmpty() && files != lastRead_) remembered_.ricordaLettura(files);
  lastRead_ = files;
}

void Corvan::leggiTraccia() {
  DialogoFile_.DialogTitle = "Select GPS file (Lat, Lon, Depth)";
  DialogoFile_.IDir = QDir::currentPath();
  DialogoFile_.FileName.clear();
  if (!DialogoFile_.FOpen()) return;
  leggiTraccia(DialogoFile_.FileName);
}

void Corvan::leggiTraccia(const QString& file) {
  session_.leggiTraccia(std::filesystem::path(file.toStdU16String()));
  aggiorna();
}

void Corvan::aggiorna() {
  for (Frame* frame : {static_cast<Frame*>(fileIn_), static_cast<Frame*>(fileOut_), static_cast<Frame*>(extrema_),
                       static_cast<Frame*>(view_), static_cast<Frame*>(dataMove_), static_cast<Frame*>(depthMove_)}) {
    frame->mostra();
  }
  const bool anyLeft = session_.survey.FrameFileIn.visible || session_.exporter.FrameFileOut.visible ||
                       session_.selection.FrameExtrema.visible;
  left_->setVisible(anyLeft);
  mostraVista(!view_->isHidden());
  for (const Switch& s : switches_) s.action->setChecked(session_.view.state().layers.*s.layer);
  picture_->update();
  ricordaLettura();
  if (liked_) liked_ = vista();
  mostraStato();
}

void Corvan::mostraStato() {
  const Survey& survey = session_.survey.dati();
  const auto files = static_cast<int>(survey.files.size());
  filesLbl_->setText(files == 0 ? QStringLiteral("No survey")
                                : QStringLiteral("%1 %2, %3 measurements")
                                          .arg(files)
                                          .arg(files == 1 ? "file" : "files")
                                          .arg(survey.NumMisure()) +
                                      (survey.tracciaEst.loaded
                                           ? QStringLiteral(", track of %1 fixes").arg(survey.tracciaEst.NumGPSEst())
                                           : QString()));
  const auto& entries = session_.findings().entries();
  QString note = entries.empty() ? QString() : QString::fromStdString(entries.back().detto());
  const auto& outputs = session_.exporter.outputs();
  if (outputs.size() > outputsShown_) {
    QStringList names;
    for (std::size_t i = outputsShown_; i < outputs.size(); ++i) {
      const QFileInfo info(QString::fromStdU16String(outputs[i].u16string()));
      names << (names.isEmpty() ? QDir::toNativeSeparators(info.absoluteFilePath()) : info.fileName());
    }
    outputsShown_ = outputs.size();
    note = "Written: " + names.join(", ");
  }
  noteLbl_->setText(note);
  noteLbl_->setToolTip(note);
}

void Corvan::mostraPunto(const PuntoPixel& place) {
  if (session_.mouse.dragging() != Dragging::Nothing) view_->mostra();
  QString text;
  if (const auto at = session_.mouse.posto(place.X, place.Y)) {
    text = QStringLiteral("E %1  N %2")
               .arg(QString::fromStdString(FormattaNumero(at->first, "0.0")),
                    QString::fromStdString(FormattaNumero(at->second, "0.0")));
  }
  placeLbl_->setText(text);
  const Target target = session_.mouse.bersaglio(place.X, place.Y);
  pointLbl_->setText(target.kind == TargetKind::Measurement ? QStringLiteral("measurement %1").arg(target.index)
                                                            : QString());
  disponiVista(picture_->mapTo(this, QPoint(place.X, place.Y) / devicePixelRatioF()));
}

/// The unpinned panel of the view shows while the pointer is near the window's right edge or over it.
void Corvan::disponiVista(const QPoint& pointer) {
  if (view_->fissato() || session_.mouse.dragging() != Dragging::Nothing) return;
  constexpr int near = 24;
  const bool over = view_->isVisible() && pointer.x() >= right_->x();
  mostraVista(over || pointer.x() >= width() - near);
}

void Corvan::mostraVista(bool shown) {
  if (shown == view_->isHidden()) view_->setVisible(shown);
  right_->setVisible(shown || session_.view.state().layers.MostraTraslazione);
}

void Corvan::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  mostraStato();
}

void Corvan::dragEnterEvent(QDragEnterEvent* event) {
  if (!Files(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void Corvan::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  leggi(Files(*event->mimeData()));
}

}  // namespace corvan
