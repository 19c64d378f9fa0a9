#include "session/Translations.h"

#include "base/NumberText.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

constexpr Mask Shift = "####0.0";

bool DelFondo(Translation what) { return what == Translation::DepthEast || what == Translation::DepthNorth; }

}  // namespace

double& Translations::spostamentoDati(Translation what) {
  return what == Translation::DataEast ? settings_.TraslDatiEst : settings_.TraslDatiNord;
}

float& Translations::spostamentoFondo(Translation what) {
  return what == Translation::DepthEast ? settings_.TraslFondoEst : settings_.TraslFondoNord;
}

void Translations::ricorda() {
  desk_.history.ricorda("Translation", [this, s = settings_, boxes = FrameDataMove] {
    settings_.TraslDatiEst = s.TraslDatiEst;
    settings_.TraslDatiNord = s.TraslDatiNord;
    settings_.TraslFondoEst = s.TraslFondoEst;
    settings_.TraslFondoNord = s.TraslFondoNord;
    FrameDataMove = boxes;
    desk_.tell(Change::Translation);
  });
}

void Translations::trasla(Translation what, double metres) {
  ricorda();
  if (DelFondo(what)) {
    spostamentoFondo(what) = ASingolo(metres);
    desk_.tell(Change::Depths);
  } else {
    spostamentoDati(what) = metres;
    desk_.tell(Change::Translation);
  }
}

void Translations::passo(Translation what, double metres) {
  ricorda();
  if (DelFondo(what)) {
    float& moved = spostamentoFondo(what);
    moved = SingoloOppure(static_cast<double>(moved) + metres, moved);
    // All four buttons show their value in the north box, the east ones too: a quirk of the panel that users know.
    FrameDataMove.DTnordTxt = FormattaNumero(static_cast<double>(moved), Shift);
    desk_.tell(Change::Depths);
  } else {
    double& moved = spostamentoDati(what);
    moved += metres;
    std::string& box = what == Translation::DataEast ? FrameDataMove.TestTxt : FrameDataMove.TnordTxt;
    box = FormattaNumero(moved, Shift);
    desk_.tell(Change::Translation);
  }
}

}  // namespace corvan
