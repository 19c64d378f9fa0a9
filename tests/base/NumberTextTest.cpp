// Numbers as text: what files of decades hold must be written and read to the last digit.
#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "base/NumberCheck.h"
#include "base/Rounding.h"

namespace corvan {
namespace {

// The masks of the section table, the profiles, the angles, the KML and the boxes; worked out by hand.
TEST(MaskedNumbers, AreWrittenAsOlderFilesHoldThem) {
  const std::pair<const char*, std::vector<std::pair<double, const char*>>> cases[] = {
      {"#####0.##", {{0, "0."}, {12, "12."}, {0.125, "0.13"}, {-0.004, "0."}, {99.996, "100."}, {-1.5, "-1.5"}}},
      {"#####0.##", {{2.675, "2.68"}, {2.675F, "2.67"}, {1234567.891, "1234567.89"}, {0.005, "0.01"}}},
      {"#####0.##", {{-0.005, "-0.01"}, {-0.00499, "0."}}},
      {"##0.#", {{90, "90."}, {0.05, "0.1"}, {-0.04, "0."}, {89.95, "90."}, {-180, "-180."}}},
      {"#########.0#", {{0, ".0"}, {-0.25, "-.25"}, {12, "12.0"}, {12.345F, "12.35"}, {4512345.68F, "4512345.5"}}},
      {"#######0.0#", {{0.005, "0.01"}, {-3.999, "-4.0"}, {-0.001, "0.0"}, {4512345.678, "4512345.68"}}},
      {"####0.0", {{-0.05, "-0.1"}, {0.25, "0.3"}, {12345678, "12345678.0"}}},
      {"#0", {{9.5, "10"}}},
      {"00", {{7, "07"}}},
      {"##0.00000000000000", {{12.3, "12.30000000000000"}}},
      {"#######0.00", {{1e17, "100000000000000000.00"}, {999999999999999.0, "999999999999999.00"}}},
      {"#######0.00", {{9.999999999999999e-10, "0.00"}, {49999999999999.004, "49999999999999.00"}}},
      {"##0.00000", {{-0.0, "0.00000"}, {99.999995, "100.00000"}, {-999.9999951, "-1000.00000"}, {1.00002, "1.00002"}}},
      {"0.0##", {{10.01, "10.01"}, {10.1, "10.1"}}},
      {"#0.###", {{99999999999.9995, "100000000000."}}},
      {"#0.##", {{0.285, "0.29"}}},
      {"##0.0", {{std::nan(""), ""}}}};
  for (const auto& [mask, texts] : cases) {
    for (const auto& [value, text] : texts) EXPECT_EQ(FormattaNumero(value, mask), text) << mask << " of " << value;
  }
}

/// The same text by arithmetic on the whole number of 15 digits: the rule, put down a second time.
std::string ByWholeNumbers(double value, const Mask& mask) {
  std::array<char, 40> text{};
  std::to_chars(text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific, 14);
  std::uint64_t number = 0;  // d.dddddddddddddd without its point
  int exponent = 0;
  std::swap(text[0], text[1]);
  std::from_chars(text.data() + 1, text.data() + 16, number);
  std::from_chars(text.data() + (text[17] == '+' ? 18 : 17), text.data() + text.size(), exponent);
  const int shift = exponent - 14 + mask.places;
  std::uint64_t divisor = 1;
  for (int k = shift; k < 0 && divisor < 1'000'000'000'000'000'000U; ++k) divisor *= 10;
  std::string units = std::to_string(number / divisor + (2 * (number % divisor) >= divisor ? 1 : 0));
  if (shift > 0) units += std::string(static_cast<std::size_t>(shift), '0');
  const bool zero = units.find_first_not_of('0') == std::string::npos;
  units.erase(0, zero ? units.size() : 0);
  const auto least = static_cast<std::size_t>(mask.places + mask.forcedDigits);
  if (units.size() < least) units.insert(0, least - units.size(), '0');
  if (mask.point) units.insert(units.size() - static_cast<std::size_t>(mask.places), 1, '.');
  for (int k = mask.places; k > mask.forcedPlaces && units.back() == '0'; --k) units.pop_back();
  return (value < 0.0 && !zero ? "-" : "") + units;
}

/// Numbers of every size, and most of all those at which rounding turns.
double Awkward(std::mt19937_64& random) {
  const auto below = [&random](std::uint64_t limit) { return static_cast<double>(random() % limit); };
  const double power = std::pow(10.0, below(12));
  const double sign = random() % 2 == 0 ? 1.0 : -1.0;
  const double values[] = {static_cast<float>(below(100'000'000) / power),
                           (below(10'000'000) + 0.5) / power,                      // a decimal half
                           std::round(below(1000) * power) / power - 1.0 / power,  // nines
                           below(1'000'000'000'000'000'000U) / power,
                           std::ldexp(below(1U << 20U), static_cast<int>(random() % 120) - 80),
                           below(40'000'000'000'000U) / 1e10};
  double value = values[random() % 6];
  for (std::uint64_t k = random() % 5; k > 0; --k) value = std::nextafter(value, random() % 2 == 0 ? 0.0 : 1e300);
  return sign * value;
}

TEST(NumbersOfEverySize, AreTheSameByWhicheverWayTheyAreRounded) {
  const std::array masks{Mask("#####0.##"), Mask("##0.00000"),          Mask("#########.0#"), Mask("###0.0##"),
                         Mask("####0.0"),   Mask("##0.00000000000000"), Mask("#0"),           Mask("000.0###")};
  std::mt19937_64 random(11);
  for (int k = 0; k < 2'000'000; ++k) {
    const double value = Awkward(random);
    const Mask& mask = masks.at(random() % masks.size());
    const std::string text = FormattaNumero(value, mask);
    ASSERT_EQ(text, ByWholeNumbers(value, mask)) << TestoNumero(value) << " to " << mask.places << " places";
    if (mask.places > 0) continue;
    ASSERT_EQ(ArrotondaDecimale(value, 0), Val(text)) << TestoNumero(value);
  }
}

TEST(LeadingNumber, IsReadAndTheRestIgnored) {
  const std::pair<const char*, double> cases[] = {
      {"", 0},           {"  12.5 m", 12.5}, {"12,5", 12},  {"+3", 3},      {"+-3", 0},
      {"-.5", -0.5},     {".", 0},           {"-", 0},      {"1.2.3", 1.2}, {"1e3x", 1000},
      {"1e", 1},         {"1e+", 1},         {"inf", 0},    {"-nan", 0},    {"0x1F", 0},
      {"E5", 0},         {"\t7", 7},         {"1e-999", 0}, {"0e999", 0},   {"0.0000001e-320", 0},
      {"5e-324", 5e-324}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(NumberForms, TellANumberFromWhatOnlyBeginsAsOne) {
  const std::pair<TextForm, std::vector<std::pair<const char*, double>>> cases[] = {
      {TextForm::Number, {{" \t-45.25\t ", -45.25}, {"+.5e1", 5}, {"1.", 1}}},
      {TextForm::Empty, {{"", 0}, {" \t", 0}}},
      {TextForm::Comma, {{"45,4", 45}, {"7 ,5", 7}, {",5", 0}, {"-,5", 0}}},
      {TextForm::Tail, {{"12.5 m", 12.5}, {"1.2.3", 1.2}, {"1e", 1}, {"0x1F", 0}, {"4524.5N", 4524.5}}},
      {TextForm::Word, {{"-", 0}, {"inf", 0}, {"---", 0}, {"N 45", 0}}}};
  for (const auto& [form, texts] : cases) {
    for (const auto& [text, value] : texts) {
      const NumeroLetto number = LeggiNumero(text);
      EXPECT_TRUE(number.value == value && number.form == form) << text;
      EXPECT_EQ(SoloNumero(text), form == TextForm::Number) << text;
      NumberCheck check;
      EXPECT_EQ(check.leggi(text), value);
      EXPECT_EQ(check.count(), form == TextForm::Number || form == TextForm::Empty ? 0U : 1U) << text;
    }
  }
}

TEST(NumberChecks, CountAndQuoteTheFirst) {
  NumberCheck check;
  EXPECT_EQ(check.detto(), "");
  check.leggi("12.5", 3, 4);
  check.leggi(" 45,4", 4, 26);
  EXPECT_EQ(check.detto(), "1 value is not a number from end to end in line 4, field 26: \"45,4\" read as 45");
  check.leggi("x", 5, 1);
  EXPECT_EQ(check.detto(),
            "2 values are not numbers from end to end, the first in line 4, field 26: \"45,4\" read as 45");
  NumberCheck box;
  box.leggi("1" + std::string(50, '\x01'));
  std::string shown;
  for (int k = 0; k < 39; ++k) shown += "\\x01";
  EXPECT_EQ(box.detto(), "1 value is not a number from end to end: \"1" + shown + "...\" read as 1");
}

TEST(LeadingNumber, IsTheNearestDoubleWhateverItsLength) {
  std::mt19937_64 random(7);
  for (int k = 0; k < 20000; ++k) {
    std::string text = std::to_string(random() >> (random() % 64));
    if (random() % 4 != 0) text.insert(random() % (text.size() + 1), 1, '.');
    double expected = 0;
    std::from_chars(text.data(), text.data() + text.size(), expected);
    ASSERT_EQ(Val(text), expected) << text;
    ASSERT_EQ(Val("-" + text), -expected) << text;
    const std::string line = text + ";1";
    ASSERT_EQ(static_cast<std::size_t>(CercaNumero(line).end - line.data()), text.size()) << text;
  }
  EXPECT_TRUE(std::signbit(Val("-0")));
}

TEST(LeadingNumber, TooLargeForADoubleIsAnErrorAndNeverInfinity) {
  for (const char* text : {"1e999", "-1e999", "1e+99999999999999999999", "123456e304"})
    EXPECT_THROW(Val(text), RunTimeError) << text;
  EXPECT_EQ(Val("1e-99999999999999999999"), 0.0);
}

TEST(PlainNumbers, ReadBackToTheSameValueWithoutExponent) {
  std::mt19937_64 random(1);
  for (int k = 0; k < 20000; ++k) {
    const auto bits = random();
    const double value = std::bit_cast<double>(bits);
    const float single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (!std::isfinite(value) || !std::isfinite(single)) continue;
    const std::string text = TestoNumero(value);
    ASSERT_EQ(text.find_first_of("eE"), std::string::npos);
    ASSERT_EQ(Val(text), value) << text;
    ASSERT_EQ(static_cast<float>(Val(TestoNumero(single))), single) << TestoNumero(single);
  }
  EXPECT_EQ(TestoNumero(0.1F), "0.1");
  EXPECT_EQ(TestoNumero(-0.0), "0");
  EXPECT_EQ(TestoConSegno(4.0), " 4");
  EXPECT_EQ(TestoConSegno(-4.0), "-4");
}

TEST(Rounding, GoesToEvenOnHalvesAndRefusesWhatDoesNotFit) {
  const std::pair<double, double> halves[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},    {-0.5, 0},
                                              {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {-7.6, -8}};
  for (const auto& [value, rounded] : halves) EXPECT_EQ(ArrotondaPari(value), rounded) << value;
  EXPECT_EQ(AInt16(32767.4), 32767);
  EXPECT_THROW(AInt16(32767.5), RunTimeError);
  EXPECT_EQ(AInt32(-2147483648.5), -2147483647 - 1);
  EXPECT_THROW(AInt32(std::nan("")), RunTimeError);
  EXPECT_THROW(ASingolo(3.5e38), RunTimeError);
  EXPECT_EQ(SingoloOppure(1e300, 7.0F), 7.0F);
}

}  // namespace
}  // namespace corvan
