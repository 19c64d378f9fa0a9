// The colours of resistivities: palette, logarithm, and where the range of the scale comes from.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "picture/ColourScale.h"
#include "session/Desk.h"
#include "survey/Survey.h"

namespace corvan {

/// Shares of the readings below the bounds of a colour scale, in percent: 0 <= low < high <= 100.
struct Percentiles {
  double low = 2;
  double high = 98;
  friend bool operator==(const Percentiles&, const Percentiles&) = default;
};

/// Reads "pLOW,HIGH", e.g. "p2,98". @return none for any other text
std::optional<Percentiles> PercentiliDaTesto(std::string_view text);

/// The values below which these shares of the readings lie, ohm m: sorted as x(1) to x(n), the place of p percent is
/// 1 + (n - 1) p / 100, and between two readings the value runs straight (Hyndman and Fan 1996, definition 7).
/// @param readings finite, in any order, which changes @return none of no readings
std::optional<ColourRange> IntervalloPercentile(std::vector<float>& readings, const Percentiles& share);

class ColourDesk {
 public:
  enum class RangeFrom { Data, Percentiles, Typed };

  /// What the user chose; the scale follows from it and the survey.
  struct Choice {
    PaletteName palette = PaletteName::Spectrum;
    bool reversed = false;
    bool logarithmic = false;
    RangeFrom from = RangeFrom::Data;
    Percentiles share;
    ColourRange typed;
    friend bool operator==(const Choice&, const Choice&) = default;
  };

  ColourDesk(Desk desk, const Survey& survey) : desk_(std::move(desk)), survey_(survey) {}

  /// As pictures and files use it.
  const ColourScale& scale() const { return scale_; }
  RangeFrom origine() const { return choice_.from; }
  /// Those in force, or last in force.
  const Percentiles& percentili() const { return choice_.share; }
  const Choice& scelta() const { return choice_; }
  /// Takes over what was chosen in another run; not to be undone.
  void riprendi(const Choice& choice);

  /// A new reading: a typed range was that of the survey before. Palette, direction, logarithm and percentiles stay.
  void azzera();
  /// Derives the range anew, where it comes from the readings.
  void segui();
  /// What the user liked at the last start: told to nobody and not to be undone.
  void preferisci(PaletteName palette, bool reversed, bool logarithmic);

  void chiediIntervallo();  ///< "Set Colour Scale Range": an empty answer goes back to the data
  void impostaIntervallo(const ColourRange& range);
  void intervalloDaiDati();
  /// Only readings that have a cell count: those of firings with a position that are not left out, finite ones.
  void intervalloPercentile(const Percentiles& share);
  void scegli(PaletteName palette);
  void inverti(bool reversed);
  void logaritmo(bool logarithmic);  ///< where a bound is 0 or less the scale is linear, which is said

 private:
  void imposta(const char* what, const Choice& choice);
  void deriva();
  ColourRange intervallo() const;
  std::string mancanza() const;
  std::string rifiutoDelLogaritmo() const;
  void rileva(bool asked);

  Desk desk_;
  const Survey& survey_;
  Choice choice_;
  ColourScale scale_;
  bool told_ = false;  ///< what the colours cannot show of this survey has been said
};

}  // namespace corvan
