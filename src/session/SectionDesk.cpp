#include "session/SectionDesk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "base/ErrorTrap.h"
#include "track/PseudoDepth.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "DisegnaSezione";

bool Vuota(const std::vector<float>& series) {
  return std::none_of(series.begin(), series.end(), [](float v) { return std::isfinite(v); });
}

}  // namespace

const SectionModel& SectionDesk::modello() {
  if (!holds_) model_ = CreaSezionePiana(survey_, CollocaLetture(survey_.cavo, offset_));
  holds_ = true;
  return model_;
}

void SectionDesk::azzera() {
  view_.window.reset();
  view_.line = 1;
  if (view_.lines == SectionLines::One) view_.lines = SectionLines::Stacked;
  notes_ = {};
  rifai();
}

void SectionDesk::rifai() { holds_ = painted_ = false; }

void SectionDesk::scegli(SectionLines lines, std::size_t line) {
  view_.lines = lines;
  view_.line = line;
  mostra(std::nullopt);
}

void SectionDesk::misura(DepthAxis axis) {
  view_.depth = axis;
  painted_ = false;
}

void SectionDesk::mostra(Curve curve, bool shown) {
  view_.curves.at(static_cast<std::size_t>(curve)) = shown;
  painted_ = false;
}

void SectionDesk::mostra(const std::optional<TrackWindow>& window) {
  view_.window = window;
  painted_ = false;
}

void SectionDesk::colora(const ColourScale& colours) {
  colours_ = colours;
  painted_ = false;
}

void SectionDesk::segna(std::optional<std::int32_t> first, std::optional<std::int32_t> second) {
  notes_.first = first;
  notes_.second = second;
  painted_ = false;
}

void SectionDesk::impostaOffset(double metres) {
  if (std::exchange(offset_, metres) != metres) rifai();
}

void SectionDesk::dipingi(Canvas& canvas, const Caption& caption) {
  TrappolaUnaVolta(findings_, Procedure, [&] {
    notes_.caption = caption;
    layout_ = DisegnaSezione(modello(), view_, colours_, notes_, canvas);
    rileva();
  });
}

void SectionDesk::dipingiCopia(Canvas& canvas, const Caption& caption) {
  SectionLayout kept = layout_;
  dipingi(canvas, caption);
  layout_ = std::move(kept);
}

void SectionDesk::tela(Canvas* canvas) {
  canvas_ = canvas;
  painted_ = false;
}

void SectionDesk::dipingi() {
  if (canvas_ == nullptr || std::exchange(painted_, true)) return;
  dipingi(*canvas_, {});
}

/// What the picture tells of itself, and curves that have nothing to show.
void SectionDesk::rileva() {
  const auto note = [this](const std::string& reason) {
    findings_.addUnaVolta({Severity::Note, Procedure, "", "flat section: " + reason});
  };
  for (const std::string& told : layout_.told) note(told);
  if (layout_.blocks.empty()) note("the picture is too small for it");
  if (model_.size() == 0) return;
  const std::array<std::pair<Curve, const char*>, 2> timed{{{Curve::Speed, "speed"}, {Curve::Time, "time"}}};
  for (const auto& [curve, name] : timed) {
    if (view_.mostra(curve) && Vuota(curve == Curve::Speed ? model_.speed : model_.hours)) {
      note(std::string("the curve of ") + name + " is empty: the measurements have no times");
    }
  }
}

}  // namespace corvan
