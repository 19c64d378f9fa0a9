#include "session/ColourDesk.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "session/BoxNumbers.h"

namespace corvan {
namespace {

constexpr const char* RangeCommand = "Set Colour Scale Range";
constexpr const char* Procedure = "SetRange";

/// Bounds of the colours, ohm m, as they are typed.
std::string TestoScala(const ColourRange& range) {
  constexpr Mask bound = "#####0.0#";
  return FormattaNumero(static_cast<double>(range.ScalaMin), bound) + ";" +
         FormattaNumero(static_cast<double>(range.ScalaMax), bound);
}

std::string TestoPercentili(const Percentiles& share) {
  return "p" + TestoNumero(share.low) + "," + TestoNumero(share.high);
}

/// The readings that have a coloured cell.
std::vector<float> LettureConCella(const Survey& survey) {
  std::vector<float> readings;
  readings.reserve(MaxChannels * survey.Misure.size());
  for (const Misura& m : survey.Misure) {
    if (!Tenuta(m)) continue;
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      if (InUso(m, c) && std::isfinite(m.Rho.at(c))) readings.push_back(m.Rho.at(c));
    }
  }
  return readings;
}

}  // namespace

std::optional<Percentiles> PercentiliDaTesto(std::string_view text) {
  const std::string_view asked = Rifila(text);
  const std::size_t comma = asked.find(',');
  if (!asked.starts_with('p') || comma == std::string_view::npos) return std::nullopt;
  const std::string_view low = asked.substr(1, comma - 1), high = asked.substr(comma + 1);
  if (!SoloNumero(low) || !SoloNumero(high)) return std::nullopt;
  const Percentiles share{Val(low), Val(high)};
  const bool ordered = share.low >= 0.0 && share.low < share.high && share.high <= 100.0;
  return ordered ? std::optional(share) : std::nullopt;
}

std::optional<ColourRange> IntervalloPercentile(std::vector<float>& readings, const Percentiles& share) {
  if (readings.empty()) return std::nullopt;
  const auto at = [&readings](double percent) {
    const double place = static_cast<double>(readings.size() - 1) * percent / 100.0;
    const auto below = static_cast<std::ptrdiff_t>(place);
    const auto first = readings.begin() + below;
    std::nth_element(readings.begin(), first, readings.end());
    const double low = *first;
    if (first + 1 == readings.end()) return ASingolo(low);
    const double next = *std::min_element(first + 1, readings.end());
    return ASingolo(low + (next - low) * (place - static_cast<double>(below)));
  };
  const float low = at(share.low);
  return ColourRange{low, at(share.high)};
}

void ColourDesk::azzera() {
  if (choice_.from == RangeFrom::Typed) choice_.from = RangeFrom::Data;
  told_ = false;
}

void ColourDesk::segui() {
  deriva();
  rileva(false);
}

void ColourDesk::preferisci(PaletteName palette, bool reversed, bool logarithmic) {
  choice_.palette = palette;
  choice_.reversed = reversed;
  choice_.logarithmic = logarithmic;
  deriva();
}

void ColourDesk::riprendi(const Choice& choice) {
  choice_ = choice;
  segui();
}

/// The range that the choice and the survey give.
ColourRange ColourDesk::intervallo() const {
  if (choice_.from == RangeFrom::Typed) return choice_.typed;
  if (choice_.from == RangeFrom::Data) return ScalaDaDati(survey_.traccia.RhoMin, survey_.traccia.RhoMax);
  std::vector<float> readings = LettureConCella(survey_);
  const ColourRange range = IntervalloPercentile(readings, choice_.share).value_or(ColourRange{});
  return ScalaDaDati(range.ScalaMin, range.ScalaMax);
}

void ColourDesk::deriva() {
  scale_ = {intervallo(), choice_.palette, choice_.reversed, choice_.logarithmic};
  desk_.tell(Change::Colours);
}

/// Every choice of the user goes through here.
void ColourDesk::imposta(const char* what, const Choice& choice) {
  // A palette changes nothing about what can be shown.
  const bool asked = choice.palette == choice_.palette && choice.reversed == choice_.reversed;
  if (choice == choice_) return rileva(asked);
  desk_.history.ricorda(what, [this, before = choice_] {
    choice_ = before;
    segui();
  });
  choice_ = choice;
  deriva();
  rileva(asked);
}

