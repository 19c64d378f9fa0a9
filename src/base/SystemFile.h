// The system's calls behind a written file, one branch a system.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace corvan {

/// A file open for writing. Every call gives 0 or the system's error number (errno). Closed when it goes.
class SystemFile {
 public:
  SystemFile() = default;
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;
  ~SystemFile() { static_cast<void>(chiudi()); }

  /// Makes a file that was not there, marked as one whose writer lives (see SpazzaMoncone); a library may open it
  /// beside. Owner and permissions are those of `like` when that is there, as far as the system lets them be set (on
  /// Windows they are the folder's). EEXIST: something has the name, or a sweeper took the new file for a stump;
  /// another name helps.
  int creaNuovo(const std::filesystem::path& path, const std::filesystem::path& like);
  /// Opens what is there and is no regular file: a device, a pipe.
  int apri(const std::filesystem::path& path);
  int scrivi(std::string_view bytes);
  /// Closes with every byte on its disk and gives the file its final name, replacing what had it.
  int diventa(const std::filesystem::path& from, const std::filesystem::path& to);
  int chiudi();
  bool aperto() const { return descriptor_ >= 0; }

 private:
  void avviaScrittura();

  int descriptor_ = -1;
  std::size_t written_ = 0;
  std::size_t started_ = 0;  ///< bytes of which the disk was told early
};

/// 0 when the caller may replace an existing file. EBUSY on Windows while another program has it open.
int Scrivibile(const std::filesystem::path& path);

/// Why no file can have this name, or nothing: Windows would write a stream of another file behind a ":", a device for
/// some names, and another name where one ends in a dot or a blank.
std::string_view NomeImpossibile(const std::filesystem::path& path);

/// What an error number of the calls above means, in words.
std::string MotivoDi(int error);

/// The error number of the C library's last failed call on a file; EBUSY on Windows where another program has it open.
int UltimoErrore();

/// Deletes a file that creaNuovo made if its writer lives no more: its lock is free. One whose state the system cannot
/// tell stays.
void SpazzaMoncone(const std::filesystem::path& path);

/// The number of this process.
long long NumeroProcesso();

}  // namespace corvan
