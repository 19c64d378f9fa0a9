#include "app/Corvan.h"

#include <algorithm>
#include <chrono>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include "app/AboutBox.h"
#include "app/DroppedFiles.h"
#include "app/PanelColumn.h"
#include "app/RecentMenu.h"
#include "app/ToolBar.h"
#include "base/Clock.h"
#include "session/Controls.h"

namespace corvan {
namespace {

constexpr int LeftWidth = 33 * Unit;
constexpr int RightWidth = 29 * Unit;

}  // namespace

Corvan::Corvan(Dialogs& dialogs) : dialogs_(dialogs, *this), session_(dialogs_, Adesso) {
  setObjectName("Corvan");
  setWindowTitle("Ardevo - Corvan Data Pre-Process");
  setWindowIcon(QIcon(":/app/corvan.png"));
  setAcceptDrops(true);
  setMinimumSize(512, 340);
  creaPannelli();
  creaMenu();
  aggiorna();
}

Corvan::~Corvan() {
  session_.view.picture().tela(nullptr);
  session_.section.tela(nullptr);
}

void Corvan::creaPannelli() {
  const auto changed = [this] { aggiorna(); };
  fileIn_ = new FrameFileIn(session_, [this] {
    riprendiVista();
    aggiorna();
  });
  fileIn_->apriCartella(QDir::currentPath());
  fileOut_ = new FrameFileOut(session_, changed);
  extrema_ = new FrameExtrema(session_, changed);
  quality_ = new FrameQuality(session_, changed);
  view_ = new FrameView(session_, changed);
  dataMove_ = TranslationFrame::dati(session_, changed);
  depthMove_ = TranslationFrame::fondo(session_, changed);
  picture_ = new CoordPic(session_, changed, [this](const PuntoPixel& place) { mostraPunto(place); });
  pictureFiles_ = std::make_unique<PictureFiles>(
      session_, [this] { return sezione() ? flat_->picture()->spiegata() : picture_->spiegata(); });

  left_ = new PanelColumn("LeftColumn", LeftWidth, {fileIn_, fileOut_, extrema_, quality_}, fileIn_);
  auto* layout = new QHBoxLayout;
  right_ = new EdgePanel(layout, new PanelColumn("RightColumn", RightWidth, {view_, dataMove_, depthMove_}, nullptr));

  auto* centre = new QWidget;
  centre->setLayout(layout);
  layout->setContentsMargins(Unit, Unit, Unit, 0);
  layout->setSpacing(Unit);
  layout->addWidget(left_);
  auto* Frame1 = Named(new QWidget, "Frame1");
  auto* inner = new QHBoxLayout(Frame1);
  inner->setContentsMargins(0, 0, 0, 0);
  pages_ = new Pages(picture_);
  table_ = new TablePage(session_, changed);
  inner->addWidget(pages_);
  layout->addWidget(Frame1, 1);
  right_->setParent(centre);
  setCentralWidget(centre);
  messages_ = new FindingsList(session_.findings(), this);
  status_ = new StatusLine(session_, [this] { messages_->apri(); });
  status_->segui(picture_);
  statusBar()->addWidget(status_, 1);
  picked_ = new PickedLines(session_, picture_);
  connect(view_->pin(), &QCheckBox::toggled, this, [this] { mostraVista(true); });
  creaSezione();
}

void Corvan::creaSezione() {
  const auto pointed = [this](const QPoint& place) { disponiVista(flat_->picture()->mapTo(this, place)); };
  const auto told = [this](const std::string& text) { status_->mostraLettura(QString::fromStdString(text)); };
  flat_ = new SectionPage(
      session_, [this] { aggiorna(); }, pointed, told);
  connect(pages_, &QStackedWidget::currentChanged, this, [this] {
    session_.section.mostrata(sezione());
    status_->dellaSezione(sezione());
    aggiorna();
  });
}

QAction* Corvan::voce(QMenu* menu, const char* name, const QString& caption, const QKeySequence& key,
                      const std::function<void()>& run) {
  QAction* action = menu->addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setShortcut(key);
  connect(action, &QAction::triggered, this, run);
  return action;
}

QAction* Corvan::voce(QMenu* menu, const char* name, const QString& caption, const QKeySequence& key,
                      const char* control) {
  return voce(menu, name, caption, key, [this, control = std::string(control)] {
    EseguiControllo(session_, control);
    aggiorna();
  });
}

void Corvan::creaMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("File");
  const auto open = [this](const char* control, Frame* panel) {
    return [this, control = std::string(control), panel] {
      EseguiControllo(session_, control);
      aggiorna();
      panel->inizia();
    };
  };
  voce(file, "LoadFiles", "&Load Floating Electrodes File(s)", QKeySequence::Open, open("LoadFiles_Click", fileIn_));
  voce(file, "LoadGPS", "Load E&xternal GPS file", QKeySequence("Ctrl+G"), [this] { leggiTraccia(); });
  voce(file, "ReadSelected", "&Read Selected File(s)", QKeySequence("Ctrl+Shift+R"),
       [this] { fileIn_->leggiScelti(); });
  voce(file, "AddFiles", "&Add Selected File(s) to Survey", QKeySequence("Ctrl+Shift+A"),
       [this] { fileIn_->aggiungi(); });
  file->addMenu(new RecentMenu(
      remembered_, [this](const QStringList& files) { leggi(files); }, this));
  file->addSeparator();
  voce(file, "OpenProject", "Open Pro&ject\u2026", QKeySequence("Ctrl+J"), [this] {
    projects_.apri();
    aggiorna();
  });
  voce(file, "SaveProject", "Save Projec&t\u2026", QKeySequence("Ctrl+Shift+J"), [this] {
    projects_.salva();
    aggiorna();
  });
  file->addSeparator();
  voce(file, "SaveFileOut", "Save File Out (.&BIN format)", QKeySequence::Save, open("SaveFileOut_Click", fileOut_));
  voce(file, "SaveFileOutTxt", "Save File Out (.T&XT Format)", QKeySequence("Ctrl+T"),
       open("SaveFileOutTxt_Click", fileOut_));
  voce(file, "SaveEcho", "Save &EchoSounder Profile", QKeySequence("Ctrl+E"), open("SaveEcho_Click", fileOut_));
  file->addSeparator();
  voce(file, "Exit", "E&xit", QKeySequence("Ctrl+Q"), [this] { close(); });

