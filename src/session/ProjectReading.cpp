// Projects as JSON: reading.
#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/Errors.h"
#include "base/NumberCheck.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "picture/Palette.h"
#include "session/ProjectWords.h"

namespace corvan {
namespace {

using Json = nlohmann::ordered_json;

/// One object of the text, with its place in it; every key is taken once, and what is left is not known.
class Reader {
 public:
  Reader(const Json& json, std::string place, std::vector<std::string>& notes)
      : json_(json), place_(std::move(place)), notes_(notes) {
    if (!json.is_object()) throw RunTimeError(place_ + " is not an object");
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  /// The value of a key; none where it is missing or null.
  const Json* trova(const char* key) {
    seen_.insert(key);
    const auto found = json_.find(key);
    return found == json_.end() || found->is_null() ? nullptr : &*found;
  }
  std::string posto(const std::string& key) const { return place_.empty() ? key : place_ + "." + key; }

  template <class Value>
  void prendi(const char* key, Value& value) {
    if (const Json* json = trova(key)) value = valore<Value>(*json, posto(key));
  }
  template <class Value>
  void prendi(const char* key, std::optional<Value>& value) {
    value.reset();
    if (const Json* json = trova(key)) value = valore<Value>(*json, posto(key));
  }
  template <class Value, std::size_t Count>
  void scegli(const char* key, const Words<Value, Count>& words, Value& value) {
    const Json* json = trova(key);
    if (json == nullptr) return;
    const auto text = valore<std::string>(*json, posto(key));
    const auto found = std::find_if(words.begin(), words.end(), [&](const auto& w) { return text == w.second; });
    if (found == words.end()) throw RunTimeError(posto(key) + " is " + Citazione(text) + ", which is not known");
    value = found->first;
  }
  /// Runs for each entry of a list with its place.
  template <class Run>
  void perOgni(const char* key, Run run) {
    const Json* json = trova(key);
    if (json == nullptr) return;
    if (!json->is_array()) throw RunTimeError(posto(key) + " is not a list");
    for (std::size_t k = 0; k < json->size(); ++k) run((*json)[k], posto(key) + "[" + std::to_string(k) + "]");
  }
  /// Runs with the object of a key, where it is there.
  template <class Run>
  void dentro(const char* key, Run run) {
    if (const Json* json = trova(key)) {
      Reader inner(*json, posto(key), notes_);
      run(inner);
      inner.fine();
    }
  }
  /// Names what nobody asked for.
  void fine() {
    for (const auto& [key, value] : json_.items()) {
      if (!seen_.contains(key)) notes_.push_back(posto(key) + " is not known here and left aside");
    }
  }
  std::vector<std::string>& notes() { return notes_; }

  template <class Value>
  static Value valore(const Json& json, const std::string& place) {
    const auto wrong = [&place](const char* kind) { return RunTimeError(place + " is not " + kind); };
    if constexpr (std::is_same_v<Value, std::string>) {
      if (!json.is_string()) throw wrong("a text");
      return json.get<std::string>();
    } else if constexpr (std::is_same_v<Value, bool>) {
      if (!json.is_boolean()) throw wrong("true or false");
      return json.get<bool>();
    } else if constexpr (std::is_floating_point_v<Value>) {
      if (!json.is_number()) throw wrong("a number");
      const auto number = json.get<double>();
      if (!(std::abs(number) <= static_cast<double>(std::numeric_limits<Value>::max()))) throw wrong("a finite number");
      return static_cast<Value>(number);
    } else {
      if (!json.is_number_integer()) throw wrong("a whole number");
      const bool big = json.is_number_unsigned() && json.get<std::uint64_t>() > std::uint64_t{1} << 62;
      const std::int64_t number = big ? -1 : json.get<std::int64_t>();
      if (big || !std::in_range<Value>(number)) throw RunTimeError(place + " is out of range");
      return static_cast<Value>(number);
    }
  }

 private:
  const Json& json_;
  std::string place_;
  std::vector<std::string>& notes_;
  std::set<std::string> seen_;
};

struct Loader {
  Project& project;
  const std::filesystem::path& folder;

  std::filesystem::path nome(const std::string& text) const {
    const std::filesystem::path path = PercorsoDi(text);
    return (path.is_absolute() ? path : folder / path).lexically_normal();
  }

  std::filesystem::path file(Reader& of) {
    ProjectFile card;
    std::string path;
    of.prendi("path", path);
    if (path.empty()) throw RunTimeError(of.posto("path") + " is missing");
    card.path = nome(path);
    std::optional<std::uintmax_t> bytes;
    of.prendi("bytes", bytes);
    of.prendi("crc32", card.checksum);
    card.there = bytes.has_value();
    card.bytes = bytes.value_or(0);
    project.files.push_back(card);
    return card.path;
  }

