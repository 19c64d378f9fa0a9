// Checks of option values.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace corvan::cli {

/// One plain finite number.
CLI::Validator Numero();
/// One plain number of at most that size.
CLI::Validator NumeroEntro(double most);
/// One plain number from the one bound to the other.
CLI::Validator NumeroTra(double low, double high);
/// Two numbers joined by a comma, e.g. "2.5,-1".
CLI::Validator Coppia();
/// A range of colours: "auto", percentiles as "p2,98", or two numbers joined by a semicolon, e.g. "0.5;12".
CLI::Validator Intervallo();

/// Two whole numbers from 1 on joined by a colon, e.g. "12:340".
CLI::Validator Collegamento();

/// A day as YYYY-MM-DD, in the calendar.
CLI::Validator Giorno();

/// What a shell may offer for an option's value stands in the name of one of the option's validators: a kind ("words",
/// "list" of words, "endings" of file names without their point, "folders"), a colon and the words.
inline constexpr char OfferSeparator = '|';
std::string Offerta(const char* kind, const std::vector<std::string>& words);

/// Usual endings of survey files; content tells what a file is, so others are read as well.
inline const std::vector<std::string> SurveyEndings{"bin", "txt", "dat", "csv", "tsv"};

/// Takes every text and only carries the offer.
CLI::Validator Offre(const char* kind, const std::vector<std::string>& words);

/// One of the words.
CLI::Validator Parola(std::vector<std::string> words);

/// A comma-separated list of some of the words.
CLI::Validator Elenco(std::vector<std::string> words);

/// The words of a comma-separated list.
std::vector<std::string> Voci(const std::string& list);

}  // namespace corvan::cli
