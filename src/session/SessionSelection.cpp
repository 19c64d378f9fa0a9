// The two extremes of the section, the depth correction and the translations of the view.
#include <string>

#include "base/ErrorTrap.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "session/BoxNumbers.h"
#include "session/Session.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr Mask Shift = "####0.0";
constexpr double FarthestShift = 1e7;  // m, a quarter of the way round the earth

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
  const auto index = NumeroDaCasella<std::int32_t>(FrameExtrema.E1Txt, {"E1Txt_KeyPress", "extreme"}, findings_);
  if (index) ptlbl_Click(*index);
}

void Session::E2txt_KeyPress(int key) {
  if (key != EnterKey) return;
  const auto index = NumeroDaCasella<std::int32_t>(FrameExtrema.E2txt, {"E2txt_KeyPress", "extreme"}, findings_);
  if (index) ptlbl_Click(*index);
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
  const auto metres = NumeroDaCasella<double>(
      FrameDataMove.TestTxt, {"TestTxt_KeyPress", "translation", -FarthestShift, FarthestShift}, findings_);
  if (!metres) return;
  survey_.settings.TraslDatiEst = *metres;
  rifaiDati();
}

void Session::TnordTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  const auto metres = NumeroDaCasella<double>(
      FrameDataMove.TnordTxt, {"TnordTxt_KeyPress", "translation", -FarthestShift, FarthestShift}, findings_);
  if (!metres) return;
  survey_.settings.TraslDatiNord = *metres;
  rifaiDati();
}

void Session::DTestTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  const auto metres = NumeroDaCasella<float>(
      FrameDataMove.DTestTxt, {"DTestTxt_KeyPress", "translation", -FarthestShift, FarthestShift}, findings_);
  if (!metres) return;
  survey_.settings.TraslFondoEst = *metres;
  rifaiFondo();
}

void Session::DTnordTxt_KeyPress(int key) {
  if (key != EnterKey) return;
  const auto metres = NumeroDaCasella<float>(
      FrameDataMove.DTnordTxt, {"DTnordTxt_KeyPress", "translation", -FarthestShift, FarthestShift}, findings_);
  if (!metres) return;
  survey_.settings.TraslFondoNord = *metres;
  rifaiFondo();
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
