#include "export/BinWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "export/BlockComposer.h"

namespace corvan {
namespace {

using namespace std::string_view_literals;

// The header's pieces and where they begin; what lies between is zero.
constexpr std::size_t NamePlace = 0;
constexpr std::string_view Name = "\x02\0\0\x80\x08SYSCAL PRO\0 at "sv;
constexpr std::size_t DatePlace = 20;
constexpr std::size_t DateLength = 10;
constexpr std::size_t TimePlace = 31;
constexpr std::size_t TimeLength = 8;
constexpr char LastByte = '\x01';  // overwritten by the first record

constexpr std::string_view Sequence = "\0myseq      "sv;
static_assert(Name.size() == DatePlace);
static_assert(Sequence.size() == SequenzaLength);

constexpr std::size_t RecordsPerBlock = 1000;  // 280 kB

/// The fields that make every record look like a reading of one standard sequence.
RecordSyscalPro Costanti() {
  RecordSyscalPro record;
  record.scrivi(campo::Inizio, std::int16_t{9});
  record.scrivi(campo::Tipo, std::int16_t{1});
  record.scrivi(campo::Val4, 500.0F);
  record.scrivi(campo::Val8, 40.0F);
  record.scrivi(campo::Val12, std::int16_t{1});
  record.scrivi(campo::Val14, std::int16_t{0});
  record.scrivi(campo::Val248, std::int16_t{600});
  std::transform(Sequence.begin(), Sequence.end(), record.byte.begin() + campo::Sequenza,
                 [](char c) { return static_cast<std::byte>(c); });
  record.scrivi(campo::Val272, 3.0F);
  record.scrivi(campo::Val276, std::int32_t{0});
  return record;
}

// Coordinates of A, B, M, N in file order.
constexpr std::array FieldsX{campo::R16, campo::R20, campo::PosM, campo::PosN};
constexpr std::array FieldsZ{campo::R48, campo::ZB, campo::ZM, campo::ZN};

}  // namespace

void CreaHeaderBin(std::string& header, const DateTime& now) {
  header.assign(HeaderLength, '\0');
  header.replace(NamePlace, Name.size(), Name);
  header.replace(DatePlace, DateLength, TestoData(now));
  header[DatePlace + DateLength] = ' ';
  header.replace(TimePlace, TimeLength, TestoOra(now));
  header.back() = LastByte;
}

RecordSyscalPro CreaRecordBin(const Quadrupole& q, std::size_t k) {
  static const RecordSyscalPro constants = Costanti();
  RecordSyscalPro record = constants;
  for (std::size_t i = 0; i < FieldsX.size(); ++i) {
    record.scrivi(FieldsX.at(i), q.x.at(i));
    record.scrivi(FieldsZ.at(i), q.z.at(i));
  }
  record.scrivi(campo::R68, q.potential);
  record.scrivi(campo::R72, q.current);
  record.scrivi(campo::R76, q.resistivity);
  record.scrivi(campo::Canale, static_cast<std::int16_t>((k - 1) & 0xFFFFU));
  record.scrivi(campo::GpsNord, q.nord);
  record.scrivi(campo::GpsEst, q.est);
  return record;
}

void SalvaBinPro(FileWriter& out, const SectionRecords& RecordOut, const std::int32_t& NqpBin, const DateTime& now) {
  std::string header;
  CreaHeaderBin(header, now);
  out.write(NqpBin > 0 ? std::string_view(header).substr(0, FirstRecord) : std::string_view(header));
  const auto compose = [&RecordOut](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t k = first + 1; k <= end; ++k) {
      const RecordSyscalPro record = CreaRecordBin(RecordOut(k), k);
      text.append(reinterpret_cast<const char*>(record.byte.data()), RecordLengthWritten);
    }
  };
  ComponiBlocchi({static_cast<std::size_t>(std::max(NqpBin, 0)), RecordsPerBlock}, compose,
                 [&out](std::string_view text) { out.write(text); });
}

}  // namespace corvan