  QMenu* operation = menuBar()->addMenu("Operation");
  operation->setObjectName("Operation");
  undo_ = voce(operation, "Undo", "&Undo", QKeySequence::Undo, "Undo_Click");
  operation->addSeparator();
  voce(operation, "LinkToGPST", "Link Data to External GPS by Time", QKeySequence("Ctrl+L"), "LinkToGPST_Click");
  voce(operation, "LinkToGPSP", "Link Data to External GPS by Pos.", {}, "LinkToGPSP_Click");
  operation->addSeparator();
  voce(operation, "SetUtmZone", "Set UTM Zone", QKeySequence("Ctrl+U"), "SetUtmZone_Click");
  voce(operation, "CableConf", "Set Cable Configuration", QKeySequence("Ctrl+K"), "CableConf_Click");
  voce(operation, "Quality", "&Quality of Readings", QKeySequence("Ctrl+Y"), open("Quality_Click", quality_));
  operation->addSeparator();
  voce(operation, "SelFirst", "Select First Data", QKeySequence("Ctrl+1"), open("SelFirst_Click", extrema_));
  voce(operation, "SelectLast", "Select Last Data", QKeySequence("Ctrl+2"), "SelectLast_Click");
  operation->addSeparator();
  voce(operation, "ShowMessages", "&Messages\u2026", QKeySequence("Ctrl+M"), [this] { messages_->apri(); });

