#include "app/RecentMenu.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QTextDocument>
#include <utility>

#include "app/Frame.h"

namespace corvan {
namespace {

QString Didascalia(const QFontMetrics& font, const QStringList& files, qsizetype missing) {
  QString caption = font.elidedText(QFileInfo(files.front()).fileName(), Qt::ElideMiddle, 40 * Unit);
  if (files.size() > 1) caption += QStringLiteral(" and %1 more").arg(files.size() - 1);
  if (missing == files.size()) {
    caption += files.size() == 1 ? " (no longer there)" : " (none is there)";
  } else if (missing > 0) {
    caption += QStringLiteral(" (%1 missing)").arg(missing);
  }
  return caption.replace('&', "&&");
}

}  // namespace

RecentMenu::RecentMenu(Remembered& remembered, std::function<void(const QStringList&)> read, QWidget* parent)
    : QMenu("Open &Recent", parent), remembered_(remembered), read_(std::move(read)) {
  setObjectName("OpenRecent");
  setToolTipsVisible(true);
  connect(this, &QMenu::aboutToShow, this, [this] { riempi(); });
  riempi();
}

void RecentMenu::riempi() {
  clear();
  const std::vector<QStringList> surveys = remembered_.recenti();
  for (const QStringList& files : surveys) aggiungi(files);
  if (surveys.empty()) addAction("No survey read yet")->setEnabled(false);
  addSeparator();
  QAction* forget = addAction("&Clear list");
  forget->setObjectName("ClearRecent");
  forget->setEnabled(!surveys.empty());
  connect(forget, &QAction::triggered, this, [this] { remembered_.dimenticaRecenti(); });
}

void RecentMenu::aggiungi(const QStringList& files) {
  const auto missing = std::ranges::count_if(files, [](const QString& file) { return !QFileInfo(file).isFile(); });
  QAction* action = addAction(Didascalia(fontMetrics(), files, missing));
  action->setToolTip(Qt::convertFromPlainText(QDir::toNativeSeparators(QFileInfo(files.front()).absolutePath()) + '\n' +
                                              QFileInfo(files.front()).fileName()));
  action->setEnabled(missing < files.size());
  connect(action, &QAction::triggered, this, [this, files] { read_(files); });
}

}  // namespace corvan
