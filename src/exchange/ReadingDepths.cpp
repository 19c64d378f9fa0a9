#include "exchange/ReadingDepths.h"

#include "track/PseudoDepth.h"

namespace corvan {

ReadingDepths::ReadingDepths(const Survey& survey) {
  const ReadingPlaces places = CollocaLetture(survey.cavo, 0.0);
  for (std::size_t c = 1; c <= MaxChannels; ++c) common_.at(c) = places.at(c).profondita;
}

ChannelDepths ReadingDepths::operator()(const Misura& m) const {
  if (!m.CavoProprio) return common_;
  ChannelDepths own;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    const auto at = [&m](std::size_t e) { return static_cast<double>(m.Elettrodi.at(e)); };
    own.at(c) = ProfonditaMediana(static_cast<double>(m.Val60), static_cast<double>(m.Val64), at(c), at(c + 1));
  }
  return own;
}

}  // namespace corvan
