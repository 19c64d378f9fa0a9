#include "app/FileList.h"

#include <algorithm>
#include <filesystem>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <utility>

#include "app/NumericOrder.h"

namespace corvan {
namespace {

constexpr int Soon = 150;    // ms
constexpr int Again = 1000;  // ms

/// A file's row; its tool tip tells size and date as they are when it is asked for.
class FileItem : public QListWidgetItem {
 public:
  FileItem(const QString& name, const QString& folder) : QListWidgetItem(name), folder_(folder) {
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
  }
  QVariant data(int role) const override {
    if (role != Qt::ToolTipRole) return QListWidgetItem::data(role);
    const QFileInfo file(QDir(folder_).filePath(text()));
    QString told = text() + '\n';
    if (file.exists()) {
      told += QStringLiteral("%1 (%2)\n%3")
                  .arg(QLocale::c().formattedDataSize(file.size(), 1))
                  .arg(file.size() == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(file.size()))
                  .arg(file.lastModified().toString("yyyy-MM-dd hh:mm:ss"));
    } else {
      told += "no longer there";
    }
    return Qt::convertFromPlainText(told);  // else a name with angle brackets would be taken for markup
  }

 private:
  QString folder_;
};

/// Rows as wide as the list, so that names too long are cut in the middle; the row of a fault is wrapped instead.
class RowPainter : public QStyledItemDelegate {
 public:
  explicit RowPainter(const QListWidget* list) : QStyledItemDelegate(nullptr), list_(list) {}

 protected:
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize usual = QStyledItemDelegate::sizeHint(option, index);
    if (index.flags().testFlag(Qt::ItemIsEnabled)) return {0, usual.height()};
    constexpr int border = 8;
    const QRect room(0, 0, std::max(list_->viewport()->width() - 2 * border, 80), 1000);
    const int height = option.fontMetrics.boundingRect(room, Qt::TextWordWrap, index.data().toString()).height();
    return {0, height + border};
  }
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.flags().testFlag(Qt::ItemIsEnabled)) option->features |= QStyleOptionViewItem::WrapText;
  }

 private:
  const QListWidget* list_;
};

struct Listing {
  QStringList names;  ///< in numeric order
  QString fault;      ///< why there are none
};

QString Nome(const std::filesystem::path& file) {
#ifdef Q_OS_WIN
  return QString::fromStdWString(file.filename().native());
#else
  return QFile::decodeName(file.filename().c_str());
#endif
}

/// Not through QDir, which shows a folder that cannot be listed as an empty one.
Listing Elenca(const QString& folder) {
  Listing listing;
  std::error_code error;
  std::filesystem::directory_iterator file(std::filesystem::path(folder.toStdU16String()), error);
  for (; !error && file != std::filesystem::directory_iterator(); file.increment(error)) {
    std::error_code unknown;  // a link to nowhere is no file
    if (!file->is_regular_file(unknown)) continue;
    const QString name = Nome(file->path());
    if (!QFileInfo(QDir(folder).filePath(name)).isHidden()) listing.names << name;
  }
  if (error) return {{}, QString::fromLocal8Bit(error.message())};
  std::sort(listing.names.begin(), listing.names.end(), PrimaPerNumero);
  return listing;
}

/// Takes out the rows of files that are gone, and puts new files behind the one that each follows by number, wherever
/// that was dragged. @param names in numeric order
template <class Row>
void Ordina(std::vector<Row>& rows, const QStringList& names) {
  const auto among = [](const QStringList& list, const QString& name) {
    return std::binary_search(list.begin(), list.end(), name, PrimaPerNumero);
  };
  std::erase_if(rows, [&](const Row& row) { return !among(names, row.name); });
  QStringList known;
  for (const Row& row : rows) known << row.name;
  std::sort(known.begin(), known.end(), PrimaPerNumero);
  auto last = rows.end();  // what was put in last, where the next one mostly follows
  const QString* previous = nullptr;
  for (const QString& name : names) {
    if (!among(known, name)) {
      if (previous == nullptr) {
        last = rows.insert(rows.begin(), Row{name, false});
      } else {
        if (last == rows.end() || last->name != *previous) last = std::ranges::find(rows, *previous, &Row::name);
        last = rows.insert(std::next(last), Row{name, false});
      }
    }
    previous = &name;
  }
}

}  // namespace

FileList::FileList(std::function<void()> read) : read_(std::move(read)) {
  setObjectName("File1");
  setSelectionMode(ExtendedSelection);
  setDragEnabled(true);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setResizeMode(Adjust);
  auto* painter = new RowPainter(this);
  painter->setParent(this);
  setItemDelegate(painter);
  soon_.setSingleShot(true);
  soon_.setInterval(Soon);
  again_.start(Again);
  connect(&soon_, &QTimer::timeout, this, [this] { aggiorna(); });
  connect(&again_, &QTimer::timeout, this, [this] { guarda(); });
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] {
    if (!soon_.isActive()) soon_.start();  // not put off by each further change: a logger never stops writing
  });
  connect(this, &QListWidget::itemDoubleClicked, this, [this] { leggi(); });
}

void FileList::apri(const QString& folder) {
  const QString wanted = QDir(folder).absolutePath();
  if (wanted != folder_) {
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    clear();
    lost_.clear();
    failed_ = false;
    folder_ = wanted;
  }
  aggiorna();
}

