#include "session/SurveyDesk.h"

#include <algorithm>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "survey/MeasurementText.h"
#include "track/Cable.h"
#include "track/TrackLink.h"

namespace corvan {
namespace {

constexpr const char* BadPositions = "Some Data have incorrect GPS position";
constexpr const char* OtherCables = "CreaCavoDaMisure";
constexpr const char* ZoneAssumed = "SelezionaZonaUTM";

}  // namespace

SurveyDesk::SurveyDesk(Desk desk) : desk_(std::move(desk)) { segnaZona(DefaultZone); }

void SurveyDesk::azzera() {
  FrameFileIn.DonelblVisible = false;
  survey_.settings = Settings{};
  colori_.azzera();
  segnaZona(DefaultZone);
  desk_.tell(Change::Label);
}

void SurveyDesk::segnaZona(std::int16_t zone) {
  survey_.settings.ZonaUTM = zone;
  survey_.settings.griglia.zone = std::clamp<std::int16_t>(zone, 1, 60);
  zona_ = InizializzaUTM(zone);
  info_ = "WGS 84 - UTM " + std::to_string(zone);
  warns_ = false;
}

void SurveyDesk::analizza() {
  desk_.tell(Change::Label);
  TrappolaUnaVolta(desk_.findings, "AnalisiFile", [this] {
    Findings found;
    fixes_ = AnalisiFile(survey_, found);
    qualita_.applica(found);
    desk_.findings.addUnaVolta(found);
    colori_.segui();
    desk_.tell(Change::Analysis);
  });
  rilevaPosizioni();
}

void SurveyDesk::rilevaPosizioni() {
  if (fixes_.bad == 0 && fixes_.discarded == 0) return;
  if (fixes_.bad > 0 && survey_.settings.filter == BadGps::NoFilter) {
    info_ = BadPositions;
    warns_ = true;
    desk_.tell(Change::Label);
  }
  desk_.findings.addUnaVolta(
      {Severity::Note, "AnalisiFile", "",
       std::string(BadPositions) + ": " + std::to_string(fixes_.bad) + " of " + std::to_string(survey_.NumMisure()) +
           ", " + std::to_string(fixes_.discarded) + " discarded, " + std::to_string(fixes_.interpolated) +
           " interpolated" + (fixes_.empty > 0 ? ", " + std::to_string(fixes_.empty) + " without any reading" : "")});
}

void SurveyDesk::scartaTutto() {
  ScartaSenzaTraccia(survey_);
  fixes_.discarded = survey_.Misure.size();
  colori_.segui();
}

/// Other readings are excluded than before.
void SurveyDesk::mostraQualita() {
  colori_.segui();
  desk_.tell(Change::Cells);
}

void SurveyDesk::rifai() {
  analizza();
  desk_.tell(Change::Cells);
}

void SurveyDesk::chiediCavo() {
  const std::string answer(Rifila(desk_.chiedi({.question = Question::CableConfiguration,
                                                .defaultAnswer = survey_.cavo.StringaCavo,
                                                .details = "Names and places (m) of C1, C2, E1 to E11 by turns; for " +
                                                           (survey_.files.size() > 1 ? "all " : std::string()) +
                                                           Quanti(survey_.files.size(), "file", "files") + "."})));
  if (!answer.empty()) impostaCavo(answer);
}

void SurveyDesk::impostaCavo(const std::string& text) {
  Trappola(desk_.findings, "ModificaCavo", [&] {
    const std::size_t tokens = ContaCampi(text, ScegliSeparatore(text));
    if (tokens < 2 * CableElectrodes) {
      desk_.findings.note("ModificaCavo", "the cable configuration has " + std::to_string(tokens) + " of " +
                                              std::to_string(2 * CableElectrodes) +
                                              " tokens, the missing positions are 0");
    }
    rilevaGettoni(text);
    rilevaElettrodiPropri();
    Cable before = survey_.cavo;
    survey_.cavo.PosCavo = LeggiStringaCavo(text);
    survey_.cavo.StringaCavo = text;
    // The cable that was typed holds for all.
    auto withdrawn = desk_.findings.ritira(OtherCables);
    desk_.history.ricorda(
        "Set Cable Configuration",
        [this, cable = std::move(before), found = std::move(withdrawn)]() mutable {
          survey_.cavo = std::move(cable);
          for (Finding& finding : found) desk_.findings.add(std::move(finding));
          rifai();
        },
        CableAct{text});
    rifai();
  });
}

/// Tells of the places of a cable that are no numbers.
void SurveyDesk::rilevaGettoni(const std::string& cable) {
  NumberCheck check;
  std::size_t k = 0;
  const std::string separator = ScegliSeparatore(cable);
  for (FieldCursor tokens(cable, separator); tokens.more() && k < 2 * CableElectrodes;) {
    const std::string_view token = tokens.next();
    if (++k % 2 == 0) check.leggi(token, 0, k);
  }
  if (check.count() > 0) desk_.findings.note("ModificaCavo", check.detto());
}

/// Tells of measurements that a typed cable says nothing about.
void SurveyDesk::rilevaElettrodiPropri() {
  const auto own = static_cast<std::size_t>(
      std::count_if(survey_.Misure.begin(), survey_.Misure.end(), [](const Misura& m) { return m.CavoProprio; }));
  if (own == 0) return;
  desk_.findings.note("ModificaCavo",
                      Quanti(own, "measurement keeps", "measurements keep") +
                          " the electrodes that the rows of a column text name: the cable is not used there");
}

/// What another zone does to the files of the survey.
std::string SurveyDesk::chiarisciZona() const {
  std::vector<bool> without(survey_.files.size());
  for (const Misura& m : survey_.Misure) {
    const auto* source = std::get_if<Grid>(&m.sorgente);
    if (source != nullptr && source->zone == 0 && survey_.fileDi(m) != nullptr) {
      without[static_cast<std::size_t>(m.NumFile) - 1] = true;
    }
  }
  const auto count = static_cast<std::size_t>(std::count(without.begin(), without.end(), true));
  if (count == 0) return "All positions are converted into it.";
  return std::to_string(count) + " of " + Quanti(without.size(), "file", "files") + (count == 1 ? " does" : " do") +
         " not state a zone: the eastings and northings there stay as they are.";
}

void SurveyDesk::chiediZona() {
  Trappola(desk_.findings, "SetUtmZone", [this] {
    const std::optional<std::string> answer =
        desk_.dialogs.InputBox({.question = Question::UtmZone,
                                .defaultAnswer = std::to_string(survey_.settings.ZonaUTM),
                                .details = chiarisciZona()});
    if (!answer) return;
    const std::optional<std::int16_t> zone =
        Rifila(*answer).empty() ? std::optional(DefaultZone)
                                : NumeroDaCasella<std::int16_t>(*answer, {"SetUtmZone", "zone"}, desk_.findings);
    if (zone) impostaZona(*zone);
  });
}

void SurveyDesk::dichiaraZona(std::int16_t zone) {
  segnaZona(zone);
  desk_.tell(Change::Label);
}

void SurveyDesk::impostaZona(std::int16_t zone) {
  const Settings before = survey_.settings;
  segnaZona(zone);
  const std::int16_t used = survey_.settings.griglia.zone;
  if (used != zone) {
    desk_.findings.fault("SetUtmZone", "zone " + std::to_string(zone) +
                                           " is not 1 to 60: positions are computed in zone " + std::to_string(used));
  }
  survey_.settings.CoordUTM = false;
  desk_.history.ricorda(
      "Set UTM Zone",
      [this, before, found = desk_.findings.ritira(ZoneAssumed)]() mutable {
        survey_.settings = before;
        segnaZona(before.ZonaUTM);
        for (Finding& finding : found) desk_.findings.add(std::move(finding));
        rifai();
      },
      ZoneAct{zone});
  rifai();
}

void SurveyDesk::chiediProfondita(std::int32_t index) {
  const auto k = static_cast<std::size_t>(index);
  Trappola(desk_.findings, "dptlbl_DblClick", [&] {
    if (survey_.Misure.size() < 2 || !survey_.Misure.contains(k)) return;
    const std::string point = "Measurement " + std::to_string(k) + " of " +
                              PercorsoDi(FileDi(survey_, survey_.Misure(k))).filename().string();
    const std::string change =
        TestoNumero(survey_.Misure(k).Val12) + " m becomes " + TestoNumero(profonditaDaiVicini(k)) + " m.";
    const MessageRequest box{Question::CorrectDepth, point + "\n" + change};
    if (desk_.dialogs.MsgBox(box) == Answer::Ok) correggiProfondita(index);
  });
}

/// The mean of the neighbours' depths, at an end that of the only one, m. @param k of two measurements or more
float SurveyDesk::profonditaDaiVicini(std::size_t k) const {
  const Array1<Misura>& Misure = survey_.Misure;
  if (k == 1) return Misure(2).Val12;
  if (k == Misure.size()) return Misure(k - 1).Val12;
  const double sum = static_cast<double>(Misure(k - 1).Val12) + static_cast<double>(Misure(k + 1).Val12);
  return ASingolo(sum * 0.5);
}

void SurveyDesk::correggiProfondita(std::int32_t index) {
  Trappola(desk_.findings, "dptlbl_DblClick", [this, index] {
    Array1<Misura>& Misure = survey_.Misure;
    const auto k = static_cast<std::size_t>(index);
    if (Misure.size() < 2 || !Misure.contains(k)) return;
    const float before = Misure(k).Val12;
    Misure(k).Val12 = profonditaDaiVicini(k);
    desk_.history.ricorda(
        "Correct Depth",
        [this, k, before] {
          survey_.Misure(k).Val12 = before;
          desk_.tell(Change::Depths);
        },
        DepthAct{index});
    desk_.tell(Change::Depths);
  });
}

}  // namespace corvan
