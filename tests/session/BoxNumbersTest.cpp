// What is typed into boxes: nothing is read otherwise than typed without a word, and nothing ends the program.
#include "session/BoxNumbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "base/NumberText.h"

namespace corvan {
namespace {

/// The number taken, or "refused", and the findings: faults behind "!", notes behind "-".
struct Answer {
  std::string value;
  std::string told;
};

std::string Told(const Findings& findings) {
  std::string told;
  for (const Finding& f : findings.entries()) told += (f.severity == Severity::Fault ? "!" : "-") + f.reason;
  return told;
}

template <class Number>
Answer Ask(const char* text, const BoxNumber& box) {
  Findings findings;
  const auto number = NumeroDaCasella<Number>(text, box, findings);
  return {number ? TestoNumero(static_cast<double>(*number)) : "refused", Told(findings)};
}

Answer AskRange(const char* text) {
  Findings findings;
  const auto pair = CoppiaDaCasella<float>(text, {"SetRange", "range"}, findings);
  return {pair ? TestoNumero(pair->first) + " to " + TestoNumero(pair->second) : "refused", Told(findings)};
}

constexpr BoxNumber Zone{"SetUtmZone", "zone", 1, 60};
constexpr BoxNumber Zoom{"Zoomtxt_KeyPress", "zoom"};

struct BoxCase {
  Answer (*ask)(const char*);
  const char* text;
  const char* value;
  const char* told;
};

Answer AskZone(const char* text) { return Ask<std::int16_t>(text, Zone); }
Answer AskIndex(const char* text) { return Ask<std::int32_t>(text, {"E1Txt", "extreme", 1}); }
Answer AskZoom(const char* text) { return Ask<float>(text, Zoom); }
Answer AskShift(const char* text) { return Ask<double>(text, {"TestTxt_KeyPress", "shift", -1e6, 1e6}); }

class Boxes : public ::testing::TestWithParam<BoxCase> {};

TEST_P(Boxes, SayWhatTheyReadOrRefuse) {
  const BoxCase& c = GetParam();
  const Answer answer = c.ask(c.text);
  EXPECT_EQ(answer.value, c.value) << c.text;
  EXPECT_EQ(answer.told, c.told) << c.text;
}

INSTANTIATE_TEST_SUITE_P(
    Table, Boxes,
    ::testing::Values(
        BoxCase{AskZone, " 33 ", "33", ""}, BoxCase{AskZone, "32.5", "32", ""},  // halves to even
        BoxCase{AskZone, "1", "1", ""}, BoxCase{AskZone, "60.4", "60", ""},
        BoxCase{AskZone, "32,5", "32", "-zone is not a number from end to end: \"32,5\" read as 32"},
        BoxCase{AskZone, "33N", "33", "-zone is not a number from end to end: \"33N\" read as 33"},
        BoxCase{AskZone, "61", "refused", "!zone \"61\" is not 1 to 60: nothing is changed"},
        BoxCase{AskZone, "x", "refused", "!zone \"x\" is not 1 to 60: nothing is changed"},
        BoxCase{AskZone, "99999", "refused", "!zone \"99999\" is not 1 to 60: nothing is changed"},
        BoxCase{AskIndex, "2147483648", "refused", "!extreme \"2147483648\" is not 1 or more: nothing is changed"},
        BoxCase{AskIndex, "2147483647.4", "2147483647", ""},
        BoxCase{AskZoom, "1e39", "refused", "!zoom \"1e39\" is out of range: nothing is changed"},
        BoxCase{AskZoom, "1e999", "refused", "!zoom \"1e999\" is out of range: nothing is changed"},
        BoxCase{AskZoom, "0.1", "0.10000000149011612", ""},  // the nearest single
        BoxCase{AskZoom, "", "0", "-zoom is not a number from end to end: \"\" read as 0"},
        BoxCase{AskShift, "-12.25", "-12.25", ""},
        BoxCase{AskShift, "1e7", "refused", "!shift \"1e7\" is not -1000000 to 1000000: nothing is changed"},
        BoxCase{AskRange, "1.5; -2", "1.5 to -2", ""},
        BoxCase{AskRange, "1,5;x", "1 to 0",
                "-range is not a number from end to end: \"1,5\" read as 1-range is not a number from end to end: "
                "\"x\" read as 0"},
        BoxCase{AskRange, "5", "refused",
                "-range \"5\" is not two numbers with a \";\" between them: nothing is changed"},
        BoxCase{AskRange, "5; ", "refused",
                "-range \"5;\" is not two numbers with a \";\" between them: nothing is changed"},
        BoxCase{AskRange, ";5", "refused",
                "-range \";5\" is not two numbers with a \";\" between them: nothing is changed"},
        BoxCase{AskRange, "1;1e39", "refused", "!range \"1e39\" is out of range: nothing is changed"},
        BoxCase{AskRange, "-1e39;1", "refused", "!range \"-1e39\" is out of range: nothing is changed"}));

}  // namespace
}  // namespace corvan
