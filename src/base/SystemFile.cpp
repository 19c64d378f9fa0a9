#include "base/SystemFile.h"

#include <cerrno>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace corvan {

#ifdef _WIN32

namespace {

constexpr int Tries = 20;
constexpr DWORD Pause = 25;  // ms

/// The number of errno for one of the system's own; EBUSY where another program stands in the way.
int Numero(DWORD error) {
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION) return EBUSY;
  const auto number = static_cast<int>(error);
  return std::error_code(number, std::system_category()).default_error_condition().value();
}

bool Uguali(std::wstring_view a, std::wstring_view b) {
  return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), TRUE) ==
         CSTR_EQUAL;
}

}  // namespace

// Whoever opens the file may read and write it, but nobody deletes it: that is the mark of a living writer.
int SystemFile::creaNuovo(const std::filesystem::path& path, const std::filesystem::path&) {
  constexpr int flags = _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY | _O_NOINHERIT;
  return _wsopen_s(&descriptor_, path.c_str(), flags, _SH_DENYNO, _S_IREAD | _S_IWRITE) == 0 ? 0 : UltimoErrore();
}

int SystemFile::apri(const std::filesystem::path& path) {
  constexpr int flags = _O_WRONLY | _O_BINARY | _O_NOINHERIT;
  return _wsopen_s(&descriptor_, path.c_str(), flags, _SH_DENYNO, _S_IWRITE) == 0 ? 0 : UltimoErrore();
}

