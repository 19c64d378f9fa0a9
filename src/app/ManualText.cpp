#include "app/ManualText.h"

#include <algorithm>
#include <cmath>
#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "app/Frame.h"

namespace corvan {
namespace {

/// How an address names a heading: in small letters, words joined by "-", without marks.
QString Indirizzo(const QString& heading) {
  QString address;
  for (const QChar c : heading.toLower()) {
    if (c.isLetterOrNumber() || c == '-' || c == '_') address += c;
    if (c.isSpace()) address += '-';
  }
  return address;
}

/// Thin lines between the cells and some room in them.
void OrnaTabelle(QTextFrame* frame, const QColor& line) {
  for (QTextFrame* child : frame->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(child)) {
      QTextTableFormat format = table->format();
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderBrush(line);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setCellPadding(Unit / 2);
      table->setFormat(format);
    }
    OrnaTabelle(child, line);
  }
}

/// Room around headings, paragraphs and pictures, and between the lines.
void SpaziaCapoversi(QTextDocument* document) {
  for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
    QTextCursor cursor(block);
    if (cursor.currentTable() != nullptr) continue;
    QTextBlockFormat format = block.blockFormat();
    const bool picture = block.begin() != block.end() && block.begin().fragment().charFormat().isImageFormat();
    if (format.headingLevel() > 1) format.setTopMargin(3 * Unit);
    format.setBottomMargin(Unit);
    if (!picture) format.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
    cursor.setBlockFormat(format);
  }
}

void ColoraLegami(QTextDocument* document, const QBrush& colour) {
  std::vector<std::pair<int, int>>
      links;  // first position and the one behind; found first, since colouring joins pieces
  for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      if (!fragment.charFormat().isAnchor()) continue;
      links.emplace_back(fragment.position(), fragment.position() + fragment.length());
    }
  }
  QTextCharFormat format;
  format.setForeground(colour);
  for (const auto& [first, behind] : links) {
    QTextCursor link(document);
    link.setPosition(first);
    link.setPosition(behind, QTextCursor::KeepAnchor);
    link.mergeCharFormat(format);
  }
}

}  // namespace

ManualText::ManualText() {
  setObjectName("ManualText");
  setOpenLinks(false);
  document()->setDocumentMargin(2 * Unit);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // one that comes and goes would change the width each time
  resized_.setSingleShot(true);
  resized_.setInterval(40);  // ms; a window that is being drawn larger measures its pictures once it rests
  connect(&resized_, &QTimer::timeout, this, [this] { misuraFigure(); });
}

void ManualText::apri(const QString& file) {
  QFile text(file);
  folder_ = QFileInfo(file).path();
  markdown_ = text.open(QIODevice::ReadOnly) ? QString::fromUtf8(text.readAll())
                                             : "# " + file + "\n\nThis text cannot be read: " + text.errorString();
  componi();
}

/// Anew for each palette: the colours of links become part of the text when it is read.
void ManualText::componi() {
  composing_ = true;
  const bool dark = palette().color(QPalette::Base).lightnessF() < palette().color(QPalette::Text).lightnessF();
  QPalette colours = palette();
  colours.setColor(QPalette::Link, dark ? QColor(0x63b8ff) : QColor(0x0a5fae));
  setPalette(colours);
  setMarkdown(markdown_);
  const QColor ink = colours.color(QPalette::Text);
  const QColor ground = colours.color(QPalette::Base);
  OrnaTabelle(document()->rootFrame(),
              QColor((ink.red() + 2 * ground.red()) / 3, (ink.green() + 2 * ground.green()) / 3,
                     (ink.blue() + 2 * ground.blue()) / 3));
  SpaziaCapoversi(document());
  headings_.clear();
  pictures_.clear();
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level > 0) headings_.push_back({block.text(), level, block.blockNumber()});
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextCharFormat format = piece.fragment().charFormat();
      if (format.isImageFormat()) pictures_.push_back(format.toImageFormat().name());
    }
  }
  ColoraLegami(document(), colours.link());
  misuraFigure();
  composing_ = false;
}

void ManualText::misuraFigure() {
  for (const QUrl& picture : pictures_) {
    document()->addResource(QTextDocument::ImageResource, picture, loadResource(QTextDocument::ImageResource, picture));
  }
  document()->markContentsDirty(0, document()->characterCount());
  if (top_ > 0) mostraDa(top_);
}

QVariant ManualText::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  QImage picture(folder_ + '/' + name.path());
  if (picture.isNull()) return {};
  const double density = devicePixelRatioF();
  const int room = viewport()->width() - static_cast<int>(std::ceil(2 * document()->documentMargin())) - 1;
  if (room > Unit && picture.width() > room) {
    const int width = static_cast<int>(room * density);
    if (width < picture.width()) picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(static_cast<double>(picture.width()) / room);
  }
  return picture;
}

int ManualText::primaPosizione() const {
  const int value = verticalScrollBar()->value();
  if (value == 0) return 0;
  QTextBlock block = document()->begin();
  while (block.next().isValid() && document()->documentLayout()->blockBoundingRect(block).bottom() <= value + 1) {
    block = block.next();
  }
  return block.position();
}

void ManualText::mostraDa(int position) {
  const QTextBlock block = document()->findBlock(position);
  verticalScrollBar()->setValue(static_cast<int>(document()->documentLayout()->blockBoundingRect(block).top()));
}

void ManualText::vai(std::size_t heading) {
  const QTextBlock block = document()->findBlockByNumber(headings_.at(heading).block);
  setTextCursor(QTextCursor(block));
  mostraDa(block.position());
}

bool ManualText::vai(const QString& fragment) {
  const auto heading =
      std::ranges::find_if(headings_, [&](const Heading& h) { return Indirizzo(h.text) == fragment.toLower(); });
  if (heading == headings_.end()) return false;
  vai(static_cast<std::size_t>(heading - headings_.begin()));
  return true;
}

void ManualText::resizeEvent(QResizeEvent* event) {
  const bool wider = event->size().width() != event->oldSize().width();
  if (wider && !resized_.isActive()) top_ = primaPosizione();  // before the lines break anew
  if (wider) resized_.start();
  QTextBrowser::resizeEvent(event);
}

void ManualText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || composing_ || markdown_.isEmpty()) return;
  top_ = primaPosizione();
  componi();
}

}  // namespace corvan
