// The bar above the flat section: which lines, which vertical axis, which curves.
#pragma once

#include <functional>
#include <QAction>
#include <QComboBox>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "session/Session.h"

namespace corvan {

class SectionBar : public QWidget {
 public:
  /// @param changed runs when a control has changed what is shown
  SectionBar(Session& session, std::function<void()> changed);

  /// Offers the survey's lines, and shows what is in force.
  void mostra();

 private:
  void scegliLinee(int index);
  QToolButton* creaCurve();

  Session& session_;
  std::function<void()> changed_;
  QComboBox* lines_;
  QComboBox* depth_;
  std::vector<QAction*> curves_;  ///< in the order of Curve
};

}  // namespace corvan
