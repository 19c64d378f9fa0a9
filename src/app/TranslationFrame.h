// "Data Translation" and "Depth Translation": what the view shows moved to the east and north.
#pragma once

#include "app/Frame.h"

namespace corvan {

/// The two panels differ in the names and commands of their controls.
class TranslationFrame : public Frame {
 public:
  struct Axis {
    const char *caption, *minus, *box, *plus, *toolTip, *lessTip, *moreTip;
    std::string TranslationPanel::*text;
    const char *less, *more, *enter;  ///< the controls
  };
  TranslationFrame(Session& session, const char* name, const QString& caption, const Axis& east, const Axis& north,
                   std::function<void()> changed);

  static TranslationFrame* dati(Session& session, std::function<void()> changed);
  static TranslationFrame* fondo(Session& session, std::function<void()> changed);

  void mostra() override;
  void chiudi() override;

 private:
  struct Box {
    QLineEdit* edit;
    std::string TranslationPanel::*text;
  };
  std::vector<Box> boxes_;
};

}  // namespace corvan
