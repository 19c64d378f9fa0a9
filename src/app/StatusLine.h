// The status bar's two lines: survey, zone and what the last command told; below it the place under the pointer.
#pragma once

#include <functional>
#include <optional>
#include <QWidget>

#include "app/ElidedLabel.h"
#include "session/Session.h"

namespace corvan {

class StatusLine : public QWidget {
 public:
  /// @param openMessages shows the list of all findings
  StatusLine(Session& session, std::function<void()> openMessages);

  /// Shows what the last command told and what it changed.
  void mostra();
  /// The values under the pointer go when it leaves the picture.
  void segui(QWidget* picture) { picture->installEventFilter(this); }
  /// @param place in pixels of the picture
  void punta(const PuntoPixel& place);
  void lascia();
  /// The flat section is shown: one line for what lies under the pointer takes the place of the values on the map.
  void dellaSezione(bool section);
  void mostraLettura(const QString& text) { reading_->mostra(text); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void mostraNota();

  Session& session_;
  std::optional<PuntoPixel> pointer_;
  std::function<void()> openMessages_;
  ElidedLabel *files_, *zone_, *note_;
  ElidedLabel *place_, *degrees_, *point_, *cell_, *reading_, *section_;
};

}  // namespace corvan