void FileList::aggiorna() {
  if (folder_.isEmpty()) return;
  if (carrying_ || state() != NoState) return soon_.start();  // not under the user's hand
  // Watched before it is listed, so that no change falls between.
  if (!watcher_.directories().contains(folder_)) watcher_.addPath(folder_);
  changed_ = QFileInfo(folder_).lastModified();
  const Listing listing = Elenca(folder_);
  if (!listing.fault.isEmpty()) return mostraGuasto(listing.fault);
  std::vector<Row> rows = failed_ ? std::exchange(lost_, {}) : righe();
  Ordina(rows, listing.names);
  mostra(rows);
}

/// What the watcher is not told of: a folder renamed, taken away with its volume, or changed from another machine.
void FileList::guarda() {
  if (!isVisible() || folder_.isEmpty() || (!failed_ && QFileInfo(folder_).lastModified() == changed_)) return;
  watcher_.removePath(folder_);  // it may still follow the folder that had this name before
  aggiorna();
}

std::vector<FileList::Row> FileList::righe() const {
  std::vector<Row> rows;
  for (int r = 0; r < count(); ++r) rows.push_back({item(r)->text(), item(r)->isSelected()});
  return rows;
}

/// Takes rows out and puts rows in; those that stay are not touched, so that the place of the keyboard stays, too.
void FileList::mostra(const std::vector<Row>& rows) {
  if (failed_) clear();
  failed_ = false;
  QStringList wanted;
  for (const Row& row : rows) wanted << row.name;
  QStringList sorted = wanted;
  std::sort(sorted.begin(), sorted.end());
  for (int r = count() - 1; r >= 0; --r) {
    if (!std::binary_search(sorted.begin(), sorted.end(), item(r)->text())) delete takeItem(r);
  }
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    const Row& row = rows[static_cast<std::size_t>(r)];
    if (item(r) != nullptr && item(r)->text() == row.name) continue;
    insertItem(r, new FileItem(row.name, folder_));
    item(r)->setSelected(row.selected);
  }
}

void FileList::mostraGuasto(const QString& reason) {
  if (!failed_) lost_ = righe();
  failed_ = true;
  watcher_.removePath(folder_);
  const QString told = "This folder cannot be listed: " + reason;
  if (count() == 1 && item(0)->text() == told) return;
  clear();
  auto* row = new QListWidgetItem(told, this);
  row->setFlags(Qt::NoItemFlags);
  row->setToolTip(Qt::convertFromPlainText(QDir::toNativeSeparators(folder_) + '\n' + reason));
}

QStringList FileList::scelti() const {
  QStringList files;
  for (const Row& row : righe()) {
    if (row.selected) files << QDir(folder_).absoluteFilePath(row.name);
  }
  return files;
}

void FileList::leggi() {
  if (!selectedItems().isEmpty()) read_();
}

/// Enter reads, Alt with an arrow moves the selected rows, Escape lets those go that hang on the mouse.
void FileList::keyPressEvent(QKeyEvent* event) {
  const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (selectedItems().isEmpty() && !failed_ && currentItem() != nullptr) currentItem()->setSelected(true);
    leggi();
  } else if (event->key() == Qt::Key_Escape && carrying_) {
    posa();
  } else if (arrow && event->modifiers() == Qt::AltModifier && !selectedItems().isEmpty()) {
    const std::vector<Row> rows = righe();
    const auto first = std::ranges::find(rows, true, &Row::selected);
    const auto behind = std::ranges::find(rows.rbegin(), rows.rend(), true, &Row::selected).base();
    sposta(static_cast<int>(event->key() == Qt::Key_Up ? first - rows.begin() - 1 : behind - rows.begin() + 1));
  } else {
    return QListWidget::keyPressEvent(event);
  }
  event->accept();
}

/// The rows hang on the mouse from here on. Nothing is handed to the desktop: they belong nowhere but here.
void FileList::startDrag(Qt::DropActions) {
  if (failed_ || selectedItems().isEmpty()) return;
  carrying_ = true;
  viewport()->setCursor(Qt::DragMoveCursor);
}

void FileList::mouseMoveEvent(QMouseEvent* event) {
  if (!carrying_) QListWidget::mouseMoveEvent(event);  // it would go on to select
  if (carrying_) puntaRiga(event->position().toPoint());
}

void FileList::puntaRiga(const QPoint& pointer) {
  QScrollBar* bar = verticalScrollBar();
  if (pointer.y() < 0) bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
  if (pointer.y() > viewport()->height()) bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  target_ = 0;
  while (target_ < count() && visualItemRect(item(target_)).center().y() < pointer.y()) ++target_;
  viewport()->update();
}

void FileList::mouseReleaseEvent(QMouseEvent* event) {
  if (!carrying_) return QListWidget::mouseReleaseEvent(event);
  posa();
  sposta(target_);
}

/// Puts the selected rows above a row, one behind the other.
void FileList::sposta(int row) {
  int above = std::clamp(row, 0, count());
  std::vector<QListWidgetItem*> moved;
  for (int r = count() - 1; r >= 0; --r) {
    if (!item(r)->isSelected()) continue;
    if (r < above) --above;
    moved.insert(moved.begin(), takeItem(r));
  }
  for (QListWidgetItem* carried : moved) {
    insertItem(above++, carried);
    carried->setSelected(true);
  }
  if (!moved.empty()) setCurrentItem(moved.front(), QItemSelectionModel::NoUpdate);
}

void FileList::posa() {
  carrying_ = false;
  viewport()->unsetCursor();
  viewport()->update();
}

/// While rows are carried a line shows where they would be put.
void FileList::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (!carrying_ || count() == 0) return;
  const int y = target_ < count() ? visualItemRect(item(target_)).top() : visualItemRect(item(count() - 1)).bottom();
  QPainter(viewport()).fillRect(0, std::max(y - 1, 0), viewport()->width(), 2, palette().highlight());
}

}  // namespace corvan