/// Why there are no colours; empty where there are some, or where the bounds were typed so.
std::string ColourDesk::mancanza() const {
  if (choice_.from == RangeFrom::Typed || scale_.range.ScalaMin != scale_.range.ScalaMax) return "";
  if (LettureConCella(survey_).empty()) return "no reading has a cell: there is nothing to colour";
  const std::string which =
      choice_.from == RangeFrom::Data ? "all readings" : TestoPercentili(choice_.share) + " of the readings";
  return which + " are " + TestoNumero(scale_.range.ScalaMin) + ": the scale has no range and its cells are black";
}

std::string ColourDesk::rifiutoDelLogaritmo() const {
  if (!scale_.logarithmic || Logaritmica(scale_)) return "";
  return "the colour scale is linear: its bounds " + TestoNumero(scale_.range.ScalaMin) + " and " +
         TestoNumero(scale_.range.ScalaMax) + " are not both over 0, where logarithms are";
}

/// What the colours cannot show is a note. @param asked by a command of the user, which always hears of it; an analysis
/// tells it once
void ColourDesk::rileva(bool asked) {
  if (survey_.Misure.empty()) return;
  const bool ruled = choice_.from == RangeFrom::Percentiles || asked;
  std::string reason = ruled ? mancanza() : "";
  if (reason.empty()) reason = rifiutoDelLogaritmo();
  if (!reason.empty() && (asked || !told_)) desk_.findings.note(Procedure, reason);
  told_ = !reason.empty();
}

void ColourDesk::chiediIntervallo() {
  Trappola(desk_.findings, Procedure, [this] {
    const std::string now =
        choice_.from == RangeFrom::Percentiles ? TestoPercentili(choice_.share) : TestoScala(scale_.range);
    const ColourRange data{survey_.traccia.RhoMin, survey_.traccia.RhoMax};
    const std::optional<std::string> answer =
        desk_.dialogs.InputBox({.question = Question::ColourRange,
                                .defaultAnswer = now,
                                .details = "The data: " + TestoScala(data) +
                                           "\np2,98: 2nd to 98th percentile of the readings; empty: the data"});
    if (!answer) return;
    const std::string_view text = Rifila(*answer);
    if (text.empty() || text == "auto") return intervalloDaiDati();
    if (text.starts_with('p')) {
      const std::optional<Percentiles> share = PercentiliDaTesto(text);
      if (share) return intervalloPercentile(*share);
      desk_.findings.note(
          Procedure, "range " + Citazione(text) + " is not pLOW,HIGH with 0 <= LOW < HIGH <= 100: nothing is changed");
      return;
    }
    const auto typed = CoppiaDaCasella<float>(*answer, {Procedure, "range"}, desk_.findings);
    if (typed) impostaIntervallo({typed->first, typed->second});
  });
}

void ColourDesk::impostaIntervallo(const ColourRange& range) {
  Choice choice = choice_;
  choice.from = RangeFrom::Typed;
  choice.typed = range;
  imposta(RangeCommand, choice);
}

void ColourDesk::intervalloDaiDati() {
  Choice choice = choice_;
  choice.from = RangeFrom::Data;
  imposta(RangeCommand, choice);
}

void ColourDesk::intervalloPercentile(const Percentiles& share) {
  Choice choice = choice_;
  choice.from = RangeFrom::Percentiles;
  choice.share = share;
  imposta(RangeCommand, choice);
}

void ColourDesk::scegli(PaletteName palette) {
  Choice choice = choice_;
  choice.palette = palette;
  imposta("Set Palette", choice);
}

void ColourDesk::inverti(bool reversed) {
  Choice choice = choice_;
  choice.reversed = reversed;
  imposta("Reverse Colours", choice);
}

void ColourDesk::logaritmo(bool logarithmic) {
  Choice choice = choice_;
  choice.logarithmic = logarithmic;
  imposta("Logarithmic Colours", choice);
}

}  // namespace corvan
