// "File In": the choice of files, their coordinate format and the treatment of bad fixes.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

#include "app/FileList.h"
#include "app/Frame.h"

namespace corvan {

class FrameFileIn : public Frame {
 public:
  FrameFileIn(Session& session, std::function<void()> changed);

  void mostra() override;
  void chiudi() override { esegui("CancCmd_Click")(); }
  /// Shows a folder and makes it the current one, in which outputs without a folder of their own are written.
  void apriCartella(const QString& folder);
  /// Reads these files, as if they had been selected in their folder and "Read File" pressed.
  void leggi(const QStringList& files);
  /// Reads the selected files; none selected empties the survey.
  void leggiSelezione();
  /// The same, but shows the panel where nothing is selected.
  void leggiScelti();
  /// Reads the files of the survey and the selected ones behind them as one batch.
  void aggiungi();
  /// Shows the panel with a folder.
  void apri(const QString& folder);
  void inizia() override { File1_->setFocus(); }

 private:
  void mostraPerScegliere();
  void mostraCartelle();

  QComboBox* Drive1_;
  QListWidget* Dir1_;
  FileList* File1_;
  QComboBox* LatLonCmbx_;
  QRadioButton* Option1_;
  QRadioButton* Option2_;
  QRadioButton* Option3_;
  QCheckBox* pastGaps_;
  QLabel* Donelbl_;
};

}  // namespace corvan
