// The two extremes of the section: chosen by clicks on the picture or typed.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "session/BoxNumbers.h"
#include "session/Desk.h"
#include "session/Panels.h"
#include "survey/Survey.h"

namespace corvan {

enum class Extreme { First, Second };

inline constexpr BoxNumber FirstExtremeBox{"E1Txt_KeyPress", "extreme"};
inline constexpr BoxNumber SecondExtremeBox{"E2txt_KeyPress", "extreme"};

class Selection {
 public:
  Selection(Desk desk, const Survey& survey) : desk_(std::move(desk)), survey_(survey) {}

  ExtremaPanel FrameExtrema;

  /// 0 no extreme chosen, 1 one of them, 2 both.
  std::int16_t StatoSelezione() const { return static_cast<std::int16_t>((first_ ? 1 : 0) + (second_ ? 1 : 0)); }
  std::optional<std::int32_t> primo() const { return first_; }
  std::optional<std::int32_t> secondo() const { return second_; }
  /// Extremes that were clicked as measurements, and as fixes of the external track.
  std::vector<std::int32_t> scelte() const;
  const std::vector<std::int32_t>& fixScelti() const { return fixes_; }

  /// A click on a measurement chooses the extreme that is missing; with both chosen it clears them.
  /// @param index 1-based; an index that is no measurement changes nothing and is a fault
  void scegli(std::int32_t index);
  /// A click on a fix chooses the nearest measurement, likewise.
  void scegliFix(std::int32_t index);
  /// One extreme alone, whatever was chosen before.
  void imposta(Extreme which, std::int32_t index);
  /// Another survey: its first and last measurement stand in the boxes, chosen is neither.
  void preimposta();

 private:
  bool esiste(std::int32_t index) const;
  void azzera();
  Extreme mancante() const { return first_ ? Extreme::Second : Extreme::First; }
  void prendi(Extreme which, std::int32_t index, std::string caption);
  std::int32_t piuVicina(const PuntoGPSEst& fix) const;

  Desk desk_;
  const Survey& survey_;
  std::optional<std::int32_t> first_, second_;
  bool firstByFix_ = false, secondByFix_ = false;
  std::vector<std::int32_t> fixes_;
};

}  // namespace corvan
