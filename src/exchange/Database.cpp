#include "exchange/Database.h"

#include <sqlite3.h>

#include <utility>

#include "base/Errors.h"

namespace corvan {

Database::Database(const std::filesystem::path& path) {
  const int opened =
      sqlite3_open_v2(path.string().c_str(), &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  try {
    check(opened);
    esegui(
        "PRAGMA page_size=4096; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE;"
        "PRAGMA auto_vacuum=NONE; PRAGMA encoding='UTF-8'; PRAGMA temp_store=MEMORY");
  } catch (...) {
    sqlite3_close_v2(std::exchange(handle_, nullptr));
    throw;
  }
}

Database::~Database() { sqlite3_close_v2(handle_); }

void Database::esegui(const std::string& sql) { check(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr)); }

void Database::chiudi() {
  check(sqlite3_close(handle_));  // refused while a statement lives
  handle_ = nullptr;
}

void Database::check(int result) const {
  if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
  throw RunTimeError(handle_ == nullptr ? sqlite3_errstr(result) : sqlite3_errmsg(handle_));
}

void Statement::Finalise::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(Database& database, const std::string& sql) : database_(database) {
  sqlite3_stmt* made = nullptr;
  database.check(sqlite3_prepare_v2(database.handle_, sql.c_str(), static_cast<int>(sql.size()), &made, nullptr));
  handle_.reset(made);
}

Statement& Statement::numero(double value) {
  database_.check(sqlite3_bind_double(handle_.get(), next_++, value));
  return *this;
}

Statement& Statement::intero(std::int64_t value) {
  database_.check(sqlite3_bind_int64(handle_.get(), next_++, value));
  return *this;
}

Statement& Statement::testo(std::string_view text) {
  database_.check(sqlite3_bind_text64(handle_.get(), next_++, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

Statement& Statement::blob(std::string_view bytes) {
  database_.check(sqlite3_bind_blob64(handle_.get(), next_++, bytes.data(), bytes.size(), SQLITE_STATIC));
  return *this;
}

Statement& Statement::vuoto() {
  database_.check(sqlite3_bind_null(handle_.get(), next_++));
  return *this;
}

void Statement::esegui() {
  database_.check(sqlite3_step(handle_.get()));
  database_.check(sqlite3_reset(handle_.get()));
  next_ = 1;
}

}  // namespace corvan
