#include "support/Surveys.h"

#include <algorithm>
#include <string>

namespace corvan::test {
namespace {

constexpr std::array<float, CableElectrodes + 1> Electrodes{0, 50, 45, 40, 35, 30, 25, 20, 15, 10, 5, 0, 55, 60};

template <class Place>
Survey Build(const std::vector<Firing>& firings, Place place) {
  Survey survey;
  survey.settings.ZonaUTM = 33;
  survey.settings.griglia = {33, Hemisphere::North};
  survey.cavo.PosCavo = Electrodes;
  survey.file.NumCanali = static_cast<std::int32_t>(MaxChannels);
  for (std::size_t i = 1; i <= firings.size(); ++i) {
    const Firing& f = firings[i - 1];
    Misura m;
    place(m, f);
    m.NumFile = f.file;
    m.Val12 = f.depth;
    m.Val60 = Electrodes[12];
    m.Val64 = Electrodes[13];
    std::copy_n(Electrodes.begin(), m.Elettrodi.size(), m.Elettrodi.begin());
    m.Val180 = 1000;
    m.Val184 = -1001;
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      m.CanaleA.at(c) = static_cast<float>(c);
      m.CanaleB.at(c) = -static_cast<float>(c) - 1.0F;
      m.Rho.at(c) = static_cast<float>(i) + static_cast<float>(c) / 100.0F;
    }
    survey.Misure.append(m);
    while (survey.files.size() < static_cast<std::size_t>(f.file)) {
      FileSummary file;
      file.path = std::string(1, static_cast<char>('a' + survey.files.size())) + ".bin";
      file.format = "syscal";
      file.recordLength = TimedRecord;
      file.channels = static_cast<std::int32_t>(MaxChannels);
      survey.files.push_back(file);
    }
  }
  return survey;
}

}  // namespace

Survey Measurements(const std::vector<Firing>& firings) {
  return Build(firings, [](Misura& m, const Firing& f) { ImpostaUTM(m, f.nord, f.est); });
}

Survey GeographicMeasurements(const std::vector<Firing>& firings) {
  Survey survey = Build(firings, [](Misura& m, const Firing& f) {
    ImpostaGeografica(m, f.nord, f.est, {f.nord, f.est});
  });
  survey.settings.layout = AngleFormat::D_DDDD;
  return survey;
}

}  // namespace corvan::test
