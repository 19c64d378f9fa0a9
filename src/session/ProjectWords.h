// The words of project files.
#pragma once

#include <array>
#include <cstddef>
#include <utility>

#include "session/Project.h"

namespace corvan {

inline constexpr const char* ProjectKey = "corvan_project";

/// The word of each value of an enumeration.
template <class Value, std::size_t Count>
using Words = std::array<std::pair<Value, const char*>, Count>;

inline constexpr Words<CoordinateEntry, 4> CoordinateWords{{{CoordinateEntry::DDMMSS, "ddmmss"},
                                                            {CoordinateEntry::DDMM, "ddmm"},
                                                            {CoordinateEntry::DD, "dd"},
                                                            {CoordinateEntry::UTM, "utm"}}};
inline constexpr Words<BadGps, 3> FilterWords{
    {{BadGps::NoFilter, "none"}, {BadGps::Skip, "skip"}, {BadGps::Interpolate, "interpolate"}}};
inline constexpr Words<Question, 7> QuestionWords{{{Question::ChannelNumber, "channels"},
                                                   {Question::ColumnNames, "columns"},
                                                   {Question::ElectrodeSpacing, "spacing"},
                                                   {Question::TrackZone, "track_zone"},
                                                   {Question::TrackDate, "track_date"},
                                                   {Question::BezierPoints, "bezier_points"},
                                                   {Question::FewFixes, "few_fixes"}}};
inline constexpr Words<ColourDesk::RangeFrom, 3> RangeWords{{{ColourDesk::RangeFrom::Data, "data"},
                                                             {ColourDesk::RangeFrom::Percentiles, "percentiles"},
                                                             {ColourDesk::RangeFrom::Typed, "typed"}}};
inline constexpr Words<SectionLines, 3> LineWords{
    {{SectionLines::Stacked, "stacked"}, {SectionLines::Along, "along"}, {SectionLines::One, "one"}}};
inline constexpr Words<DepthAxis, 2> DepthWords{{{DepthAxis::Metres, "metres"}, {DepthAxis::Levels, "levels"}}};
inline constexpr Words<CableShape, 2> CableWords{
    {{CableShape::Straight, "straight"}, {CableShape::AlongTrack, "track"}}};
inline constexpr Words<bool OutputPanel::*, 14> OutputWords{{{&OutputPanel::BinChk, "bin"},
                                                             {&OutputPanel::TxtChk, "txt"},
                                                             {&OutputPanel::EchoZChk, "ecs"},
                                                             {&OutputPanel::KMLchk, "kml"},
                                                             {&OutputPanel::ErtChk, "ert"},
                                                             {&OutputPanel::BottomChk, "bottom"},
                                                             {&OutputPanel::Res2dinvChk, "res2dinv"},
                                                             {&OutputPanel::GpkgChk, "gpkg"},
                                                             {&OutputPanel::GeojsonChk, "geojson"},
                                                             {&OutputPanel::VtuChk, "vtu"},
                                                             {&OutputPanel::Ert3DChk, "ert_3d"},
                                                             {&OutputPanel::KmlExactChk, "kml_exact"},
                                                             {&OutputPanel::TruePosChk, "true_position"},
                                                             {&OutputPanel::ExtGPSChk, "external_gps"}}};
inline constexpr std::array CurveWords{"current", "potential", "resistivity", "depth", "speed", "time"};
static_assert(CurveWords.size() == Curves, "curves in the order of their names");

}  // namespace corvan
