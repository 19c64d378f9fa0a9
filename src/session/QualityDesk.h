// The limits of quality and the readings that were excluded or taken by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/BoxNumbers.h"
#include "session/Desk.h"
#include "session/Panels.h"
#include "survey/Quality.h"
#include "survey/Survey.h"
#include "track/Quality.h"

namespace corvan {

class QualityDesk {
 public:
  /// @param changed told when other readings are excluded than before
  QualityDesk(Desk desk, Survey& survey, std::function<void()> changed)
      : desk_(std::move(desk)), survey_(survey), changed_(std::move(changed)) {}

  QualityPanel FrameQuality;

  const QualityLimits& limiti() const { return survey_.qualita.limiti; }
  const QualityResult& risultato() const { return result_; }

  /// These limits and no others from now on.
  void imposta(const QualityLimits& limits);
  /// One limit as it is typed: an empty text takes it away, one that is no number or below 0 changes nothing.
  void digita(std::optional<double> QualityLimits::*limit, const BoxNumber& box, const std::string& text);
  void alternaNegative();
  void alternaPicchi();
  /// Factor and width of the search for spikes, as they are typed.
  void digitaFattore(const std::string& text);
  void digitaFinestra(const std::string& text);
  /// Excludes a reading, or takes one that is excluded, whatever the limits say; a second time goes back to them.
  /// @param index,channel of a reading that exists; for any other nothing changes, which is a fault
  void alterna(std::int32_t index, std::size_t channel);
  /// Takes over decisions about readings; those about readings that do not exist have no effect, which is told.
  void decidi(const std::map<ReadingKey, bool>& choices);
  /// Gives up all that was decided by hand.
  void dimenticaScelte();

  /// Judges the readings anew, after an analysis.
  void applica(Findings& findings);

 private:
  void rifai();
  void cerca(const Despike& rule);
  void scegli(const char* what, const ReadingKey& key, std::optional<bool> excluded);
  void unisci();

  Desk desk_;
  Survey& survey_;
  std::function<void()> changed_;
  std::vector<ReadingSet> verdict_;  ///< of the limits alone
  QualityResult result_;
};

}  // namespace corvan
