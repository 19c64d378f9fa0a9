// A hand that answers the real boxes.
#pragma once

#include <functional>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QTimer>

#include "Window.h"

namespace corvan::test {

enum class By { Enter, Ok, Cancel, Escape };

struct Reply {
  By by = By::Enter;
  const char* text = nullptr;
};

/// Answers the boxes that open, one after the other, as a hand would.
class Hand {
 public:
  explicit Hand(std::vector<Reply> replies) : replies_(std::move(replies)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
    timer_.start(1);
  }
  ~Hand() { EXPECT_EQ(titles.size(), replies_.size()) << "boxes opened"; }
  Hand(const Hand&) = delete;
  Hand& operator=(const Hand&) = delete;

  std::vector<std::string> titles, prompts, details, texts;
  /// Looks at each box before it is answered.
  std::function<void(QWidget&)> inspect;

 private:
  void look() {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr || !box->isVisible() || answering_.contains(box)) return;
    const Reply reply = titles.size() < replies_.size() ? replies_[titles.size()] : Reply{By::Escape};
    auto* edit = box->findChild<QLineEdit*>();
    const auto* label = box->findChild<QLabel*>("BoxPrompt");
    const auto* below = box->findChild<QPlainTextEdit*>("BoxDetails");
    titles.push_back(box->windowTitle().toStdString());
    prompts.push_back(label == nullptr ? "" : label->text().toStdString());
    details.push_back(below == nullptr ? "" : below->toPlainText().toStdString());
    texts.push_back(edit == nullptr ? "" : edit->text().toStdString());
    if (inspect) inspect(*box);
    if (edit != nullptr && reply.text != nullptr) edit->setText(QString::fromUtf8(reply.text));
    // Once the timer has returned, so that it sees a box that this answer opens.
    answering_.append(box);
    QTimer::singleShot(0, box, [this, box, edit, reply] {
      answer(box, edit, reply);
      answering_.removeOne(box);
    });
  }

  static void answer(QWidget* box, QLineEdit* edit, const Reply& reply) {
    const auto* buttons = box->findChild<QDialogButtonBox*>();
    const auto press = [&](std::initializer_list<QDialogButtonBox::StandardButton> any) {
      for (const auto one : any) {
        if (QPushButton* button = buttons->button(one)) return QTest::mouseClick(button, Qt::LeftButton);
      }
      ADD_FAILURE() << "no such button in " << box->windowTitle().toStdString();
      QTest::keyClick(box, Qt::Key_Escape);
    };
    if (reply.by == By::Enter) QTest::keyClick(edit != nullptr ? edit : box, Qt::Key_Return);
    if (reply.by == By::Escape) QTest::keyClick(box, Qt::Key_Escape);
    if (reply.by == By::Ok) {
      press({QDialogButtonBox::Ok, QDialogButtonBox::Open, QDialogButtonBox::Save, QDialogButtonBox::Yes});
    }
    if (reply.by == By::Cancel) press({QDialogButtonBox::Cancel, QDialogButtonBox::No});
  }

  std::vector<Reply> replies_;
  QTimer timer_;
  QList<QWidget*> answering_;
};

}  // namespace corvan::test
