#include "app/ManualWindow.h"

#include <algorithm>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/Frame.h"

namespace corvan {

ManualWindow::ManualWindow(QWidget* parent, const QString& file)
    : QWidget(parent, Qt::Window),
      text_(new ManualText),
      headings_(Named(new QListWidget, "ManualHeadings")),
      find_(Named(new QLineEdit, "ManualFind", "Enter: the next place; Shift+Enter: the one before")),
      told_(Named(new QLabel, "ManualTold")) {
  setObjectName("ManualWindow");
  setWindowTitle("Corvan - Manual");
  find_->setPlaceholderText("Find (Ctrl+F)");
  find_->setClearButtonEnabled(true);
  find_->setFixedWidth(26 * Unit);
  headings_->setSpacing(Unit / 4);
  find_->installEventFilter(this);
  auto* bar = new QHBoxLayout;
  bar->setSpacing(Unit);
  bar->addWidget(find_);
  bar->addWidget(told_, 1);
  auto* panes = new QSplitter;
  panes->addWidget(headings_);
  panes->addWidget(text_);
  panes->setStretchFactor(1, 1);
  panes->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(Unit, Unit, Unit, Unit);
  layout->setSpacing(Unit);
  layout->addLayout(bar);
  layout->addWidget(panes, 1);
  resize(120 * Unit, 90 * Unit);

  text_->apri(file);
  creaTitoli();
  const int titles = std::min(headings_->sizeHintForColumn(0) + 4 * Unit, 40 * Unit);
  panes->setSizes({titles, 120 * Unit - titles});
  connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) { segui(address); });
  connect(find_, &QLineEdit::textChanged, this, [this] { cercaDaQui(); });
  auto* toFind = new QShortcut(QKeySequence::Find, this);
  connect(toFind, &QShortcut::activated, this, [this] {
    find_->setFocus();
    find_->selectAll();
  });
  auto* away = new QShortcut(Qt::Key_Escape, this);
  connect(away, &QShortcut::activated, this, &QWidget::close);
}

void ManualWindow::apri() {
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
  text_->setFocus();
}

void ManualWindow::creaTitoli() {
  for (const ManualText::Heading& heading : text_->titoli()) {
    headings_->addItem(QString(qsizetype{2} * (heading.level - 1), QLatin1Char(' ')) + heading.text);
    headings_->item(headings_->count() - 1)->setToolTip(heading.text);
  }
  const auto jump = [this] {
    if (headings_->currentRow() >= 0) text_->vai(static_cast<std::size_t>(headings_->currentRow()));
  };
  connect(headings_, &QListWidget::currentRowChanged, this, jump);
  connect(headings_, &QListWidget::itemClicked, this, jump);  // the same one again, after scrolling
}

void ManualWindow::segui(const QUrl& address) {
  told_->clear();
  if (address.scheme() == "http" || address.scheme() == "https") {
    if (!QDesktopServices::openUrl(address)) told_->setText("No program opens " + address.toString());
  } else if (!address.path().isEmpty() || !text_->vai(address.fragment())) {
    told_->setText(address.toString() + " is not in this manual");
  }
}

bool ManualWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return QWidget::eventFilter(watched, event);
  cerca(key->modifiers().testFlag(Qt::ShiftModifier) ? Direction::Back : Direction::Onwards);
  return true;
}

void ManualWindow::cerca(Direction direction) {
  told_->clear();
  if (find_->text().isEmpty()) return;
  const QTextDocument::FindFlags way =
      direction == Direction::Back ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text_->find(find_->text(), way)) return;
  const QTextCursor before = text_->textCursor();
  text_->moveCursor(direction == Direction::Back ? QTextCursor::End : QTextCursor::Start);
  if (text_->find(find_->text(), way)) {
    told_->setText(direction == Direction::Back ? "From the end again" : "From the beginning again");
    return;
  }
  text_->setTextCursor(before);
  told_->setText("Not found");
}

/// While a word is typed, the place found for its beginning stays as long as it fits.
void ManualWindow::cercaDaQui() {
  QTextCursor cursor = text_->textCursor();
  cursor.setPosition(cursor.selectionStart());
  text_->setTextCursor(cursor);
  cerca(Direction::Onwards);
}

}  // namespace corvan