  static void risposte(Reader& of, std::vector<GivenAnswer>& answers) {
    of.perOgni("answers", [&](const Json& json, const std::string& place) {
      Reader one(json, place, of.notes());
      for (const auto& [question, word] : QuestionWords) {
        if (!json.contains(word)) continue;
        GivenAnswer answer{question, std::nullopt};
        one.prendi(word, answer.text);
        answers.push_back(std::move(answer));
      }
      one.fine();
    });
  }

  void lettura(Reader& of) {
    ReadAct act;
    of.perOgni("files", [&](const Json& json, const std::string& place) {
      Reader one(json, place, of.notes());
      act.in.File1.push_back(file(one));
      one.fine();
    });
    of.scegli("coordinates", CoordinateWords, act.in.LatLonCmbx);
    of.scegli("bad_gps", FilterWords, act.in.filter);
    of.prendi("past_gaps", act.in.pastGaps);
    of.prendi("south", act.in.south);
    of.prendi("spacing", act.in.spacing);
    risposte(of, act.answers);
    project.acts.emplace_back(std::move(act));
  }

  void traccia(Reader& of) {
    TrackAct act;
    of.dentro("file", [&](Reader& one) { act.file = file(one); });
    if (act.file.empty()) throw RunTimeError(of.posto("file") + " is missing");
    risposte(of, act.answers);
    project.acts.emplace_back(std::move(act));
  }

  void collegamento(Reader& of) {
    PlaceLinkAct act;
    std::size_t k = 0;
    of.perOgni("link_by_position", [&](const Json& json, const std::string& place) {
      if (k == 2) throw RunTimeError(place + " is a third connection");
      Reader one(json, place, of.notes());
      one.prendi("measurement", act.connections.measurement.at(k));
      one.prendi("fix", act.connections.fix.at(k));
      one.fine();
      ++k;
    });
    if (k != 2) throw RunTimeError(of.posto("link_by_position") + " has not two connections");
    project.acts.emplace_back(act);
  }

  void atto(Reader& of) {
    of.dentro("read", [&](Reader& in) { lettura(in); });
    of.dentro("track", [&](Reader& in) { traccia(in); });
    std::optional<std::string> cable;
    of.prendi("cable", cable);
    if (cable) project.acts.emplace_back(CableAct{*cable});
    std::optional<std::int16_t> zone;
    of.prendi("zone", zone);
    if (zone) project.acts.emplace_back(ZoneAct{*zone});
    of.dentro("link_by_time", [&](Reader& in) {
      TimeLinkAct act;
      in.prendi("clock_offset", act.clockOffset);
      project.acts.emplace_back(act);
    });
    if (of.trova("link_by_position") != nullptr) collegamento(of);
    std::optional<std::int32_t> depth;
    of.prendi("correct_depth", depth);
    if (depth) project.acts.emplace_back(DepthAct{*depth});
  }

  void qualita(Reader& of) {
    QualityLimits& l = project.limits;
    of.prendi("min_current", l.corrente);
    of.prendi("min_potential", l.potenziale);
    of.prendi("max_deviation", l.deviazione);
    of.prendi("rho_min", l.rhoMin);
    of.prendi("rho_max", l.rhoMax);
    of.dentro("despike", [&](Reader& in) {
      l.picchi = Despike{};
      in.prendi("factor", l.picchi->fattore);
      in.prendi("window", l.picchi->finestra);
      if (!(l.picchi->fattore > 0.0)) throw RunTimeError(in.posto("factor") + " is not over 0");
      if (l.picchi->finestra < 3) throw RunTimeError(in.posto("window") + " is not 3 or more");
    });
    of.prendi("no_negative", l.negative);
    of.perOgni("by_hand", [&](const Json& json, const std::string& place) {
      Reader one(json, place, of.notes());
      ReadingKey key;
      bool excluded = true;
      one.prendi("measurement", key.misura);
      one.prendi("channel", key.canale);
      one.prendi("excluded", excluded);
      if (key.canale < 1 || key.canale > MaxChannels) throw RunTimeError(one.posto("channel") + " is not 1 to 10");
      project.byHand[key] = excluded;
      one.fine();
    });
  }

  void uscite(Reader& of) {
    OutputPanel& o = project.outputs;
    std::string root;
    of.prendi("root", root);
    if (!root.empty()) o.FileOutTxt = nome(root).string();
    for (const auto& [box, word] : OutputWords) of.prendi(word, o.*box);
    of.scegli("cable_geometry", CableWords, o.cable);
    of.prendi("track_smoothing", o.SmoothTxt);
    of.prendi("csv", project.others.csv);
    for (const auto& [key, file] :
         {std::pair("picture", &project.others.picture), std::pair("section_picture", &project.others.section)}) {
      std::string name;
      of.prendi(key, name);
      if (!name.empty()) *file = nome(name);
    }
    of.prendi("picture_size", project.others.size);
    of.prendi("caption", project.others.caption);
    of.prendi("cable_offset", project.offsets.cable);
    of.prendi("echo_offset", project.offsets.echo);
    of.prendi("kml_offset", project.offsets.kml);
  }

