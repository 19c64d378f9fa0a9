#include "cli/Validators.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/DateText.h"
#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/OleDate.h"
#include "session/ColourDesk.h"

namespace corvan::cli {
namespace {

CLI::Validator DueNumeri(char separator, const char* form) {
  return {[separator, form](std::string& text) -> std::string {
            const std::size_t at = text.find(separator);
            const bool pair =
                at != std::string::npos && SoloNumero(text.substr(0, at)) && SoloNumero(text.substr(at + 1));
            return pair ? "" : "\"" + text + "\" is not " + form;
          },
          form};
}

}  // namespace

CLI::Validator Numero() {
  return {[](std::string& text) -> std::string { return SoloNumero(text) ? "" : "\"" + text + "\" is not a number"; },
          "NUMBER"};
}

CLI::Validator NumeroEntro(double most) { return NumeroTra(-most, most); }

CLI::Validator NumeroTra(double low, double high) {
  return {[low, high](std::string& text) -> std::string {
            if (!SoloNumero(text)) return "\"" + text + "\" is not a number";
            const double value = Val(text);
            if (value >= low && value <= high) return "";
            return "\"" + text + "\" is not " + TestoNumero(low) + " to " + TestoNumero(high);
          },
          "NUMBER"};
}

CLI::Validator Coppia() { return DueNumeri(',', "E,N"); }

CLI::Validator Intervallo() {
  return {[](std::string& text) -> std::string {
            if (text == "auto") return "";
            if (!text.starts_with('p')) return DueNumeri(';', "MIN;MAX")(text);
            return PercentiliDaTesto(text) ? "" : "\"" + text + "\" is not pLOW,HIGH with 0 <= LOW < HIGH <= 100";
          },
          "auto|pLOW,HIGH|MIN;MAX"};
}

CLI::Validator Collegamento() {
  return {[](std::string& text) -> std::string {
            const std::size_t colon = text.find(':');
            const auto counts = [](const std::string& number) {
              return !number.empty() && number.size() <= 9 && number.front() != '0' &&
                     number.find_first_not_of("0123456789") == std::string::npos;
            };
            const bool pair =
                colon != std::string::npos && counts(text.substr(0, colon)) && counts(text.substr(colon + 1));
            return pair ? "" : "\"" + text + "\" is not M:G with numbers from 1 on";
          },
          "M:G"};
}

CLI::Validator Giorno() {
  return {[](std::string& text) -> std::string {
            constexpr std::size_t length = 10;
            const bool form = text.size() == length && text[4] == '-' && text[7] == '-' &&
                              text.find_first_not_of("0123456789-") == std::string::npos;
            try {
              if (form && TempoValido(DataDaTesto(text))) return "";
            } catch (const RunTimeError&) {
              return "\"" + text + "\" is no day of the calendar";
            }
            return "\"" + text + "\" is not YYYY-MM-DD in the years 1980 to 2100";
          },
          "YYYY-MM-DD"};
}

std::string Offerta(const char* kind, const std::vector<std::string>& words) {
  return kind + (":" + CLI::detail::join(words, std::string(1, OfferSeparator)));
}

CLI::Validator Offre(const char* kind, const std::vector<std::string>& words) {
  return {[](std::string&) { return std::string(); }, "", Offerta(kind, words)};
}

CLI::Validator Parola(std::vector<std::string> words) {
  return {[words = std::move(words)](std::string& word) -> std::string {
            if (std::find(words.begin(), words.end(), word) != words.end()) return "";
            return "\"" + word + "\" is not one of " + CLI::detail::join(words, ", ");
          },
          "WORD"};
}

CLI::Validator Elenco(std::vector<std::string> words) {
  std::string offer = Offerta("list", words);
  return {[words = std::move(words)](std::string& list) -> std::string {
            for (const std::string& word : Voci(list)) {
              if (std::find(words.begin(), words.end(), word) == words.end()) {
                return "\"" + word + "\" is not one of " + CLI::detail::join(words, ", ");
              }
            }
            return "";
          },
          "LIST", std::move(offer)};
}

std::vector<std::string> Voci(const std::string& list) { return CLI::detail::split(list, ','); }

}  // namespace corvan::cli
