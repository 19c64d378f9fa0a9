// The page of the flat section: its bar and its picture.
#pragma once

#include <functional>
#include <QWidget>
#include <string>

#include "app/SectionBar.h"
#include "app/SectionPic.h"

namespace corvan {

class SectionPage : public QWidget {
 public:
  /// The functions are those of SectionPic.
  SectionPage(Session& session, std::function<void()> changed, std::function<void(const QPoint&)> pointed,
              std::function<void(const std::string&)> told);

  SectionPic* picture() const { return picture_; }
  /// Shows what the session holds; hidden, the page waits until it is shown.
  void mostra();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  SectionBar* bar_;
  SectionPic* picture_;
};

}  // namespace corvan