int SystemFile::scrivi(std::string_view bytes) {
  while (!bytes.empty()) {
    constexpr std::size_t most = std::size_t{1} << 30;
    const int count = _write(descriptor_, bytes.data(), static_cast<unsigned>(bytes.substr(0, most).size()));
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int SystemFile::diventa(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (_commit(descriptor_) != 0) return errno;
  if (const int error = chiudi(); error != 0) return error;  // an open file cannot be renamed
  // A search index or a virus scanner often opens a file that was just closed, for a moment.
  for (int attempt = 1;; ++attempt) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return 0;
    const DWORD error = GetLastError();
    const bool passing = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (passing && attempt < Tries) {
      Sleep(Pause);
      continue;
    }
    // A target that is open is called denied; who asks for it alone learns why.
    return passing && Scrivibile(to) == EBUSY ? EBUSY : Numero(error);
  }
}

int SystemFile::chiudi() {
  const int descriptor = std::exchange(descriptor_, -1);
  return descriptor < 0 || _close(descriptor) == 0 ? 0 : errno;
}

void SystemFile::avviaScrittura() {}

int Scrivibile(const std::filesystem::path& path) {
  if (_waccess(path.c_str(), 2) != 0) return errno;  // marked as read-only
  constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE handle =
      CreateFileW(path.c_str(), DELETE, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return Numero(GetLastError());
  CloseHandle(handle);
  return 0;
}

std::string_view NomeImpossibile(const std::filesystem::path& path) {
  if (path.relative_path().native().find(L':') != std::wstring::npos) return "has a colon in its name";
  const std::wstring name = path.filename().native();
  if (name != L"." && name != L".." && (name.ends_with(L'.') || name.ends_with(L' ')))
    return "has a name that ends in a dot or a blank, which would be dropped";
  const std::wstring stem = name.substr(0, name.find(L'.'));
  for (const std::wstring_view device : {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"}) {
    if (Uguali(stem, device)) return "has the name of a device";
  }
  const bool numbered = stem.size() == 4 && stem[3] >= L'0' && stem[3] <= L'9';
  if (numbered && (Uguali(stem.substr(0, 3), L"COM") || Uguali(stem.substr(0, 3), L"LPT")))
    return "has the name of a device";
  return {};
}

std::string MotivoDi(int error) {
  return error == EBUSY ? "another program has it open" : std::generic_category().message(error);
}

int UltimoErrore() { return _doserrno == ERROR_SHARING_VIOLATION || _doserrno == ERROR_LOCK_VIOLATION ? EBUSY : errno; }

void SpazzaMoncone(const std::filesystem::path& path) { static_cast<void>(_wunlink(path.c_str())); }

long long NumeroProcesso() { return _getpid(); }

#else

namespace {

/// Opens above the three standard streams: where one of them is closed, what is meant for it must not land in the file.
int Apri(const std::filesystem::path& path, int flags, mode_t mode = 0) {
  const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
  if (descriptor < 0 || descriptor > STDERR_FILENO) return descriptor;
  const int higher = ::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int error = errno;
  ::close(descriptor);
  errno = error;
  return higher;
}

/// Still the file of this name, not one that was deleted or renamed.
bool HaAncoraNome(int descriptor, const std::filesystem::path& path) {
  struct stat here {};
  struct stat named {};
  return ::fstat(descriptor, &here) == 0 && ::lstat(path.c_str(), &named) == 0 && here.st_dev == named.st_dev &&
         here.st_ino == named.st_ino;
}

void PrendiPermessi(int descriptor, const struct stat& like) {
  // Owner and group one by one: a user may often set the group alone. File systems without them refuse; so be it.
  if (::fchown(descriptor, static_cast<uid_t>(-1), like.st_gid) != 0) errno = 0;
  if (::fchown(descriptor, like.st_uid, static_cast<gid_t>(-1)) != 0) errno = 0;
  if (::fchmod(descriptor, like.st_mode & 07777U) != 0) errno = 0;
}

}  // namespace

int SystemFile::creaNuovo(const std::filesystem::path& path, const std::filesystem::path& like) {
  struct stat older {};
  const bool replaces = ::stat(like.c_str(), &older) == 0;
  constexpr mode_t own = S_IRUSR | S_IWUSR;  // no one reads it before it has the older file's permissions
  constexpr mode_t all = own | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  descriptor_ = Apri(path, O_WRONLY | O_CREAT | O_EXCL, replaces ? own : all);
  if (!aperto()) return errno;
  // Where the file system knows no locks the file is left to its luck: a sweeper gets none either.
  while (::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
  }
  if (!HaAncoraNome(descriptor_, path)) {  // swept between the two calls
    static_cast<void>(chiudi());
    return EEXIST;
  }
  if (replaces) PrendiPermessi(descriptor_, older);
  return 0;
}

int SystemFile::apri(const std::filesystem::path& path) {
  descriptor_ = Apri(path, O_WRONLY | O_TRUNC);
  return aperto() ? 0 : errno;
}

int SystemFile::scrivi(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
    written_ += static_cast<std::size_t>(count);
  }
  avviaScrittura();
  return 0;
}

/// Lets the disk begin while the rest is composed: of 500 MB the flush at the end then takes 0.00 instead of 0.25 s.
void SystemFile::avviaScrittura() {
#ifdef SYNC_FILE_RANGE_WRITE
  constexpr std::size_t step = std::size_t{8} << 20;
  if (written_ - started_ < step) return;
  static_cast<void>(::sync_file_range(descriptor_, static_cast<off64_t>(started_),
                                      static_cast<off64_t>(written_ - started_), SYNC_FILE_RANGE_WRITE));
  started_ = written_;
#endif
}

int SystemFile::diventa(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (::fsync(descriptor_) != 0 && errno != EINVAL) return errno;
  // Closing a twin tells a late error while the lock, which all twins share, still holds.
  if (const int twin = ::fcntl(descriptor_, F_DUPFD_CLOEXEC, 0); twin >= 0 && ::close(twin) != 0) return errno;
  if (::rename(from.c_str(), to.c_str()) != 0) return errno;
  static_cast<void>(chiudi());
  if (const int folder = Apri(to.parent_path(), O_RDONLY | O_DIRECTORY); folder >= 0) {
    static_cast<void>(::fsync(folder));  // without it a power cut brings the older file back, which is whole as well
    ::close(folder);
  }
  return 0;
}

int SystemFile::chiudi() {
  const int descriptor = std::exchange(descriptor_, -1);
  return descriptor < 0 || ::close(descriptor) == 0 ? 0 : errno;
}

int Scrivibile(const std::filesystem::path& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

std::string_view NomeImpossibile(const std::filesystem::path&) { return {}; }

std::string MotivoDi(int error) { return std::generic_category().message(error); }

int UltimoErrore() { return errno; }

void SpazzaMoncone(const std::filesystem::path& path) {
  const int descriptor = Apri(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
  if (descriptor < 0) return;
  if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && HaAncoraNome(descriptor, path)) ::unlink(path.c_str());
  ::close(descriptor);
}

long long NumeroProcesso() { return ::getpid(); }

#endif

}  // namespace corvan
