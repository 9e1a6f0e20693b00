#include "platform/settings_store.h"

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string_view>

#include "base/error.h"
#include "platform/environment.h"
#include "platform/paths.h"

namespace vellumark::platform {
namespace {

namespace fs = std::filesystem;

/// How long to wait for another process that is writing.
constexpr int busyMilliseconds = 5000;

class Database {
 public:
  /// Opens the file, which must exist unless `create` is set.
  Database(std::string path, bool create) : path_(std::move(path)) {
    std::error_code error;
    if (create) fs::create_directories(fs::path(path_).parent_path(), error);  // opening tells if that failed
    sqlite3* database = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
    const int result = sqlite3_open_v2(path_.c_str(), &database, flags, nullptr);
    database_.reset(database);
    if (result != SQLITE_OK) fail(result);
    sqlite3_busy_timeout(database, busyMilliseconds);
    // A rollback journal, unlike a write-ahead log, costs nothing to open and leaves one file. Its content is
    // all that must not get lost: the power failing within one write may cost that write.
    execute("PRAGMA synchronous = NORMAL");
    execute(
        "CREATE TABLE IF NOT EXISTS setting (key TEXT NOT NULL COLLATE NOCASE, name TEXT NOT NULL COLLATE "
        "NOCASE,"
        " type INTEGER NOT NULL, value, PRIMARY KEY (key, name)) WITHOUT ROWID");
  }

  const std::string& path() const { return path_; }

  std::optional<Setting> read(const std::string& key, const std::string& name) {
    const Statement statement = prepare("SELECT type, value FROM setting WHERE key = ?1 AND name = ?2");
    bindText(statement, 1, key);
    bindText(statement, 2, name);
    if (!step(statement)) return std::nullopt;

    Setting setting{static_cast<Setting::Type>(sqlite3_column_int(statement.get(), 0)), {}};
    switch (setting.type) {
      case Setting::Type::string:
      case Setting::Type::expandString:
      case Setting::Type::multiString:
        setting.value = column<std::string>(statement, 1);
        break;
      case Setting::Type::dword:
      case Setting::Type::dwordBigEndian:
        setting.value = static_cast<std::uint32_t>(sqlite3_column_int64(statement.get(), 1));
        break;
      default:
        setting.value = column<Setting::Bytes>(statement, 1);
    }
    return setting;
  }

  void write(const std::string& key, const std::string& name, const Setting& setting) {
    const Statement statement = prepare(
        "INSERT INTO setting (key, name, type, value) VALUES (?1, ?2, ?3, ?4)"
        " ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, value = excluded.value");
    bindText(statement, 1, key);
    bindText(statement, 2, name);
    check(sqlite3_bind_int(statement.get(), 3, static_cast<int>(setting.type)));
    if (const auto* text = std::get_if<std::string>(&setting.value)) {
      bindText(statement, 4, *text);
    } else if (const auto* number = std::get_if<std::uint32_t>(&setting.value)) {
      check(sqlite3_bind_int64(statement.get(), 4, *number));
    } else {
      const auto& bytes = std::get<Setting::Bytes>(setting.value);
      // A null address would store NULL; zero bytes are a value too.
      const void* start = bytes.empty() ? static_cast<const void*>("") : bytes.data();
      check(sqlite3_bind_blob64(statement.get(), 4, start, bytes.size(), SQLITE_STATIC));
    }
    step(statement);
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  Statement prepare(std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database_.get(), sql.data(), static_cast<int>(sql.size()), &statement, nullptr));
    return Statement(statement);
  }
  void bindText(const Statement& statement, int parameter, const std::string& text) {
    check(sqlite3_bind_text64(statement.get(), parameter, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
  }
  template <typename Bytes>
  static Bytes column(const Statement& statement, int index) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement.get(), index));
    return bytes == nullptr ? Bytes{} : Bytes(bytes, bytes + sqlite3_column_bytes(statement.get(), index));
  }
  /// True where there is a row.
  bool step(const Statement& statement) {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) fail(result);
    return result == SQLITE_ROW;
  }
  void execute(std::string_view sql) { step(prepare(sql)); }
  void check(int result) {
    if (result != SQLITE_OK) fail(result);
  }

  [[noreturn]] void fail(int result) {
    std::string message = "The settings file " + path_;
    switch (result & 0xFF) {
      case SQLITE_NOTADB:
      case SQLITE_CORRUPT:
        message += " is damaged; delete it to begin with the default settings";
        break;
      case SQLITE_BUSY:
      case SQLITE_LOCKED:
        message += " is kept busy by another program; try again";
        break;
      case SQLITE_READONLY:
      case SQLITE_PERM:
        message += " can't be written; check its permissions and those of its folder";
        break;
      case SQLITE_CANTOPEN:
        message += " can't be opened; check its permissions and those of its folder";
        break;
      default:
        message += std::string(" can't be used: ") + sqlite3_errstr(result);
    }
    base::raise(base::errors::fileAccess, message);
  }

  std::string path_;
  std::unique_ptr<sqlite3, Close> database_;
};

std::string storePath() {
  if (const auto path = environmentVariable("VELLUMARK_SETTINGS")) return *path;
  return toSystem(userSettingsFolder()) + "settings.db";
}

/// The open store; none where nothing was ever written and `create` isn't set.
Database* store(bool create) {
  static std::unique_ptr<Database> database;
  const std::string path = storePath();
  if (database == nullptr || database->path() != path) {
    database.reset();
    std::error_code error;
    if (!create && !fs::exists(path, error)) return nullptr;
    database = std::make_unique<Database>(path, create);
  }
  return database.get();
}

}  // namespace

std::string settingsFolder() { return textOf(fs::absolute(storePath()).parent_path()); }

std::optional<Setting> readSetting(const std::string& key, const std::string& name) {
  Database* const database = store(false);
  return database != nullptr ? database->read(key, name) : std::nullopt;
}

void writeSetting(const std::string& key, const std::string& name, const Setting& setting) {
  store(true)->write(key, name, setting);
}

}  // namespace vellumark::platform
