#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

#include "base/File.h"

namespace corvan {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Chunk = std::size_t{1} << 20;
constexpr std::size_t Direct = std::size_t{1} << 16;  // a text of so many bytes is not copied first
constexpr const char* Mark = ".corvan-";
constexpr std::size_t SerialDigits = 4;

fs::path Cartella(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

/// Walks links whose end need not be there; the caller has ruled out circles.
fs::path FineDeiLegami(fs::path path) {
  std::error_code none;
  while (fs::is_symlink(fs::symlink_status(path, none))) {
    const fs::path next = fs::read_symlink(path, none);
    if (none) break;
    path = path.parent_path() / next;  // an absolute one stands for itself
  }
  return path;
}

/// Where the bytes of an output really go, whatever folder becomes the current one meanwhile.
fs::path PostoVero(const fs::path& path, const fs::file_status& status) {
  std::error_code error;
  const fs::path place = fs::is_regular_file(status) ? fs::canonical(path, error) : FineDeiLegami(path);
  if (error) throw FileError(path, error.message());
  fs::path absolute = fs::absolute(place, error);
  return error ? place : absolute;
}

/// What the names of all hidden files of a target begin with. A name too long to have something added is told by its
/// hash (FNV-1a, 64 bits).
fs::path InizioNascosto(const fs::path& target) {
  constexpr std::size_t longest = 200;
  const fs::path name = target.filename();
  fs::path start = ".";
  if (name.native().size() <= longest) {
    start += name;
  } else {
    std::uint64_t hash = 14695981039346656037U;
    for (const auto c : name.native()) hash = (hash ^ static_cast<std::uint64_t>(c)) * 1099511628211U;
    start += std::to_string(hash);
  }
  start += Mark;
  return start;
}

/// A number of this process and of this writer behind it, e.g. "4711-0001".
std::string FineNascosta() {
  static std::atomic<unsigned> writers{0};
  const unsigned serial = writers++;
  std::string text = std::to_string(NumeroProcesso()) + "-";
  for (std::size_t k = SerialDigits; k-- > 0;) text += "0123456789abcdef"[(serial >> (4 * k)) & 0xFU];
  return text;
}

/// The name of a hidden file of the target, to the last digit: no other file is ever taken for a stump.
bool Moncone(const fs::path& file, const fs::path& start) {
  const auto& name = file.native();
  const auto& head = start.native();
  if (name.compare(0, head.size(), head) != 0) return false;
  const auto dash = std::find(name.begin() + static_cast<std::ptrdiff_t>(head.size()), name.end(), '-');
  const auto digit = [](auto c) { return c >= '0' && c <= '9'; };
  const auto hexadecimal = [&](auto c) { return digit(c) || (c >= 'a' && c <= 'f'); };
  const auto first = name.begin() + static_cast<std::ptrdiff_t>(head.size());
  return dash != first && std::all_of(first, dash, digit) && name.end() - dash == SerialDigits + 1 &&
         std::all_of(dash + 1, name.end(), hexadecimal);
}

void SpazzaMonconi(const fs::path& target, const fs::path& start) {
  std::error_code none;
  for (fs::directory_iterator at(Cartella(target), none), end; !none && at != end; at.increment(none)) {
    if (Moncone(at->path().filename(), start)) SpazzaMoncone(at->path());
  }
}

}  // namespace

FileWriter::FileWriter(fs::path path, Progress progress) : path_(std::move(path)), progress_(std::move(progress)) {
  std::error_code error;
  const fs::file_status status = fs::status(path_, error);
  if (status.type() == fs::file_type::none) throw FileError(path_, error.message());
  if (fs::is_directory(status)) throw FileError(path_, "is a folder");
  if (!path_.has_filename()) throw FileError(path_, "has no name behind the folder");
  if (const std::string_view reason = NomeImpossibile(path_); !reason.empty())
    throw FileError(path_, std::string(reason));
  buffer_.reserve(Chunk);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    check(file_.apri(path_));
    return;
  }
  if (fs::is_regular_file(status)) check(Scrivibile(path_));
  target_ = PostoVero(path_, status);
  openBeside();
}

FileWriter::~FileWriter() { giveUp(); }

void FileWriter::openBeside() {
  const fs::path start = InizioNascosto(target_);
  SpazzaMonconi(target_, start);
  int error = EEXIST;
  for (int attempt = 0; error == EEXIST && attempt < 1000; ++attempt) {
    fs::path name = start;
    name += FineNascosta();
    hidden_ = target_.parent_path() / name;
    removal_.emplace(hidden_);
    error = file_.creaNuovo(hidden_, target_);
  }
  if (error == 0) return;
  hidden_.clear();  // made by nobody, or by somebody else
  removal_.reset();
  const bool closed = error == EACCES || error == EPERM || error == EROFS;
  throw FileError(path_, (closed ? "no new file can be made in its folder: " : "") + MotivoDi(error));
}

void FileWriter::write(std::string_view text) {
  if (!file_.aperto()) throw FileError(path_, failure_.empty() ? "is closed" : failure_);
  if (text.size() >= Direct) {
    flush();
    scrivi(text);
    return;
  }
  while (!text.empty()) {
    const std::size_t part = std::min(text.size(), Chunk - buffer_.size());
    buffer_ += text.substr(0, part);
    text.remove_prefix(part);
    if (buffer_.size() == Chunk) flush();
  }
}

void FileWriter::write(std::span<const std::byte> bytes) {
  write(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

const fs::path& FileWriter::nascosto() const {
  if (hidden_.empty()) throw FileError(path_, "is no regular file: this format cannot be written there");
  return hidden_;
}

void FileWriter::close() {
  if (!failure_.empty()) throw FileError(path_, failure_);
  if (!file_.aperto()) return;
  flush();
  check(hidden_.empty() ? file_.chiudi() : file_.diventa(hidden_, target_));
  hidden_.clear();
  removal_.reset();
}

void FileWriter::flush() {
  scrivi(buffer_);
  buffer_.clear();
}

void FileWriter::scrivi(std::string_view bytes) {
  check(file_.scrivi(bytes));
  written_ += bytes.size();
  if (progress_) progress_(written_);
}

void FileWriter::check(int error) {
  if (error == 0) return;
  failure_ = MotivoDi(error);
  giveUp();
  throw FileError(path_, failure_);
}

void FileWriter::giveUp() noexcept {
  if (!hidden_.empty()) {
    std::error_code none;
#ifdef _WIN32
    static_cast<void>(file_.chiudi());  // an open file cannot be deleted
#endif
    fs::remove(hidden_, none);
    hidden_.clear();
  }
  removal_.reset();
  static_cast<void>(file_.chiudi());
}

}  // namespace corvan
