// "Extrema": the two ends of the section.
#pragma once

#include <QLabel>

#include "app/Frame.h"

namespace corvan {

class FrameExtrema : public Frame {
 public:
  FrameExtrema(Session& session, std::function<void()> changed);
  void mostra() override;
  void inizia() override;
  void chiudi() override;

 private:
  QLabel* PrimoLbl_;
  QLineEdit* E1Txt_;
  QLabel* SecondoLbl_;
  QLineEdit* E2txt_;
};

}  // namespace corvan
