// The two translations of the view: of the data and of the depth profile. Nothing that is written knows of them.
#pragma once

#include <string>

#include "session/BoxNumbers.h"
#include "session/Desk.h"
#include "session/Panels.h"
#include "survey/Survey.h"

namespace corvan {

/// What the two panels move, m.
enum class Translation { DataEast, DataNorth, DepthEast, DepthNorth };

/// A translation as it may be typed into its box: a quarter of the way round the earth at most.
constexpr BoxNumber CasellaDi(Translation what) {
  constexpr const char* procedures[] = {"TestTxt_KeyPress", "TnordTxt_KeyPress", "DTestTxt_KeyPress",
                                        "DTnordTxt_KeyPress"};
  return {procedures[static_cast<int>(what)], "translation", -1e7, 1e7};
}

class Translations {
 public:
  Translations(Desk desk, Settings& settings) : desk_(std::move(desk)), settings_(settings) {}

  TranslationPanel FrameDataMove;

  void trasla(Translation what, double metres);
  void passo(Translation what, double metres);  ///< the same by steps, shown in its box
  /// Another survey: its settings begin anew, and the boxes with them.
  void azzera() { FrameDataMove = TranslationPanel{}; }

 private:
  double& spostamentoDati(Translation what);
  float& spostamentoFondo(Translation what);
  void ricorda();

  Desk desk_;
  Settings& settings_;
};

}  // namespace corvan