  template <class Number>
  static void coppia(Reader& of, const char* key, Number& low, Number& high) {
    std::size_t k = 0;
    of.perOgni(key, [&](const Json& json, const std::string& place) {
      if (k == 2) throw RunTimeError(place + " is a third number");
      (k++ == 0 ? low : high) = Reader::valore<Number>(json, place);
    });
  }

  void colori(Reader& of) {
    ColourDesk::Choice& c = project.colours;
    std::string palette;
    of.prendi("palette", palette);
    const PaletteEntry* entry = PaletteDaParola(palette);
    if (!palette.empty() && entry == nullptr) {
      throw RunTimeError(of.posto("palette") + " is " + Citazione(palette) + ", which is not known");
    }
    if (entry != nullptr) c.palette = entry->name;
    of.prendi("reversed", c.reversed);
    of.prendi("logarithmic", c.logarithmic);
    of.scegli("range", RangeWords, c.from);
    coppia(of, "percentiles", c.share.low, c.share.high);
    if (!(c.share.low >= 0.0 && c.share.low < c.share.high && c.share.high <= 100.0)) {
      throw RunTimeError(of.posto("percentiles") + " are not LOW, HIGH with 0 <= LOW < HIGH <= 100");
    }
    coppia(of, "typed", c.typed.ScalaMin, c.typed.ScalaMax);
  }

  void vista(Reader& of) {
    ProjectView& v = project.view;
    of.prendi("theta", v.theta);
    of.prendi("phi", v.phi);
    of.prendi("gamma", v.gamma);
    of.prendi("zoom", v.zoom);
    if (!(v.zoom > 0.0)) throw RunTimeError(of.posto("zoom") + " is not over 0");
    of.prendi("perspective", v.perspective);
    of.prendi("map_level", v.map.livello);
    of.prendi("map_width", v.map.larghezza);
    of.prendi("exaggeration", v.exaggeration);
    if (!(v.exaggeration > 0.0)) throw RunTimeError(of.posto("exaggeration") + " is not over 0");
    of.dentro("layers", [&](Reader& in) {
      for (const LayerEntry& layer : LayerTable) in.prendi(layer.name, v.layers.*layer.flag);
    });
  }

  void sezione(Reader& of) {
    SectionView& s = project.section;
    of.scegli("lines", LineWords, s.lines);
    of.prendi("line", s.line);
    of.scegli("depth", DepthWords, s.depth);
    of.dentro("curves", [&](Reader& in) {
      for (std::size_t k = 0; k < Curves; ++k) in.prendi(CurveWords.at(k), s.curves.at(k));
    });
  }

  void tutto(Reader& of) {
    of.perOgni("steps", [&](const Json& json, const std::string& place) {
      Reader one(json, place, of.notes());
      atto(one);
      one.fine();
    });
    of.dentro("translation", [&](Reader& in) {
      in.prendi("data_east", project.dataEast);
      in.prendi("data_north", project.dataNorth);
      in.prendi("depth_east", project.depthEast);
      in.prendi("depth_north", project.depthNorth);
    });
    of.dentro("quality", [&](Reader& in) { qualita(in); });
    of.dentro("selection", [&](Reader& in) {
      in.prendi("from", project.from);
      in.prendi("to", project.to);
    });
    of.dentro("outputs", [&](Reader& in) { uscite(in); });
    of.dentro("colours", [&](Reader& in) { colori(in); });
    of.dentro("view", [&](Reader& in) { vista(in); });
    of.dentro("section", [&](Reader& in) { sezione(in); });
  }
};

}  // namespace

Project LeggiProgetto(const std::string& text, const std::filesystem::path& folder, std::vector<std::string>& notes) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::exception& error) {
    const std::string_view told = error.what();  // behind the library's own number
    throw RunTimeError("is no project: " + std::string(told.substr(told.find("] ") + 2)));
  }
  if (!json.is_object() || !json.contains(ProjectKey)) throw RunTimeError("is no project of this program");
  Project project;
  Reader all(json, "", notes);
  int version = 0;
  all.prendi(ProjectKey, version);
  if (version > ProjectVersion) {
    throw RunTimeError("was saved by a newer version of this program: its layout is " + std::to_string(version) +
                       ", and layouts up to " + std::to_string(ProjectVersion) + " are known here");
  }
  if (version < 1) throw RunTimeError("layout " + std::to_string(version) + " is not 1 or more");
  Loader{project, folder}.tutto(all);
  all.fine();
  return project;
}

bool SembraProgetto(std::string_view beginning) {
  constexpr std::size_t enough = 200;
  return beginning.substr(0, enough).find("\"corvan_project\"") != std::string_view::npos;
}

}  // namespace corvan
