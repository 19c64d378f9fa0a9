// Date and time as the instrument stores them: days since 1899-12-30, the fraction being the time of day.
#pragma once

#include <string>

namespace corvan {

/// A civil date and time of day (proleptic Gregorian calendar, no time zone).
struct DateTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// True for a time stamp that a survey can carry: finite and within the years 1980 to 2100.
bool TempoValido(double days);

/// The date of a day number, to the nearest second. @param days must be TempoValido
DateTime DaGiorni(double days);

/// The day number of a date.
double AGiorni(const DateTime& when);

std::string TestoData(const DateTime& when);     ///< dd/mm/yyyy
std::string TestoOra(const DateTime& when);      ///< hh:mm:ss
std::string TestoDataOra(const DateTime& when);  ///< yyyy-mm-dd hh:mm:ss

}  // namespace corvan
