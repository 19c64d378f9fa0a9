// "Quality": which readings are taken as bad.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <vector>

#include "app/Frame.h"

class QGridLayout;

namespace corvan {

class FrameQuality : public Frame {
 public:
  FrameQuality(Session& session, std::function<void()> changed);
  void mostra() override;
  void inizia() override;
  void chiudi() override;

 private:
  struct Box {
    QLineEdit* edit;
    std::optional<double> QualityLimits::*limit;
  };
  QLineEdit* limite(const char* name, const char* toolTip, std::optional<double> QualityLimits::*limit);
  QLineEdit* casella(const char* name, const char* toolTip);
  void riga(QGridLayout* grid, const char* caption, QLineEdit* box, const char* unit);

  std::vector<Box> limits_;
  QCheckBox* DespikeChk_;
  QLineEdit* DespikeTxt_;
  QLineEdit* DespikeWidthTxt_;
  QCheckBox* NegativeChk_;
  QLabel* QualityLbl_;
  QPushButton* ForgetCmd_;
};

}  // namespace corvan
