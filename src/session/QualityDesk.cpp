#include "session/QualityDesk.h"

#include <optional>

#include "base/Fields.h"
#include "base/Text.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "Quality";

}  // namespace

void QualityDesk::applica(Findings& findings) {
  // Without any limit every reading stays as the analysis left it.
  if (!survey_.qualita.inVigore() && survey_.qualita.escluse == 0) {
    result_ = {};
    verdict_.assign(survey_.Misure.size(), 0);
    return;
  }
  verdict_ = Giudica(survey_, limiti(), result_);
  Escludi(survey_, verdict_, result_);
  RilevaQualita(survey_, result_, findings);
}

/// What follows from limits or choices that are others than before.
void QualityDesk::rifai() {
  Findings found;
  applica(found);
  for (const Finding& finding : found.entries()) desk_.findings.add(finding);
  changed_();
}

void QualityDesk::imposta(const QualityLimits& limits) {
  if (limits == limiti()) return;
  desk_.history.ricorda("Set Limits of Quality", [this, before = limiti()] {
    survey_.qualita.limiti = before;
    rifai();
  });
  survey_.qualita.limiti = limits;
  if (limits.picchi) FrameQuality.picchi = *limits.picchi;
  rifai();
}

void QualityDesk::digita(std::optional<double> QualityLimits::*limit, const BoxNumber& box, const std::string& text) {
  QualityLimits limits = limiti();
  limits.*limit = std::nullopt;
  if (!Rifila(text).empty()) {
    const auto typed = NumeroDaCasella<double>(text, box, desk_.findings);
    if (!typed) return;
    limits.*limit = typed;
  }
  imposta(limits);
}

void QualityDesk::alternaNegative() {
  QualityLimits limits = limiti();
  limits.negative = !limits.negative;
  imposta(limits);
}

void QualityDesk::alternaPicchi() {
  QualityLimits limits = limiti();
  limits.picchi = limits.picchi ? std::nullopt : std::optional(FrameQuality.picchi);
  imposta(limits);
}

void QualityDesk::cerca(const Despike& rule) {
  FrameQuality.picchi = rule;
  if (!limiti().picchi) return;
  QualityLimits limits = limiti();
  limits.picchi = rule;
  imposta(limits);
}

void QualityDesk::digitaFattore(const std::string& text) {
  Despike rule = FrameQuality.picchi;
  const auto typed = NumeroDaCasella<double>(text, {Procedure, "factor of spikes", 0.01, 1000.0}, desk_.findings);
  if (!typed) return;
  rule.fattore = *typed;
  cerca(rule);
}

void QualityDesk::digitaFinestra(const std::string& text) {
  Despike rule = FrameQuality.picchi;
  const auto typed =
      NumeroDaCasella<std::int32_t>(text, {Procedure, "measurements around a spike", 3, 9999}, desk_.findings);
  if (!typed) return;
  rule.finestra = *typed;
  cerca(rule);
}

void QualityDesk::alterna(std::int32_t index, std::size_t channel) {
  const auto k = static_cast<std::size_t>(index);
  const bool exists = index >= 1 && survey_.Misure.contains(k) && channel >= 1 && channel <= MaxChannels &&
                      HaLettura(survey_.Misure(k), channel);
  if (!exists) {
    desk_.findings.fault(Procedure, "measurement " + std::to_string(index) + " has no reading of channel " +
                                        std::to_string(channel) + ": nothing is changed");
    return;
  }
  const bool excluded = !InUso(survey_.Misure(k), channel);
  const bool byLimit = (verdict_.at(k - 1) & BitDi(channel)) != 0;
  const ReadingKey key{index, channel};
  scegli(excluded ? "Include Reading" : "Exclude Reading", key,
         byLimit == !excluded ? std::nullopt : std::optional(!excluded));
}

/// @param excluded none: as the limits say
void QualityDesk::scegli(const char* what, const ReadingKey& key, std::optional<bool> excluded) {
  auto& byHand = survey_.qualita.aMano;
  const auto set = [this, &byHand, key](std::optional<bool> to) {
    if (to) {
      byHand[key] = *to;
    } else {
      byHand.erase(key);
    }
    unisci();
  };
  const auto found = byHand.find(key);
  const std::optional<bool> before = found == byHand.end() ? std::nullopt : std::optional(found->second);
  desk_.history.ricorda(what, [set, before] { set(before); });
  set(excluded);
}

void QualityDesk::decidi(const std::map<ReadingKey, bool>& choices) {
  if (choices == survey_.qualita.aMano) return;
  survey_.qualita.aMano = choices;
  rifai();
  const std::size_t applied = result_.esclusaAMano + result_.inclusaAMano;
  if (applied < choices.size()) {
    desk_.findings.fault(Procedure, Quanti(choices.size() - applied, "decision", "decisions") +
                                        " by hand about readings that do not exist");
  }
}

void QualityDesk::dimenticaScelte() {
  if (survey_.qualita.aMano.empty()) return;
  desk_.history.ricorda("Forget Choices by Hand", [this, before = survey_.qualita.aMano] {
    survey_.qualita.aMano = before;
    unisci();
  });
  survey_.qualita.aMano.clear();
  unisci();
}

/// Joins the limits' verdict, which stands, with what was decided by hand.
void QualityDesk::unisci() {
  Escludi(survey_, verdict_, result_);
  changed_();
}

}  // namespace corvan
