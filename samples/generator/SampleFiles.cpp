#include "SampleFiles.h"

#include <cstdint>
#include <span>

#include "base/NumberText.h"
#include "survey/RecordSyscalPro.h"

namespace corvan::samples {
namespace {

constexpr std::size_t RecordLength = 304;
constexpr std::int16_t RecordType = 3;

RecordSyscalPro Record(const Firing& f, std::size_t channel) {
  RecordSyscalPro r;
  r.scrivi(campo::Inizio, std::int16_t{9});
  r.scrivi(campo::Tipo, RecordType);
  r.scrivi(campo::Val4, 500.0F);
  r.scrivi(campo::Val8, 40.0F);
  r.scrivi(campo::Val12, std::int16_t{1});
  r.scrivi(campo::R16, Cable[12]);
  r.scrivi(campo::R20, Cable[13]);
  r.scrivi(campo::PosM, Cable.at(channel));
  r.scrivi(campo::PosN, Cable.at(channel + 1));
  r.scrivi(campo::R48, f.depth);
  r.scrivi(campo::R68, f.potential.at(channel));
  r.scrivi(campo::R72, f.current);
  r.scrivi(campo::R76, f.resistivity.at(channel));
  r.scrivi(campo::Qualita, f.quality.at(channel));
  r.scrivi(campo::Canale, static_cast<std::int16_t>(channel));
  r.scrivi(campo::GpsNord, f.latitude);
  r.scrivi(campo::GpsEst, f.longitude);
  r.scrivi(campo::Tempo, f.time);
  return r;
}

}  // namespace

std::string FileSyscal(const std::vector<Firing>& firings) {
  std::string file(FirstRecord, '\0');
  file.replace(0, 16, std::string("\x02\0\0\x80\x0aSYSCAL PRO\0", 16));
  for (const Firing& f : firings) {
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      const RecordSyscalPro record = Record(f, c);
      file.append(reinterpret_cast<const char*>(record.byte.data()), RecordLength);
    }
  }
  return file;
}

std::string FileTesto(const std::vector<Firing>& firings) {
  std::string file = "DISTANCE;DEPTH";
  for (std::size_t c = 1; c <= MaxChannels; ++c) file += ";RHO" + std::to_string(c);
  file += ";C1;C2";
  for (std::size_t e = 1; e <= PotentialElectrodes; ++e) file += ";E" + std::to_string(e);
  file += ";LAT;LON;I+;I-";
  for (std::size_t c = 1; c <= MaxChannels; ++c) file += ";V" + std::to_string(c) + "+;V" + std::to_string(c) + "-";
  file += "\r\n";
  for (const Firing& f : firings) {
    std::string line = TestoNumero(f.step);
    const auto add = [&line](float value) { line += ";" + TestoNumero(value); };
    add(f.depth);
    for (std::size_t c = 1; c <= MaxChannels; ++c) add(f.resistivity.at(c));
    add(Cable[12]);
    add(Cable[13]);
    for (std::size_t e = 1; e <= PotentialElectrodes; ++e) add(Cable.at(e));
    for (const float angle : {f.latitude, f.longitude}) line += ";" + TestoNumero(static_cast<double>(angle));
    add(f.current);
    add(-f.current);
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      add(f.potential.at(c));
      add(-f.potential.at(c));
    }
    file += line + "\r\n";
  }
  return file + "\r\n";
}

}  // namespace corvan::samples
