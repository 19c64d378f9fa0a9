#include "app/Remembered.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>

namespace corvan {
namespace {

QString Chiave(const LayerEntry& layer) { return QStringLiteral("view/") + layer.name; }

constexpr int Arrangement = 1;  // of bars and docks; another number makes older ones void

/// So much of a title bar, in pixels, must lie on a screen for a hand to move the window back.
constexpr QSize Handle{120, 16};

bool Raggiungibile(const QRect& window) {
  return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen* screen) {
    const QRect title(window.topLeft(), QSize(window.width(), Handle.height()));
    const QRect seen = title & screen->availableGeometry();
    return seen.width() >= std::min(Handle.width(), window.width()) && seen.height() >= Handle.height() / 2;
  });
}

}  // namespace

Remembered::Remembered() : settings_(QSettings::defaultFormat(), QSettings::UserScope, "Ardevo", "Corvan") {}

bool Remembered::vero(const QString& key, bool otherwise) const {
  const QString text = settings_.value(key).toString();
  return text == "true" || (text != "false" && otherwise);
}

QString Remembered::cartella() const {
  const QString folder = settings_.value("folder").toString();
  return QDir::isAbsolutePath(folder) && QFileInfo(folder).isDir() ? folder : QString();
}

void Remembered::ricordaCartella(const QString& folder) { settings_.setValue("folder", QDir(folder).absolutePath()); }

ViewPreferences Remembered::vista() const {
  ViewPreferences view;
  for (const LayerEntry& layer : LayerTable) {
    view.layers.*layer.flag = vero(Chiave(layer), view.layers.*layer.flag);
  }
  view.perspective = settings_.value("view/projection").toString() == "perspective";
  const std::string palette = settings_.value("view/palette").toString().toStdString();
  if (const PaletteEntry* entry = PaletteDaParola(palette)) view.palette = entry->name;
  view.reversed = vero("view/reversedColours", view.reversed);
  view.logarithmic = vero("view/logarithmicColours", view.logarithmic);
  return view;
}

void Remembered::ricordaVista(const ViewPreferences& view) {
  for (const LayerEntry& layer : LayerTable) settings_.setValue(Chiave(layer), view.layers.*layer.flag);
  settings_.setValue("view/projection", view.perspective ? "perspective" : "orthographic");
  settings_.setValue("view/palette", VoceDi(view.palette).word);
  settings_.setValue("view/reversedColours", view.reversed);
  settings_.setValue("view/logarithmicColours", view.logarithmic);
}

std::vector<QStringList> Remembered::recenti() const {
  std::vector<QStringList> surveys;
  const int stored = std::min(settings_.beginReadArray("recent"), MostSurveys);  // a damaged number may be any
  for (int k = 0; k < stored; ++k) {
    settings_.setArrayIndex(k);
    QStringList files = settings_.value("files").toStringList();
    files.removeIf([](const QString& file) { return !QDir::isAbsolutePath(file); });
    if (!files.isEmpty() && std::ranges::find(surveys, files) == surveys.end()) surveys.push_back(files);
  }
  settings_.endArray();
  return surveys;
}

void Remembered::ricordaLettura(const QStringList& files) {
  if (files.isEmpty()) return;
  QStringList whole;
  for (const QString& file : files) whole << QFileInfo(file).absoluteFilePath();
  std::vector<QStringList> surveys = recenti();
  std::erase(surveys, whole);
  surveys.insert(surveys.begin(), whole);
  surveys.resize(std::min<std::size_t>(surveys.size(), MostSurveys));
  settings_.remove("recent");
  settings_.beginWriteArray("recent", static_cast<int>(surveys.size()));
  for (int k = 0; k < static_cast<int>(surveys.size()); ++k) {
    settings_.setArrayIndex(k);
    settings_.setValue("files", surveys[static_cast<std::size_t>(k)]);
  }
  settings_.endArray();
}

void Remembered::dimenticaRecenti() { settings_.remove("recent"); }

void Remembered::ricordaFinestra(const QMainWindow& window) {
  settings_.setValue("window/geometry", window.saveGeometry());
  settings_.setValue("window/state", window.saveState(Arrangement));
}

void Remembered::ripristinaFinestra(QMainWindow& window, QSize usual) const {
  window.restoreState(settings_.value("window/state").toByteArray(), Arrangement);
  const bool restored = window.restoreGeometry(settings_.value("window/geometry").toByteArray());
  if (restored && Raggiungibile(window.frameGeometry())) return;
  const QScreen* screen = QGuiApplication::primaryScreen();
  constexpr int titleBar = 40;  // not part of what is sized here
  const QRect room = screen->availableGeometry().adjusted(0, titleBar, 0, 0);
  window.setWindowState(Qt::WindowNoState);
  window.resize(usual.boundedTo(room.size()));
  window.move(room.center() - window.rect().center() - QPoint(0, titleBar / 2));
}

}  // namespace corvan
