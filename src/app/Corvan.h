// The main window: menus, panels, picture and status bar around one session.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QAction>
#include <QMainWindow>
#include <QToolBar>
#include <vector>

#include "app/ColourMenu.h"
#include "app/CoordPic.h"
#include "app/EdgePanel.h"
#include "app/FindingsList.h"
#include "app/FrameExtrema.h"
#include "app/FrameFileIn.h"
#include "app/FrameFileOut.h"
#include "app/FrameQuality.h"
#include "app/FrameView.h"
#include "app/ManualWindow.h"
#include "app/Pages.h"
#include "app/PickedLines.h"
#include "app/PictureFiles.h"
#include "app/ProjectFiles.h"
#include "app/Remembered.h"
#include "app/SaveOpen.h"
#include "app/SectionPage.h"
#include "app/StatusLine.h"
#include "app/TablePage.h"
#include "app/TranslationFrame.h"
#include "app/WindowDialogs.h"
#include "session/Session.h"

namespace corvan {

class Corvan : public QMainWindow {
 public:
  /// @param dialogs answers the program's questions; must outlive the window
  explicit Corvan(Dialogs& dialogs);
  ~Corvan() override;

  Session& session() { return session_; }
  /// Puts the window and the folder shown back to what they were when the program was last closed.
  void ripristina(QSize usual);
  /// Reads survey files, as if they had been selected and "Read File" pressed.
  /// The first project among them is opened instead; beside it nothing is read, which is told.
  void leggi(const QStringList& files);
  /// Reads an external track, as if it had been chosen in the dialog of "Load External GPS file".
  void leggiTraccia(const QString& file);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void creaMenu();
  void leggiTraccia();
  void leggiTracce(const QStringList& files);
  void creaPannelli();
  void creaSezione();
  QAction* voce(QMenu* menu, const char* name, const QString& caption, const QKeySequence& key,
                const std::function<void()>& run);
  QAction* voce(QMenu* menu, const char* name, const QString& caption, const QKeySequence& key, const char* control);
  void aggiorna();
  void apriManuale();
  void ricordaLettura();
  void ruotaViva(bool live);
  void riprendiVista();
  ViewPreferences vista() const;
  void mostraPunto(const PuntoPixel& place);
  void disponiVista(const QPoint& pointer);
  void mostraVista(bool shown);
  bool sezione() const { return pages_->currentWidget() == flat_; }

  WindowDialogs dialogs_;
  Session session_;
  SaveOpen DialogoFile_;
  Remembered remembered_;
  QStringList lastRead_;
  std::optional<ViewPreferences> liked_;  ///< none in a window that was not put back to what it was
  ManualWindow* manual_ = nullptr;

  FrameFileIn* fileIn_ = nullptr;
  FrameFileOut* fileOut_ = nullptr;
  FrameExtrema* extrema_ = nullptr;
  FrameQuality* quality_ = nullptr;
  FrameView* view_ = nullptr;
  TranslationFrame* dataMove_ = nullptr;
  TranslationFrame* depthMove_ = nullptr;
  QWidget* left_ = nullptr;
  EdgePanel* right_ = nullptr;
  Pages* pages_ = nullptr;
  CoordPic* picture_ = nullptr;
  SectionPage* flat_ = nullptr;
  TablePage* table_ = nullptr;
  std::unique_ptr<PictureFiles> pictureFiles_;
  ProjectFiles projects_{session_};

  struct Switch {
    QAction* action;
    bool Layers::*layer;
  };
  std::vector<Switch> switches_;
  ColourMenu* colours_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* mapColours_ = nullptr;
  QAction* live_ = nullptr;
  QToolBar* bar_ = nullptr;
  FindingsList* messages_ = nullptr;
  StatusLine* status_ = nullptr;
  PickedLines* picked_ = nullptr;
};

}  // namespace corvan
