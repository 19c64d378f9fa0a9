// Finds the readings that do not hold the limits of quality.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "base/Findings.h"
#include "survey/Quality.h"
#include "survey/Survey.h"

namespace corvan {

/// What the limits found. A reading that fails several counts under each of them.
struct QualityResult {
  std::array<std::size_t, LimitNames.size()> perLimite{};
  std::size_t letture = 0;          ///< readings that exist
  std::size_t escluse = 0;          ///< that are excluded, by a limit or by hand
  std::size_t esclusaAMano = 0;     ///< by hand, whatever the limits say
  std::size_t inclusaAMano = 0;     ///< likewise taken
  std::size_t senzaDeviazione = 0;  ///< not tested for their deviation: none was stored
  std::size_t senzaVicini = 0;      ///< not tested for spikes: no logarithm, or too few readings around

  std::size_t operator()(Limit limit) const { return perLimite.at(static_cast<std::size_t>(limit)); }
};

/// The readings that fail a limit, for each measurement from 0; those that do not exist fail none. A number that is not
/// finite fails every limit that asks for it.
///
/// Spikes are looked for along each line (the measurements of one file, or of a line that it names) and channel, among
/// the readings that hold the other limits: the running median of log |rho| over `finestra` measurements around each,
/// fewer at the line's ends, and the median absolute deviation from it (F. R. Hampel, J. Am. Stat. Assoc. 69 (1974),
/// 383-393), held to 0.001 at least, so that the last digit of equal readings is no spike. Resistivities of 0 or less
/// have no logarithm; where fewer than half of `finestra` have one nothing is tested.
std::vector<ReadingSet> Giudica(const Survey& survey, const QualityLimits& limits, QualityResult& result);

/// Excludes what the limits found or a hand decided, and derives RhoMin and RhoMax from what is left, 0 without any.
/// @param verdict of Giudica
void Escludi(Survey& survey, const std::vector<ReadingSet>& verdict, QualityResult& result);

/// Tells what was excluded and what could not be tested; that nothing is left is a fault.
void RilevaQualita(const Survey& survey, const QualityResult& result, Findings& findings);

}  // namespace corvan
