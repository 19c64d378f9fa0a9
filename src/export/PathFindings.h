// What is told of a section whose cable follows the sailed path: what of it was guessed, and how far the straight cable
// lies from it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"
#include "track/SailedLines.h"

namespace corvan {

/// A section and the paths that its cable follows, or would follow.
struct CableOnPath {
  const Survey& survey;
  const Section& section;
  const SailedLines& lines;               ///< of this section, not empty
  const std::vector<std::int32_t>& kept;  ///< measurements of the section with a position, in their order
  /// How far behind the antenna electrode e (1 to 13) of measurement p lies, m.
  std::function<double(std::int32_t p, std::size_t e)> dietro;
};

/// Notes electrodes on a prolonged course, steps that the path bridges (over measurements that are passed over, or
/// longer than the cable) and a path in several pieces. Faults: lines whose positions all lie in one place.
void RilevaPercorso(const CableOnPath& on, Findings& findings);

/// Notes by how much the places of electrodes differ at most between the straight cable (before they are put on its
/// grid) and the one on the sailed path, and where, when that is over half an electrode spacing. Lines without any
/// direction are not compared.
void RilevaDifferenza(const CableOnPath& on, Findings& findings);

}  // namespace corvan
