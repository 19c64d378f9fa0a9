// SQLite behind two small classes: a file under construction and a statement of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

struct sqlite3;
struct sqlite3_stmt;

namespace corvan {

/// A new database written in one go: nothing is journalled or flushed, since a failed file is given up whole. SQLite's
/// page cache of a few MB is all that is in memory. Errors: RunTimeError with SQLite's words.
class Database {
 public:
  /// @param path an empty file
  explicit Database(const std::filesystem::path& path);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// Runs one or more statements without values.
  void esegui(const std::string& sql);
  /// Writes the rest and closes.
  void chiudi();

 private:
  friend class Statement;
  void check(int result) const;

  sqlite3* handle_ = nullptr;
};

/// A statement with places for values, run once a row. Errors: as of its database.
class Statement {
 public:
  Statement(Database& database, const std::string& sql);

  /// Gives the next place its value, from the first on after each run.
  Statement& numero(double value);
  Statement& intero(std::int64_t value);
  Statement& testo(std::string_view text);
  /// @param bytes stay as they are until the run
  Statement& blob(std::string_view bytes);
  Statement& vuoto();
  void esegui();

 private:
  struct Finalise {
    void operator()(sqlite3_stmt* statement) const;
  };
  Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalise> handle_;
  int next_ = 1;
};

}  // namespace corvan
