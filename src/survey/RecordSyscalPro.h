// The record of the Syscal Pro binary file: where each stored number lies, read and written in one place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/Bytes.h"

namespace corvan {

/// A number stored in a record: its type and its offset from the record's first byte (little-endian).
template <class T>
struct Campo {
  std::size_t offset;
};

/// Fields of a record in file order.
namespace campo {
inline constexpr Campo<std::int16_t> Inizio{0};  ///< 9 in records of our own
inline constexpr Campo<std::int16_t> Tipo{2};    ///< record type word; selects the record length
inline constexpr Campo<float> Val4{4};           ///< 500 in records of our own
inline constexpr Campo<float> Val8{8};           ///< 40 in records of our own
inline constexpr Campo<std::int16_t> Val12{12};  ///< 1 in records of our own
inline constexpr Campo<std::int16_t> Val14{14};  ///< 0 in records of our own
inline constexpr Campo<float> R16{16};           ///< x of A: current electrode C1 along the cable, m
inline constexpr Campo<float> R20{20};           ///< x of B: current electrode C2, m
inline constexpr Campo<float> PosM{24};          ///< x of M: first potential electrode of the channel, m
inline constexpr Campo<float> PosN{28};          ///< x of N: second potential electrode, m
inline constexpr Campo<float> YA{32};            ///< y of A, B, M, N, m
inline constexpr Campo<float> YB{36};
inline constexpr Campo<float> YM{40};
inline constexpr Campo<float> YN{44};
inline constexpr Campo<float> R48{48};  ///< z of A, m; the water depth in files of the instrument
inline constexpr Campo<float> ZB{52};
inline constexpr Campo<float> ZM{56};
inline constexpr Campo<float> ZN{60};
inline constexpr Campo<float> R68{68};             ///< potential difference, mV
inline constexpr Campo<float> R72{72};             ///< injected current, mA
inline constexpr Campo<float> R76{76};             ///< apparent resistivity, ohm m
inline constexpr Campo<float> Caricabilita{80};    ///< chargeability m, mV/V
inline constexpr Campo<float> Qualita{84};         ///< quality q (standard deviation), %
inline constexpr Campo<std::int16_t> Val248{248};  ///< 600 in records of our own
inline constexpr Campo<std::int16_t> Canale{250};  ///< channel number, or the reading's ordinal in the file
inline constexpr std::size_t Sequenza = 252;       ///< name of the acquisition sequence, 12 characters
inline constexpr Campo<float> GpsNord{264};        ///< latitude or northing; 0 means no position
inline constexpr Campo<float> GpsEst{268};         ///< longitude or easting
inline constexpr Campo<float> Val272{272};         ///< 3 in records of our own
inline constexpr Campo<std::int32_t> Val276{276};  ///< 0 in records of our own
inline constexpr Campo<double> Tempo{296};         ///< time of the firing, days since 1899-12-30
}  // namespace campo

inline constexpr std::size_t SequenzaLength = 12;
inline constexpr std::size_t RecordBlock = 312;  ///< bytes taken from each record's position, whatever its length
inline constexpr std::size_t RecordLengthWritten = 280;  ///< bytes of a record in files of our own
inline constexpr std::size_t FirstRecord = 1029;         ///< byte at which record 1 begins
inline constexpr std::size_t HeaderLength = 1030;        ///< the header's last byte is also the first of record 1
inline constexpr std::size_t ShortestSyscal = 1047;      ///< a shorter file is no survey

/// One record as a block of bytes.
struct RecordSyscalPro {
  std::array<std::byte, RecordBlock> byte{};

  template <class T>
  T leggi(Campo<T> field) const {
    return LeggiLE<T>(byte, field.offset);
  }
  template <class T>
  void scrivi(Campo<T> field, T value) {
    ScriviLE<T>(byte, field.offset, value);
  }
};

/// Record length for a type word: 0 gives 248 bytes, 1 280, 2 296, 3 304, any other 280.
std::int16_t LunghezzaRecord(std::int16_t type);

}  // namespace corvan