  QMenu* image = menuBar()->addMenu("Image");
  image->setObjectName("Image");
  for (const LayerEntry& layer : LayerTable) {
    const std::string control = std::string(layer.name) + "_Click";
    QAction* action = voce(image, layer.name, layer.caption, QKeySequence(layer.key), control.c_str());
    action->setCheckable(true);
    switches_.push_back({action, layer.flag});
  }
  image->addSeparator();
  pages_->aggiungi(flat_, voce(image, "ShowSection", "S&ection", QKeySequence("F9"), [] {}));
  pages_->aggiungi(table_, voce(image, "ShowTable", "Ta&ble", QKeySequence("F11"), [] {}));
  image->addSeparator();
  voce(image, "MapView", "&Map View", QKeySequence("Ctrl+Shift+M"), "Mopt_Click");
  voce(image, "ObliqueView", "&Oblique View", QKeySequence("Ctrl+Shift+O"), "Oblique_Click");
  voce(image, "FrameSurvey", "&Whole Survey", QKeySequence("Ctrl+Shift+F"), "Frame_Click");
  image->addSeparator();
  QAction* copy = voce(image, "CopyPicture", "&Copy Picture", QKeySequence::Copy, [this] { pictureFiles_->copia(); });
  copy->setShortcutContext(Qt::WidgetShortcut);  // boxes and lists have a Ctrl+C of their own
  picture_->addAction(copy);
  flat_->picture()->addAction(copy);
  voce(image, "SavePictureAs", "Save &Picture As\u2026", QKeySequence("Ctrl+Shift+S"), [this] {
    pictureFiles_->salva();
    aggiorna();
  });
  image->addSeparator();
  colours_ = new ColourMenu(
      session_, [this] { aggiorna(); }, this);
  image->addMenu(colours_);
  mapColours_ = voce(image, "MapColours", "Map C&olours", QKeySequence("Ctrl+Shift+C"), "MapColours_Click");
  mapColours_->setCheckable(true);
  voce(image, "MapLevel", "Map &Level\u2026", QKeySequence("Ctrl+Shift+L"), "MapLevel_Click");
  voce(image, "Exaggeration", "&Vertical Exaggeration\u2026", QKeySequence("Ctrl+Shift+X"), "Exaggeration_Click");
  live_ = voce(image, "LiveRotation", "Live &Rotation", {}, [this] { ruotaViva(live_->isChecked()); });
  live_->setCheckable(true);

  QAction* info = menuBar()->addAction("Info");
  info->setObjectName("Info");
  connect(info, &QAction::triggered, this, [this] { AboutBox(this).exec(); });
  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("Help");
  voce(help, "Manual", "&Manual", QKeySequence::HelpContents, [this] { apriManuale(); });
  bar_ = CreaBarra(*this);
  image->addSeparator();
  QAction* shown = bar_->toggleViewAction();
  shown->setObjectName("ShowToolBar");
  shown->setText("Show &Tool Bar");
  image->addAction(shown);
}

/// Drags show the curtain itself, as long as the machine keeps up.
void Corvan::ruotaViva(bool live) {
  session_.view.rotazioneViva(live, [] {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
  });
}

void Corvan::apriManuale() {
  if (manual_ == nullptr) manual_ = new ManualWindow(this);
  manual_->apri();
}

void Corvan::ripristina(QSize usual) {
  remembered_.ripristinaFinestra(*this, usual);
  view_->pin()->setChecked(remembered_.vistaFissata());
  bar_->setVisible(remembered_.barraMostrata());
  live_->setChecked(remembered_.rotazioneViva());
  ruotaViva(live_->isChecked());
  liked_ = remembered_.vista();
  session_.view.proietta(liked_->perspective ? Projection::Perspective : Projection::Orthographic);
  session_.survey.colori().preferisci(liked_->palette, liked_->reversed, liked_->logarithmic);
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
  const ColourScale& colours = session_.survey.colours();
  return {state.layers, state.projection == Projection::Perspective, colours.palette, colours.reversed,
          colours.logarithmic};
}

void Corvan::closeEvent(QCloseEvent* event) {
  remembered_.ricordaFinestra(*this);
  remembered_.ricordaVistaFissata(view_->fissato());
  remembered_.ricordaBarraMostrata(!bar_->isHidden());
  remembered_.ricordaVista(vista());
  remembered_.ricordaRotazioneViva(live_->isChecked());
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
  if (DialogoFile_.FOpen()) leggiTracce(DialogoFile_.GetFileNames());
}

void Corvan::leggi(const QStringList& files) {
  const auto project = std::find_if(files.begin(), files.end(), ProjectFiles::progetto);
  if (project == files.end()) {
    fileIn_->leggi(files);
    return;
  }
  projects_.apri(*project);
  if (files.size() > 1) {
    session_.findings().fault("OpenProject", "not read: a project says itself which files it reads",
                              std::to_string(files.size() - 1) + (files.size() == 2 ? " other file" : " other files"));
  }
  aggiorna();
}

