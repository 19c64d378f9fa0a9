// "File Out": which formats of the section are written, and under which name.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>

#include "app/ElidedLabel.h"
#include "app/Frame.h"

namespace corvan {

class FrameFileOut : public Frame {
 public:
  FrameFileOut(Session& session, std::function<void()> changed);
  void mostra() override;
  void inizia() override;
  void chiudi() override;

 private:
  struct Choice {
    QCheckBox* box;
    bool OutputPanel::*value;
  };
  Choice aggiungi(const char* name, const QString& caption, bool OutputPanel::*value, const QString& toolTip = {});

  int aggiungiCavo(QGridLayout* grid, int row);

  void scegliCartella();
  void mostraCartella();

  std::vector<Choice> choices_;
  QLineEdit* FileOutTxt_;
  QComboBox* CableCmbx_;
  QLineEdit* SmoothTxt_;
  ElidedLabel* folder_;
};

}  // namespace corvan
