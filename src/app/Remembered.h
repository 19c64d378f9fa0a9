// What is kept between two starts of the program. Nothing of a reading is among it.
#pragma once

#include <QMainWindow>
#include <QSettings>
#include <QStringList>
#include <vector>

#include "picture/Palette.h"
#include "view3d/Layers.h"

namespace corvan {

/// What the user likes to see.
struct ViewPreferences {
  Layers layers;
  bool perspective = false;
  PaletteName palette = PaletteName::Spectrum;
  bool reversed = false;  ///< its colours
  bool logarithmic = false;
};

/// Each value by itself: one that is missing or damaged counts as its default, and harms no other.
class Remembered {
 public:
  static constexpr int MostSurveys = 10;

  /// The user's own settings, in QSettings' default format.
  Remembered();

  /// The last folder that files were chosen in; empty if there is none, or it is gone.
  QString cartella() const;
  void ricordaCartella(const QString& folder);

  bool vistaFissata() const { return vero("view/pinned", true); }
  void ricordaVistaFissata(bool pinned) { settings_.setValue("view/pinned", pinned); }
  bool barraMostrata() const { return vero("window/toolBar", true); }
  void ricordaBarraMostrata(bool shown) { settings_.setValue("window/toolBar", shown); }

  bool rotazioneViva() const { return vero("view/liveRotation", false); }
  void ricordaRotazioneViva(bool live) { settings_.setValue("view/liveRotation", live); }

  ViewPreferences vista() const;
  void ricordaVista(const ViewPreferences& view);

  /// The files of the last surveys, in their order of reading, with their folder; newest survey first.
  std::vector<QStringList> recenti() const;
  /// Puts a survey to the front. The same files in another order are another survey.
  void ricordaLettura(const QStringList& files);
  void dimenticaRecenti();

  void ricordaFinestra(const QMainWindow& window);
  void dimenticaFinestra() { settings_.remove("window"); }
  /// Gives a window, not shown yet, its last place, size and arrangement. Where there is none, or its title bar could
  /// not be reached on any screen of today: the usual size, in the middle of its screen, as far as that has room.
  void ripristinaFinestra(QMainWindow& window, QSize usual) const;

 private:
  bool vero(const QString& key, bool otherwise) const;

  mutable QSettings settings_;  // reading a list moves its cursor
};

}  // namespace corvan
