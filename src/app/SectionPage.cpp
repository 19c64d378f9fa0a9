#include "app/SectionPage.h"

#include <QVBoxLayout>
#include <utility>

#include "app/Frame.h"

namespace corvan {

SectionPage::SectionPage(Session& session, std::function<void()> changed, std::function<void(const QPoint&)> pointed,
                         std::function<void(const std::string&)> told)
    : bar_(new SectionBar(session, changed)),
      picture_(new SectionPic(session, changed, std::move(pointed), std::move(told))) {
  setObjectName("SectionPage");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Unit / 2);
  column->addWidget(bar_);
  column->addWidget(picture_, 1);
  setFocusProxy(picture_);
}

void SectionPage::mostra() {
  if (!isVisible()) return;
  bar_->mostra();
  picture_->update();
}

void SectionPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  bar_->mostra();
}

}  // namespace corvan
