#include "app/QuestionBox.h"

#include <algorithm>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "app/Frame.h"

namespace corvan {
namespace {

constexpr int TextWidth = 52 * Unit;
constexpr int LinesShown = 10;

/// Text that is as high as it needs to be, up to some lines; longer ones scroll.
QPlainTextEdit* Dettagli(const QString& text) {
  auto* edit = Named(new QPlainTextEdit, "BoxDetails");
  edit->setReadOnly(true);
  edit->setTabChangesFocus(true);
  edit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  edit->setPlainText(text);
  const QFontMetrics metrics = edit->fontMetrics();
  const int bar = 3 * Unit;
  const QRect room(0, 0, TextWidth - bar, 1 << 20);
  const int lines =
      metrics.boundingRect(room, Qt::TextWordWrap | Qt::TextWrapAnywhere, text).height() / metrics.lineSpacing();
  const bool whole = lines <= LinesShown;
  if (whole) {
    edit->setFrameShape(QFrame::NoFrame);
    edit->viewport()->setAutoFillBackground(false);
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setFocusPolicy(Qt::ClickFocus);
  }
  edit->document()->setDocumentMargin(whole ? 0 : Unit / 2);
  edit->setFixedHeight((std::min(lines, LinesShown) + 1) * metrics.lineSpacing());
  edit->setMinimumWidth(TextWidth);
  return edit;
}

}  // namespace

QuestionBox::QuestionBox(const Text& text, Buttons buttons, QLineEdit* answer, QWidget* parent) : QDialog(parent) {
  setObjectName("QuestionBox");
  const QIcon mark(":/app/corvan.png");
  setWindowIcon(mark);
  setWindowTitle(text.title);
  auto* icon = new QLabel;
  icon->setPixmap(mark.pixmap(48, 48));
  auto* prompt = Named(new QLabel(text.prompt), "BoxPrompt");
  prompt->setTextFormat(Qt::PlainText);
  prompt->setWordWrap(true);
  prompt->setMinimumWidth(TextWidth);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(2 * Unit, 2 * Unit, 2 * Unit, 2 * Unit);
  grid->setHorizontalSpacing(2 * Unit);
  grid->setVerticalSpacing(Unit);
  grid->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
  grid->addWidget(prompt, 0, 1);
  if (!text.details.isEmpty()) grid->addWidget(Dettagli(text.details), 1, 1);
  auto* box =
      new QDialogButtonBox(buttons == Buttons::OkCancel ? QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                                        : QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok));
  connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (answer != nullptr) {
    answer->setObjectName("BoxAnswer");
    prompt->setBuddy(answer);
    grid->addWidget(answer, 2, 1);
    answer->setFocus();
    answer->selectAll();
  }
  grid->addWidget(box, 3, 0, 1, 2);
  grid->setRowStretch(2, 1);
  box->button(QDialogButtonBox::Ok)->setDefault(true);
  if (answer == nullptr) box->button(QDialogButtonBox::Ok)->setFocus();
}

void QuestionBox::preferisciAnnulla() {
  QPushButton* cancel = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
  cancel->setDefault(true);
  cancel->setFocus();
}

}  // namespace corvan
