// Any bytes as a column text, behind a header or with columns that are stated; the first byte picks which and the
// options.
#include <algorithm>
#include <array>

#include "base/Lines.h"
#include "input/ColumnReader.h"
#include "input/ColumnScan.h"
#include "SurveyChain.h"

namespace {

using namespace corvan;

constexpr std::array Headers{"", "a b m n r easting northing\n", "a,b,m,n,u,i,lat,lon,depth,time,line\n",
                             "# A;B;M;N;rhoa;x;y;date;time\n"};

/// What a firing of a column text always is.
void PromiseFiring(const Misura& m) {
  fuzz::Promise(m.CavoProprio, "its electrodes are its own");
  fuzz::Promise((m.letture & ~AllReadings) == 0, "it has ten channels at most");
  fuzz::Promise(Vuota(m) || m.Val180 != 0.0F, "a reading has a current");
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    fuzz::Promise(HaLettura(m, c) || (m.CanaleA.at(c) == 0.0F && m.Rho.at(c) == 0.0F), "no reading is 0");
    fuzz::Promise(m.CanaleB.at(c) == -m.CanaleA.at(c), "both signs are told");
  }
}

Findings Walk(const std::filesystem::path& path, const ColumnPlan& plan, const ReadOptions& options,
              std::size_t block) {
  std::size_t handed = 0;
  ColumnScan scan;
  const MisuraSink take = [&handed](const Misura& m) {
    ++handed;
    PromiseFiring(m);
  };
  EsaminaColonne(path, plan, AngleFormat::DMM_MMM, take, scan, block);
  fuzz::Promise(handed == scan.firings.firings, "what is handed on is counted");
  fuzz::Promise(scan.rows.rows >= handed && scan.lines >= scan.rows.rows, "a firing has a row, a row a line");
  return RilieviColonne(scan, plan, options);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string content = Headers.at(data[0] % Headers.size()) + std::string(fuzz::Text(data + 1, size - 1));
  std::size_t longest = 0;
  for (LineCursor lines(content); lines.more();) longest = std::max(longest, lines.next().size());
  ColumnPlan plan = CercaTestata(content);
  if (plan.header == 0 || !plan.names.problem.empty()) plan = {LeggiColonne("a b m n r easting northing"), 0, 1.0};
  const std::filesystem::path path = fuzz::Place(content);
  const Findings whole = Walk(path, plan, {}, std::size_t{1} << 16);
  const Findings blocks = Walk(path, plan, {}, longest + 16);
  fuzz::Promise(whole.entries() == blocks.entries(), "block borders change nothing");
  fuzz::Chain(content, data[0]);
  return 0;
}
