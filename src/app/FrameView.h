// "View": angles, zoom, projection and the picture's file.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

#include "app/Frame.h"

namespace corvan {

class FrameView : public Frame {
 public:
  FrameView(Session& session, std::function<void()> changed);
  void mostra() override;
  void chiudi() override;
  /// Stays at the window's edge; else it shows itself only while the pointer is near.
  bool fissato() const { return pin_->isChecked(); }
  QCheckBox* pin() const { return pin_; }

 private:
  struct Row {
    const char *check, *minus, *box, *plus;
    const char *caption, *boxTip, *lessTip, *moreTip;
    bool ViewPanel::*free;  ///< the mouse may change it; none for the zoom
    std::string ViewPanel::*text;
    const char *less, *more, *enter;  ///< the controls
  };

  void riga(QGridLayout* grid, int row, const Row& r);

  struct Box {
    QLineEdit* edit;
    std::string ViewPanel::*text;
  };
  std::vector<Box> boxes_;
  QRadioButton* Oopt_;
  QRadioButton* Popt_;
  QRadioButton* Mopt_;
  QCheckBox* pin_;
};

}  // namespace corvan
