#include "app/StatusText.h"

#include <algorithm>
#include <cmath>
#include <QDir>
#include <QStringList>

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "geo/Utm.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr Mask Metres = "0.0";

QString Numero(double value, Mask mask) { return QString::fromStdString(FormattaNumero(value, mask)); }

QString Nome(const std::filesystem::path& path) { return QString::fromStdU16String(path.u16string()); }

/// One angle with its side of the earth, e.g. 'N' or 'S'.
QString Angolo(double degrees, char positive, char negative) {
  const char side = degrees < 0 ? negative : positive;
  return Numero(std::abs(degrees), "0.00000") + QChar(0x00B0) + ' ' + side;
}

/// Folder and names of what was written, behind "Written" or "written".
QString Scritto(const char* word, const std::vector<std::filesystem::path>& written) {
  QStringList names;
  for (const auto& path : written) names << Nome(path.filename());
  return QLatin1String(word) + " to " + QDir::toNativeSeparators(Nome(written.front().parent_path())) + ": " +
         names.join(", ");
}

}  // namespace

QString TestoFile(const Survey& survey) {
  const auto count = [](std::size_t n, const char* one, const char* many) {
    return QString::fromStdString(Quanti(n, one, many));
  };
  const auto read = static_cast<std::size_t>(
      std::count_if(survey.files.begin(), survey.files.end(), [](const FileSummary& f) { return !f.format.empty(); }));
  QString text = read == 0
                     ? "No survey"
                     : count(read, "file", "files") + ", " + count(survey.Misure.size(), "measurement", "measurements");
  if (const std::size_t excluded = survey.qualita.escluse; excluded > 0) {
    text += ", " + count(excluded, "reading", "readings") + " excluded";
  }
  if (survey.tracciaEst.loaded) {
    text += ", track of " + count(survey.tracciaEst.PuntiGPSEst.size(), "fix", "fixes");
  }
  return text;
}

QString TestoZona(const Survey& survey) {
  if (survey.Misure.empty() && !survey.tracciaEst.loaded) return {};
  const GridZone& grid = survey.settings.griglia;
  return QStringLiteral("UTM %1 %2").arg(grid.zone).arg(grid.hemisphere == Hemisphere::North ? 'N' : 'S');
}

QString TestoSezione(const Survey& survey, std::optional<std::int32_t> first, std::optional<std::int32_t> second) {
  if (!first && !second) return {};
  if (!first || !second) return QStringLiteral("%1 to %2").arg(first.value_or(*second)).arg(QChar(0x2026));
  const auto low = static_cast<std::size_t>(std::min(*first, *second));
  const auto high = static_cast<std::size_t>(std::max(*first, *second));
  if (!survey.Misure.contains(low) || !survey.Misure.contains(high)) return {};
  std::size_t kept = 0;
  for (std::size_t k = low; k <= high; ++k) kept += Tenuta(survey.Misure(k)) ? 1 : 0;
  const double length = survey.Misure(high).Distanza - survey.Misure(low).Distanza;
  return QStringLiteral("%1 to %2: %3, %4 m")
      .arg(*first)
      .arg(*second)
      .arg(QString::fromStdString(Quanti(kept, "point", "points")),
           Numero(std::abs(length), std::abs(length) < 100 ? Metres : Mask("0")));
}

QString TestoEstremo(const Survey& survey, int which, std::int32_t measurement) {
  const auto k = static_cast<std::size_t>(measurement);
  if (!survey.Misure.contains(k)) return {};
  const Misura& m = survey.Misure(k);
  QString text = QStringLiteral("%1: measurement %2").arg(which).arg(measurement);
  if (const FileSummary* file = survey.fileDi(m)) text += ", " + Nome(file->path.filename());
  if (TempoValido(m.Tempo)) {
    const DateTime when = DaGiorni(m.Tempo);
    text += ", " + QString::fromStdString(TestoData(when) + " " + TestoOra(when));
  }
  return text;
}

QString TestoGriglia(double easting, double northing) {
  return QStringLiteral("E %1  N %2").arg(Numero(easting, Metres), Numero(northing, Metres));
}

std::optional<Geographic> CoordinateDi(const Grid& place) {
  const std::optional<Geographic> start = DaUTM(place);
  std::optional<Geographic> found = start;
  constexpr int rounds = 4;  // each leaves a ten thousandth of the error
  for (int k = 0; found && k < rounds; ++k) {
    const std::optional<Grid> there = VersoUTM(*found, place.in());
    const std::optional<Geographic> back = there ? DaUTM(*there) : std::nullopt;
    if (!back) return std::nullopt;
    found->latitude += start->latitude - back->latitude;
    found->longitude += start->longitude - back->longitude;
  }
  return found;
}

QString TestoCoordinate(const Grid& place) {
  const std::optional<Geographic> at = CoordinateDi(place);
  if (!at || std::abs(at->latitude) > 90 || std::abs(at->longitude) > 180) return {};
  return Angolo(at->latitude, 'N', 'S') + "  " + Angolo(at->longitude, 'E', 'W');
}

QString TestoCella(const CellaVista& cell) {
  const QString value = Numero(static_cast<double>(cell.resistivita), "0.0#");
  return QStringLiteral("level %1, %2 Ohm m").arg(cell.livello).arg(value) + (cell.esclusa ? ", excluded" : "");
}

StatusNote NotaDi(std::span<const Finding> findings, const std::vector<std::filesystem::path>& written) {
  StatusNote note{"ready", {}, {}, Tone::Plain};
  if (findings.empty()) {
    if (!written.empty()) note = {Scritto("Written", written), {}, {}, Tone::Success};
    return note;
  }
  const auto fault =
      std::find_if(findings.begin(), findings.end(), [](const Finding& f) { return f.severity == Severity::Fault; });
  const Finding& gravest = fault == findings.end() ? findings.front() : *fault;
  const QString behind = written.empty() ? QString() : "; " + Scritto("written", written);
  const QString file = Nome(PercorsoDi(gravest.file).filename());
  const QString reason = QString::fromStdString(gravest.reason);
  note.text = (file.isEmpty() ? reason : file + ": " + reason) + behind;
  if (findings.size() > 1) note.more = QStringLiteral(" and %1 more").arg(findings.size() - 1);
  note.whole = QString::fromStdString(gravest.detto()) + behind + note.more;
  note.tone = gravest.severity == Severity::Fault ? Tone::Fault : Tone::Note;
  return note;
}

}  // namespace corvan
