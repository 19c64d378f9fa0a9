// Projects as JSON: writing.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/PathText.h"
#include "picture/Palette.h"
#include "session/ProjectWords.h"

namespace corvan {
namespace {

using Json = nlohmann::ordered_json;

template <class Value, std::size_t Count>
const char* Parola(const Words<Value, Count>& words, const Value& value) {
  for (const auto& [one, word] : words) {
    if (one == value) return word;
  }
  return "";
}

Json Opzionale(const std::optional<double>& value) { return value ? Json(*value) : Json(nullptr); }

std::string Nome(const std::filesystem::path& path, const std::filesystem::path& folder) {
  if (path.empty()) return "";
  const std::filesystem::path near = path.lexically_proximate(folder);
  return (near.empty() ? path : near).generic_string();
}

struct Writer {
  const Project& project;
  const std::filesystem::path& folder;

  Json file(const std::filesystem::path& path) const {
    const auto found = std::find_if(project.files.begin(), project.files.end(),
                                    [&path](const ProjectFile& f) { return f.path == path; });
    Json json = {{"path", Nome(path, folder)}};
    if (found == project.files.end() || !found->there) return json;
    json["bytes"] = found->bytes;
    json["crc32"] = found->checksum;
    return json;
  }

  static Json answers(const std::vector<GivenAnswer>& given) {
    Json json = Json::array();
    for (const GivenAnswer& answer : given) {
      const std::string word = Parola(QuestionWords, answer.question);
      if (!word.empty()) json.push_back({{word, answer.text ? Json(*answer.text) : Json(nullptr)}});
    }
    return json;
  }

  Json operator()(const ReadAct& act) const {
    Json json;
    for (const auto& path : act.in.File1) json["files"].push_back(file(path));
    json["coordinates"] = Parola(CoordinateWords, act.in.LatLonCmbx);
    json["bad_gps"] = Parola(FilterWords, act.in.filter);
    json["past_gaps"] = act.in.pastGaps;
    json["south"] = act.in.south;
    if (!act.in.spacing.empty()) json["spacing"] = act.in.spacing;
    json["answers"] = answers(act.answers);
    return {{"read", json}};
  }
  Json operator()(const TrackAct& act) const {
    return {{"track", {{"file", file(act.file)}, {"answers", answers(act.answers)}}}};
  }
  Json operator()(const CableAct& act) const { return {{"cable", act.text}}; }
  Json operator()(const ZoneAct& act) const { return {{"zone", act.zone}}; }
  Json operator()(const TimeLinkAct& act) const { return {{"link_by_time", {{"clock_offset", act.clockOffset}}}}; }
  Json operator()(const PlaceLinkAct& act) const {
    Json pairs = Json::array();
    for (std::size_t k = 0; k < 2; ++k) {
      pairs.push_back({{"measurement", act.connections.measurement.at(k)}, {"fix", act.connections.fix.at(k)}});
    }
    return {{"link_by_position", pairs}};
  }
  Json operator()(const DepthAct& act) const { return {{"correct_depth", act.measurement}}; }

  Json quality() const {
    const QualityLimits& l = project.limits;
    Json json = {{"min_current", Opzionale(l.corrente)},
                 {"min_potential", Opzionale(l.potenziale)},
                 {"max_deviation", Opzionale(l.deviazione)},
                 {"rho_min", Opzionale(l.rhoMin)},
                 {"rho_max", Opzionale(l.rhoMax)},
                 {"despike", nullptr},
                 {"no_negative", l.negative},
                 {"by_hand", Json::array()}};
    if (l.picchi) json["despike"] = {{"factor", l.picchi->fattore}, {"window", l.picchi->finestra}};
    for (const auto& [key, excluded] : project.byHand) {
      json["by_hand"].push_back({{"measurement", key.misura}, {"channel", key.canale}, {"excluded", excluded}});
    }
    return json;
  }

  Json outputs() const {
    const OutputPanel& o = project.outputs;
    Json json = {{"root", Nome(PercorsoDi(o.FileOutTxt), folder)}};
    for (const auto& [box, word] : OutputWords) json[word] = o.*box;
    json["cable_geometry"] = Parola(CableWords, o.cable);
    json["track_smoothing"] = o.SmoothTxt;
    json["csv"] = project.others.csv;
    json["picture"] = Nome(project.others.picture, folder);
    json["section_picture"] = Nome(project.others.section, folder);
    json["picture_size"] = project.others.size;
    json["caption"] = project.others.caption;
    json["cable_offset"] = project.offsets.cable;
    json["echo_offset"] = project.offsets.echo;
    json["kml_offset"] = project.offsets.kml;
    return json;
  }

  Json colours() const {
    const ColourDesk::Choice& c = project.colours;
    return {{"palette", VoceDi(c.palette).word},
            {"reversed", c.reversed},
            {"logarithmic", c.logarithmic},
            {"range", Parola(RangeWords, c.from)},
            {"percentiles", {c.share.low, c.share.high}},
            {"typed", {c.typed.ScalaMin, c.typed.ScalaMax}}};
  }

  Json view() const {
    const ProjectView& v = project.view;
    Json layers = Json::object();
    for (const LayerEntry& layer : LayerTable) layers[layer.name] = v.layers.*layer.flag;
    return {{"theta", v.theta},
            {"phi", v.phi},
            {"gamma", v.gamma},
            {"zoom", v.zoom},
            {"perspective", v.perspective},
            {"map_level", v.map.livello},
            {"map_width", v.map.larghezza},
            {"exaggeration", v.exaggeration},
            {"layers", layers}};
  }

  Json section() const {
    const SectionView& s = project.section;
    Json curves = Json::object();
    for (std::size_t k = 0; k < Curves; ++k) curves[CurveWords.at(k)] = s.curves.at(k);
    return {{"lines", Parola(LineWords, s.lines)},
            {"line", s.line},
            {"depth", Parola(DepthWords, s.depth)},
            {"curves", curves}};
  }
};

}  // namespace

std::string TestoProgetto(const Project& project, const std::filesystem::path& folder) {
  const Writer write{project, folder};
  Json json = {{ProjectKey, ProjectVersion}, {"steps", Json::array()}};
  for (const Act& act : project.acts) json["steps"].push_back(std::visit(write, act));
  json["translation"] = {{"data_east", project.dataEast},
                         {"data_north", project.dataNorth},
                         {"depth_east", project.depthEast},
                         {"depth_north", project.depthNorth}};
  json["quality"] = write.quality();
  json["selection"] = {{"from", project.from ? Json(*project.from) : Json(nullptr)},
                       {"to", project.to ? Json(*project.to) : Json(nullptr)}};
  json["outputs"] = write.outputs();
  json["colours"] = write.colours();
  json["view"] = write.view();
  json["section"] = write.section();
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace corvan
