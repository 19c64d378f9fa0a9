// Everything that the program asks or tells in a box, each with its text and title once.
#pragma once

#include <array>
#include <cstddef>

namespace corvan {

enum class Question {
  // Answered with a text.
  ChannelNumber,
  ColumnNames,
  ElectrodeSpacing,
  CableConfiguration,
  UtmZone,
  TrackZone,
  TrackDate,
  BezierPoints,
  ClockOffset,
  ColourRange,
  MapLevel,
  Exaggeration,
  Connection,  ///< its number and the measurement's stand in prompt and title
  CableOffset,
  EchoOffset,
  KmlOffset,
  // Answered with OK or Cancel.
  FewFixes,
  CorrectDepth,
  ReplaceFiles,
  // Told.
  NoSection,
  NoConnections,
  SameFix,
  WrongLayout,
  WrongDatum
};

enum class Buttons { Ok, OkCancel };

struct QuestionText {
  Question question;
  const char* prompt;  ///< % stands for a number
  const char* title;
  Buttons buttons = Buttons::OkCancel;
};

inline constexpr std::array QuestionTable{
    QuestionText{Question::ChannelNumber, "Set Channel Number", "N. Channel"},
    QuestionText{Question::ColumnNames, "Columns from left to right", "Column Text"},
    QuestionText{Question::ElectrodeSpacing, "Electrode spacing [m]", "Column Text"},
    QuestionText{Question::CableConfiguration, "Set String", "Cable Configuration"},
    QuestionText{Question::UtmZone, "UTM Zone n. ", "Set Universal Trasverse Mercatore Zone"},
    QuestionText{Question::TrackZone, "Set UTM zone", "Zone n."},
    QuestionText{Question::TrackDate, "Date of the first fix (yyyy-mm-dd)", "The log holds no date"},
    QuestionText{Question::BezierPoints, "N Bezier Points", "Set the interpolation"},
    QuestionText{Question::ClockOffset, "Seconds to add to the instrument's clock", "Link by Time"},
    QuestionText{Question::ColourRange, "Scale (Min; Max)", "Set Colour Scale Range"},
    QuestionText{Question::MapLevel, "Level; Width in pixels", "Map Colours"},
    QuestionText{Question::Exaggeration, "Heights times", "Vertical Exaggeration"},
    QuestionText{Question::Connection, "Connection % (Data <--> GPS", "Data n.%"},
    QuestionText{Question::CableOffset, "Distance of the first floating Electrode from Syscal",
                 "Set Cable Offset Value "},
    QuestionText{Question::EchoOffset, "Distance of EchoSounder from Syscal", "Set EchoSounder Offset Value "},
    QuestionText{Question::KmlOffset, "Add vertical offset [m]", "OffSet Z"},
    QuestionText{Question::FewFixes, "not enough GPS points", ""},
    QuestionText{Question::CorrectDepth, "Correct Depth Value?", ""},
    QuestionText{Question::ReplaceFiles, "Replace the files that are there?", "Save File Out"},
    QuestionText{Question::NoSection, "No points selected", "", Buttons::Ok},
    QuestionText{Question::NoConnections, "You must define two connection before link data and gps", "", Buttons::Ok},
    QuestionText{Question::SameFix, "Something wrong", "", Buttons::Ok},
    QuestionText{Question::WrongLayout, "Only DMMSS DMM.MMM D.DDDD formats allowed", "Warning", Buttons::Ok},
    QuestionText{Question::WrongDatum, "Wrong Datum Name", "", Buttons::Ok}};

constexpr const QuestionText& TestoDi(Question question) { return QuestionTable[static_cast<std::size_t>(question)]; }

static_assert(
    [] {
      for (std::size_t k = 0; k < QuestionTable.size(); ++k) {
        if (static_cast<std::size_t>(QuestionTable[k].question) != k) return false;
      }
      return true;
    }(),
    "questions in the order of their names");

}  // namespace corvan
