// What goes wrong inside a procedure: run-time errors of the arithmetic and failures of files.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace corvan {

/// A step that cannot give a result: a division by zero, a value out of its type's range, an index outside an
/// array, a result that is not finite. The step's target keeps the value it had.
class RunTimeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The user gave a long command up. No std::exception: it passes every trap up to whoever began the command.
struct Interrotto {};

/// A file that could not be read or written; what() reads "path: reason".
class FileError : public std::runtime_error {
 public:
  FileError(const std::filesystem::path& path, const std::string& reason)
      : std::runtime_error(path.string() + ": " + reason), path_(path), reason_(reason) {}
  const std::filesystem::path& path() const { return path_; }
  const std::string& reason() const { return reason_; }

 private:
  std::filesystem::path path_;
  std::string reason_;
};

}  // namespace corvan
