#include "input/ColumnFirings.h"

#include <algorithm>
#include <cmath>

#include "base/OleDate.h"
#include "base/Rounding.h"
#include "geo/AngleText.h"

namespace corvan {
namespace {

constexpr double NominalCurrent = 1000.0;  // mA: a potential of 1000 r mV then gives r ohm
constexpr double ShortestEasting = 1e5;    // zones are at most 8 degrees wide with their margins
constexpr double LongestEasting = 9e5;
constexpr double LongestNorthing = 1e7;

}  // namespace

ColumnFirings::Reading ColumnFirings::lettura(const ColumnRow& row) {
  const double current = row.current.value_or(NominalCurrent);
  const double potential = row.potential.value_or(row.resistance.value_or(0.0) * current);
  return {ASingolo(current), ASingolo(potential), row.resistance.has_value(), !row.current};
}

bool ColumnFirings::continua(const ColumnRow& row, const Reading& reading) const {
  const auto [a, b, m, n] = row.electrodes;
  // Rows without a reading have no current to tell them apart by.
  const bool current =
      !reading.stored || m_.letture == 0 || (m_.Val180 == reading.current && nominal_ == reading.nominal);
  return channels_ > 0 && channels_ < MaxChannels && row.north == north_ && row.east == east_ && row.line == line_ &&
         a == m_.Val60 && b == m_.Val64 && m == m_.Elettrodi.at(channels_ + 1) && current;
}

void ColumnFirings::prendi(const ColumnRow& row, std::size_t line) {
  const Reading reading = lettura(row);
  const float depth = ASingolo(row.depth.value_or(0.0));
  if (!continua(row, reading)) {
    chiudi();
    apri(row, reading, depth, line);
  }
  ++channels_;
  m_.Elettrodi.at(channels_) = row.electrodes[2];
  m_.Elettrodi.at(channels_ + 1) = row.electrodes[3];
  if (!reading.stored) return;
  m_.letture = static_cast<ReadingSet>(m_.letture | BitDi(channels_));
  m_.Val180 = reading.current;
  m_.Val184 = -reading.current;
  nominal_ = reading.nominal;
  m_.CanaleA.at(channels_) = reading.potential;
  m_.CanaleB.at(channels_) = -reading.potential;
  m_.Rho.at(channels_) = SingoloOppure(*row.resistance * static_cast<double>(row.factor), 0.0F);
}

void ColumnFirings::apri(const ColumnRow& row, const Reading& reading, float depth, std::size_t line) {
  m_ = Misura{};
  m_.NumFile = 1;
  m_.letture = 0;
  m_.CavoProprio = true;
  m_.Val60 = row.electrodes[0];
  m_.Val64 = row.electrodes[1];
  m_.Val12 = depth;
  m_.Tempo = row.time;
  north_ = row.north;
  east_ = row.east;
  nominal_ = reading.nominal;
  first_ = line;
  if (!anyLine_ || row.line != line_) {
    line_ = row.line;
    anyLine_ = true;
    ++tally_.lines;
  }
  if (named_) m_.Linea = tally_.lines;
}

void ColumnFirings::chiudi() {
  if (channels_ == 0) return;
  for (std::size_t e = channels_ + 2; e <= PotentialElectrodes; ++e)
    m_.Elettrodi.at(e) = m_.Elettrodi.at(channels_ + 1);
  if (geographic_) {
    ImpostaGeografica(m_, NumeroDaGradi(north_, layout_), NumeroDaGradi(east_, layout_), {north_, east_});
  } else {
    ImpostaUTM(m_, north_, east_);
  }
  ++tally_.firings;
  tally_.alone += channels_ == 1 ? 1U : 0U;
  tally_.channels = std::max(tally_.channels, static_cast<std::int32_t>(channels_));
  if (Vuota(m_)) {
    tally_.empty.add(first_);
  } else {
    tally_.nominal += nominal_ ? 1U : 0U;
  }
  notaPosizione(first_);
  channels_ = 0;
  sink_(m_);
}

void ColumnFirings::notaPosizione(std::size_t line) {
  const bool timed = TempoValido(m_.Tempo);
  tally_.timed = tally_.timed || timed;
  if (m_.SenzaFix) return;
  ++tally_.positions;
  tally_.north = std::max(tally_.north, std::abs(north_));
  tally_.east = std::max(tally_.east, std::abs(east_));
  if (geographic_) {
    if (std::abs(north_) > 90.0 || std::abs(east_) > 180.0) tally_.beyond.add(line);
  } else if (east_ < ShortestEasting || east_ > LongestEasting || north_ < 0.0 || north_ > LongestNorthing) {
    tally_.outside.add(line);
  }
  if (timed) tally_.steps.prendi(m_.sorgente, m_.Tempo, line);
}

}  // namespace corvan
