// The limits of quality of corvan-cli process.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "survey/Quality.h"

namespace corvan::cli {

/// As typed and checked; an empty text sets no limit.
struct QualityOptions {
  std::string minCurrent, minPotential, maxDeviation;
  std::string rhoRange;  ///< "MIN,MAX"
  std::string despike;   ///< "F" or "F,W"
  bool noNegative = false;
};

void AggiungiQualita(CLI::App& command, QualityOptions& options);

/// "--despike" needs no number behind it: then its usual ones are put there, so that it takes no file's name for them.
void CompletaDespike(std::vector<std::string>& arguments);

/// Limits changed to those that were typed.
QualityLimits LimitiDi(const QualityOptions& options, QualityLimits limits);

}  // namespace corvan::cli
