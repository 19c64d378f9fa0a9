#include "session/Selection.h"

#include <limits>
#include <string>
#include <utility>

#include "geo/Plane.h"
#include "survey/MeasurementText.h"

namespace corvan {

std::vector<std::int32_t> Selection::scelte() const {
  std::vector<std::int32_t> picked;
  if (first_ && !firstByFix_) picked.push_back(*first_);
  if (second_ && !secondByFix_) picked.push_back(*second_);
  return picked;
}

bool Selection::esiste(std::int32_t index) const {
  if (survey_.Misure.empty()) {
    desk_.findings.fault("ptlbl_Click", "there is no measurement to select");
    return false;
  }
  if (index >= 1 && index <= survey_.NumMisure()) return true;
  desk_.findings.fault("ptlbl_Click",
                       "extreme " + std::to_string(index) + " is not 1 to " + std::to_string(survey_.NumMisure()));
  return false;
}

void Selection::scegli(std::int32_t index) {
  if (!esiste(index)) return;
  if (StatoSelezione() == 2) {
    azzera();
    desk_.tell(Change::Selection);
  } else {
    imposta(mancante(), index);
  }
}

void Selection::imposta(Extreme which, std::int32_t index) {
  if (esiste(index)) prendi(which, index, DescriviMisura(survey_, static_cast<std::size_t>(index)));
}

void Selection::prendi(Extreme which, std::int32_t index, std::string caption) {
  const bool first = which == Extreme::First;
  (first ? first_ : second_) = index;
  (first ? firstByFix_ : secondByFix_) = false;
  (first ? FrameExtrema.E1Txt : FrameExtrema.E2txt) = std::to_string(index);
  (first ? FrameExtrema.PrimoLbl : FrameExtrema.SecondoLbl) = std::move(caption);
  desk_.tell(Change::Selection);
}

void Selection::scegliFix(std::int32_t index) {
  const auto& track = survey_.tracciaEst.PuntiGPSEst;
  const auto k = static_cast<std::size_t>(index);
  if (!track.contains(k) || survey_.Misure.empty()) return;
  if (StatoSelezione() == 2) {
    azzera();
    desk_.tell(Change::Selection);
    return;
  }
  const std::int32_t nearest = piuVicina(track(k));
  if (nearest == 0) return;
  const Extreme which = mancante();
  fixes_.push_back(index);
  prendi(which, nearest, DescriviFix(survey_, k));
  (which == Extreme::First ? firstByFix_ : secondByFix_) = true;
  desk_.tell(Change::Selection);
}

/// The measurement nearest to a fix of those with a position; 0 for none.
std::int32_t Selection::piuVicina(const PuntoGPSEst& fix) const {
  std::int32_t nearest = 0;
  double best = std::numeric_limits<double>::infinity();
  for (std::size_t k = 1; k <= survey_.Misure.size(); ++k) {
    const Misura& m = survey_.Misure(k);
    if (!HaPosizione(m)) continue;
    const double distance = dist(m.UTMx, m.UTMy, fix.X, fix.Y);
    if (distance >= best) continue;
    best = distance;
    nearest = static_cast<std::int32_t>(k);
  }
  return nearest;
}

void Selection::azzera() {
  first_.reset();
  second_.reset();
  firstByFix_ = secondByFix_ = false;
  fixes_.clear();
  const bool visible = FrameExtrema.visible;
  FrameExtrema = {.visible = visible, .E1Txt = "", .E2txt = "", .PrimoLbl = "", .SecondoLbl = ""};
}

void Selection::preimposta() {
  azzera();
  FrameExtrema = {.visible = false,
                  .E1Txt = "1",
                  .E2txt = std::to_string(survey_.NumMisure()),
                  .PrimoLbl = "Extreme 1",
                  .SecondoLbl = "Extreme 2"};
  desk_.tell(Change::Selection);
}

}  // namespace corvan
