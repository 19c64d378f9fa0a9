// The two extremes of the section, the depth correction and the translations of the view.
#include <string>

#include "base/ErrorTrap.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "session/Session.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr Mask Shift = "####0.0";

/// The measurement number typed into a box.
std::int32_t IndiceDi(const std::string& box) { return AInt32(Val(box)); }

}  // namespace

void Session::ptlbl_Click(std::int32_t Index) {
  if (survey_.Misure.empty()) {
    findings_.fault("ptlbl_Click", "there is no measurement to select");
    return;
  }
  if (Index < 1 || Index > survey_.NumMisure()) {
    findings_.fault("ptlbl_Click",
                    "extreme " + std::to_string(Index) + " is not 1 to " + std::to_string(survey_.NumMisure()));
    return;
  }
  ++statoSelezione_;
  if (statoSelezione_ == 1) scegliEstremo(Index, FrameExtrema.E1Txt, FrameExtrema.PrimoLbl);
  if (statoSelezione_ == 2) scegliEstremo(Index, FrameExtrema.E2txt, FrameExtrema.SecondoLbl);
  if (statoSelezione_ > 2) azzeraSelezione();
  DisegnaImmagineQ();
}

void Session::E1Txt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "E1Txt_KeyPress", [this] { ptlbl_Click(IndiceDi(FrameExtrema.E1Txt)); });
}

void Session::E2txt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "E2txt_KeyPress", [this] { ptlbl_Click(IndiceDi(FrameExtrema.E2txt)); });
}

void Session::SelFirst_Click() { FrameExtrema.visible = true; }

void Session::SelectLast_Click() { FrameExtrema.visible = true; }

void Session::dptlbl_DblClick(std::int32_t Index) {
  Trappola(findings_, "dptlbl_DblClick", [this, Index] {
    if (dialogs_.MsgBox({"Correct Depth Value?", "", Buttons::OkCancel}) != Answer::Ok) return;
    Array1<Misura>& Misure = survey_.Misure;
    const auto k = static_cast<std::size_t>(Index);
    if (Misure.size() < 2 || !Misure.contains(k)) return;
    if (k == 1) {
      Misure(k).Val12 = Misure(2).Val12;
    } else if (k == Misure.size()) {
      Misure(k).Val12 = Misure(k - 1).Val12;
    } else {
      const double sum = static_cast<double>(Misure(k - 1).Val12) + static_cast<double>(Misure(k + 1).Val12);
      Misure(k).Val12 = ASingolo(sum * 0.5);
    }
    rifaiFondo();
  });
}

void Session::TestTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "TestTxt_KeyPress", [this] {
    survey_.settings.TraslDatiEst = Val(FrameDataMove.TestTxt);
    rifaiDati();
  });
}

void Session::TnordTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "TnordTxt_KeyPress", [this] {
    survey_.settings.TraslDatiNord = Val(FrameDataMove.TnordTxt);
    rifaiDati();
  });
}

void Session::DTestTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "DTestTxt_KeyPress", [this] {
    survey_.settings.TraslFondoEst = ASingolo(Val(FrameDataMove.DTestTxt));
    rifaiFondo();
  });
}

void Session::DTnordTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  Trappola(findings_, "DTnordTxt_KeyPress", [this] {
    survey_.settings.TraslFondoNord = ASingolo(Val(FrameDataMove.DTnordTxt));
    rifaiFondo();
  });
}

void Session::azzeraSelezione() {
  statoSelezione_ = 0;
  FrameExtrema.E1Txt.clear();
  FrameExtrema.E2txt.clear();
  FrameExtrema.PrimoLbl = FrameExtrema.SecondoLbl = TaggedLabel{};
  pickedFixes_.clear();
}

void Session::scegliEstremo(std::int32_t index, std::string& box, TaggedLabel& label) {
  box = std::to_string(index);
  label = {DescriviMisura(survey_, static_cast<std::size_t>(index)), box};
}

void Session::spostaDati(double east, double north) {
  Settings& s = survey_.settings;
  s.TraslDatiEst += east;
  s.TraslDatiNord += north;
  if (east != 0.0) FrameDataMove.TestTxt = FormattaNumero(s.TraslDatiEst, Shift);
  if (north != 0.0) FrameDataMove.TnordTxt = FormattaNumero(s.TraslDatiNord, Shift);
  rifaiDati();
}

void Session::spostaFondo(float& target, double step) {
  target = SingoloOppure(static_cast<double>(target) + step, target);
  // All four buttons show their value in the north box, the east ones too: a quirk of the panel that users know.
  FrameDataMove.DTnordTxt = FormattaNumero(static_cast<double>(target), Shift);
  rifaiFondo();
}

void Session::rifaiDati() {
  AnalisiFile();
  rifaiScena();
}

void Session::rifaiFondo() {
  GeneraTraiettoria(scene_, survey_);
  GeneraEchoSounder(scene_, survey_);
  DisegnaImmagineQ();
}

}  // namespace corvan
