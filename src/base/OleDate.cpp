#include "base/OleDate.h"

#include <chrono>
#include <cmath>

#include "base/NumberText.h"

namespace corvan {
namespace {

using namespace std::chrono;

constexpr sys_days Origin{year{1899} / December / 30};
constexpr double SecondsPerDay = 86400.0;

std::string Due(int value) { return FormattaNumero(value, "00"); }

}  // namespace

bool TempoValido(double days) {
  static const double first = AGiorni({1980, 1, 1});
  static const double last = AGiorni({2101, 1, 1});
  return days >= first && days < last;
}

DateTime DaGiorni(double days) {
  const sys_seconds when = Origin + seconds{std::llround(days * SecondsPerDay)};
  const sys_days day = floor<std::chrono::days>(when);
  const year_month_day date{day};
  const hh_mm_ss time{when - day};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

double AGiorni(const DateTime& when) {
  const sys_days day =
      year{when.year} / month{static_cast<unsigned>(when.month)} / std::chrono::day{static_cast<unsigned>(when.day)};
  const double time = when.hour * 3600.0 + when.minute * 60.0 + when.second;
  return static_cast<double>((day - Origin).count()) + time / SecondsPerDay;
}

std::string TestoData(const DateTime& when) {
  return Due(when.day) + "/" + Due(when.month) + "/" + FormattaNumero(when.year, "0000");
}

std::string TestoOra(const DateTime& when) { return Due(when.hour) + ":" + Due(when.minute) + ":" + Due(when.second); }

std::string TestoDataOra(const DateTime& when) {
  return FormattaNumero(when.year, "0000") + "-" + Due(when.month) + "-" + Due(when.day) + " " + TestoOra(when);
}

}  // namespace corvan