/// There is one external track at a time: of several files the first is read, and the others are told.
void Corvan::leggiTracce(const QStringList& files) {
  if (files.isEmpty()) return;
  leggiTraccia(files.front());
  if (files.size() == 1) return;
  QStringList left;
  for (const QString& file : files.mid(1)) left << QFileInfo(file).fileName();
  session_.findings().fault("LeggiGPSEsterno", "not read: there is one external track at a time, and another was first",
                            left.join(", ").toStdString());
  aggiorna();
}

void Corvan::leggiTraccia(const QString& file) {
  session_.findings().comincia("Load External GPS");
  session_.leggiTraccia(std::filesystem::path(file.toStdU16String()));
  aggiorna();
}

void Corvan::aggiorna() {
  const QWidget* focus = focusWidget();
  for (Frame* frame : {static_cast<Frame*>(fileIn_), static_cast<Frame*>(fileOut_), static_cast<Frame*>(extrema_),
                       static_cast<Frame*>(quality_), static_cast<Frame*>(view_), static_cast<Frame*>(dataMove_),
                       static_cast<Frame*>(depthMove_)}) {
    frame->mostra();
  }
  // The focus of a panel that closes goes to the page shown, not to whichever control comes next.
  if (focus != nullptr && !focus->isVisible()) pages_->metti();
  const bool anyLeft = session_.survey.FrameFileIn.visible || session_.exporter.FrameFileOut.visible ||
                       session_.selection.FrameExtrema.visible || session_.survey.qualita().FrameQuality.visible;
  left_->setVisible(anyLeft);
  mostraVista(!view_->isHidden());
  const QString undo = QString::fromStdString(session_.annullabile());
  undo_->setText(undo.isEmpty() ? QString("&Undo") : "&Undo " + undo);
  undo_->setEnabled(!undo.isEmpty());
  colours_->mostra();
  for (const Switch& s : switches_) s.action->setChecked(session_.view.state().layers.*s.layer);
  mapColours_->setChecked(session_.view.state().mappa.livello > 0);
  picture_->update();
  flat_->mostra();
  table_->mostra();
  ricordaLettura();
  if (liked_) liked_ = vista();
  status_->mostra();
  picked_->mostra();
  messages_->aggiorna();
}

void Corvan::mostraPunto(const PuntoPixel& place) {
  if (session_.mouse.dragging() != Dragging::Nothing) view_->mostra();
  status_->punta(place);
  disponiVista(picture_->mapTo(this, QPoint(place.X, place.Y) / devicePixelRatioF()));
}

/// The unpinned panel of the view shows while the pointer is near the window's right edge or over it.
void Corvan::disponiVista(const QPoint& pointer) {
  if (view_->fissato() || session_.mouse.dragging() != Dragging::Nothing) return;
  mostraVista(right_->richiesto(pointer));
}

void Corvan::mostraVista(bool shown) {
  if (shown == view_->isHidden()) view_->setVisible(shown);
  const bool others = session_.view.state().layers.MostraTraslazione;
  right_->mostra(shown || others, view_->fissato() || others ? EdgePanel::Place::Beside : EdgePanel::Place::Over);
}

void Corvan::leaveEvent(QEvent* event) {
  QMainWindow::leaveEvent(event);
  disponiVista({-1, -1});
}

void Corvan::dragEnterEvent(QDragEnterEvent* event) {
  if (!Lasciati(*event->mimeData()).empty()) event->acceptProposedAction();
}

void Corvan::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  const DroppedFiles dropped = Lasciati(*event->mimeData());
  if (!dropped.folder.isEmpty()) fileIn_->apri(dropped.folder);
  if (!dropped.surveys.isEmpty()) leggi(dropped.surveys);
  leggiTracce(dropped.tracks);
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile() && QFileInfo::exists(url.toLocalFile())) continue;
    session_.findings().note("dropEvent", "is no file of this machine: left out", url.toDisplayString().toStdString());
  }
  aggiorna();
}

}  // namespace corvan
