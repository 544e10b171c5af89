#include "Tarnwick_Brell/Storage/SQLite/Database.h"

#include <sqlite3.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

constexpr int kBusyMilliseconds = 10'000;

// A transaction whose pages exceed the cache (in KB) writes them to the log several times. The log
// is copied into the file only at this number of pages, so that a page is copied once, however many
// transactions have changed it.
constexpr const char* kForLargeTransactions =
    "PRAGMA cache_size = -24000; PRAGMA wal_autocheckpoint = 16000";

/// A file name as SQLite's URI, with every special character escaped.
std::string fileAddress(const std::filesystem::path& file, const char* parameters) {
    std::string address = "file:";
    for (const char c : file.string()) {
        if (c == '?' || c == '#' || c == '%') {
            constexpr char digits[] = "0123456789ABCDEF";
            address += '%';
            address += digits[static_cast<unsigned char>(c) >> 4];
            address += digits[static_cast<unsigned char>(c) & 15];
        } else {
            address += c;
        }
    }
    return address + parameters;
}

StoreError errorFor(int code, const std::filesystem::path& file, int systemError) {
    using Reason = StoreError::Reason;
    const std::string library = "The library " + file.string();
    const StoreError diskFull(Reason::diskFull,
                              "The disk is full, so nothing was saved in " + file.string() + ".");
    const StoreError readOnly(Reason::readOnly,
                              library + " can't be written: the file or its folder is read-only.");
    switch (code & 0xff) {
        case SQLITE_FULL: return diskFull;
        case SQLITE_READONLY:
        case SQLITE_PERM: return readOnly;
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
            if (systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG) {
                return diskFull;
            }
            if (systemError == EROFS || systemError == EACCES || systemError == EPERM) {
                return readOnly;
            }
            return {
                Reason::unreadable,
                library + " can't be opened or written" +
                    (systemError != 0 ? " (" + std::generic_category().message(systemError) + ")"
                                      : std::string()) +
                    "."};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {Reason::busy, "Another program is using the library " + file.string() +
                                      ". Try again in a moment."};
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return {Reason::damaged,
                    library +
                        " is damaged or is not a library. \"brell library restore\" puts its "
                        "last good backup in its place."};
        default:
            return {Reason::other,
                    library + " reported SQLite's error " + std::to_string(code) + "."};
    }
}

/// With a log beside it, the file alone has an older state. An empty log doesn't count: a failed
/// attempt to open the library on a full disk leaves one.
bool hasLog(const std::filesystem::path& file) {
    std::error_code none;
    const auto size = std::filesystem::file_size(file.string() + "-wal", none);
    return !none && size > 0;
}

}  // namespace

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql) : database_(database) {
    sqlite3_stmt* raw = nullptr;
    const int code =
        sqlite3_prepare_v3(database.handle_.get(), sql.data(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
    statement_.reset(raw);
    check(code);
}

void Statement::check(int code) const {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) database_.fail(code);
}

Statement& Statement::bind(int index, std::string_view text) {
    // A null pointer would bind NULL instead of the empty text.
    check(sqlite3_bind_text(statement_.get(), index + 1, text.data() ? text.data() : "",
                            static_cast<int>(text.size()), SQLITE_STATIC));
    return *this;
}

Statement& Statement::bindBytes(int index, std::string_view bytes) {
    check(sqlite3_bind_blob(statement_.get(), index + 1, bytes.data() ? bytes.data() : "",
                            static_cast<int>(bytes.size()), SQLITE_STATIC));
    return *this;
}

Statement& Statement::bind(int index, std::int64_t number) {
    check(sqlite3_bind_int64(statement_.get(), index + 1, number));
    return *this;
}

Statement& Statement::bind(int index, std::nullopt_t) {
    check(sqlite3_bind_null(statement_.get(), index + 1));
    return *this;
}

bool Statement::step() {
    const int code = sqlite3_step(statement_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        sqlite3_reset(statement_.get());
        database_.fail(code);
    }
    return code == SQLITE_ROW;
}

void Statement::run() {
    while (step()) {
    }
    reset();
}

void Statement::reset() { sqlite3_reset(statement_.get()); }

std::string_view Statement::view(int column) const {
    const auto* bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(
                                               sqlite3_column_bytes(statement_.get(), column)))
                 : std::string_view();
}

std::string Statement::text(int column) const { return std::string(view(column)); }

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::optional<std::string> Statement::optionalText(int column) const {
    return isNull(column) ? std::nullopt : std::optional(text(column));
}

std::optional<std::string_view> Statement::optionalView(int column) const {
    return isNull(column) ? std::nullopt : std::optional(view(column));
}

std::optional<std::int64_t> Statement::optionalNumber(int column) const {
    return isNull(column) ? std::nullopt : std::optional(number(column));
}

void Database::Closer::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

Database::Database(const std::filesystem::path& file, Access access) : file_(file) {
    // SQLite gives the log and its index the permissions of the file.
    if (access != Access::readOnly && file != kInMemory && file != kScratch) makePrivateFile(file);
    const int code = access == Access::readOnly
                         ? openForReading()
                         : open(file.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (code != SQLITE_OK) fail(code);
    if (access == Access::readWrite) {
        useWriteAheadLog();
        execute("PRAGMA synchronous = NORMAL");
        execute(kForLargeTransactions);
    } else if (access == Access::unshared) {
        // The caller deletes an unfinished file and syncs a finished one, so no journal is needed.
        execute("PRAGMA locking_mode = EXCLUSIVE");
        execute("PRAGMA journal_mode = OFF");
        execute("PRAGMA synchronous = OFF");
    }
    execute("PRAGMA temp_store = MEMORY");
}

int Database::open(const std::string& name, int flags) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &raw,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    handle_.reset(raw);
    // Set at once, because even the first access may wait for a program that is closing the file.
    if (code == SQLITE_OK) sqlite3_busy_timeout(raw, kBusyMilliseconds);
    return code;
}

int Database::openForReading() {
    // A WAL file needs its shared index beside it. Where that cannot be created, because the folder
    // is read-only or the disk is full, nothing writes, so the file may be read as it is.
    const char* const probe = "SELECT count(*) FROM sqlite_schema";
    int code = open(file_.string(), SQLITE_OPEN_READONLY);
    if (code == SQLITE_OK) code = sqlite3_exec(handle_.get(), probe, nullptr, nullptr, nullptr);
    const int kind = code & 0xff;
    const bool lacksIndex = kind == SQLITE_CANTOPEN || kind == SQLITE_READONLY ||
                            kind == SQLITE_IOERR || kind == SQLITE_FULL;
    if (lacksIndex && !hasLog(file_)) {
        code = open(fileAddress(file_, "?immutable=1"), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
        if (code == SQLITE_OK) code = sqlite3_exec(handle_.get(), probe, nullptr, nullptr, nullptr);
    }
    return code;
}

void Database::useWriteAheadLog() {
    // SQLite does not wait for this change of mode, which every first opening makes.
    constexpr std::chrono::milliseconds pause(20);
    for (auto waited = pause;; waited += pause) {
        const int code =
            sqlite3_exec(handle_.get(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
        if (code == SQLITE_OK) return;
        if ((code & 0xff) != SQLITE_BUSY || waited.count() >= kBusyMilliseconds) fail(code);
        std::this_thread::sleep_for(pause);
    }
}

void Database::execute(const char* sql) {
    const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code);
}

void Database::copyInto(Database& target, const std::stop_token& stop,
                        const std::function<void(double)>& progress) {
    // 16 MB per step. Without a transaction around all steps, the copy would restart at every
    // write.
    constexpr int pages = 4096;
    execute("BEGIN");
    Statement(*this, "SELECT count(*) FROM sqlite_schema").run();
    auto* backup = sqlite3_backup_init(target.handle_.get(), "main", handle_.get(), "main");
    if (!backup) target.fail(sqlite3_errcode(target.handle_.get()));
    int code = SQLITE_OK;
    while (code == SQLITE_OK && !stop.stop_requested()) {
        code = sqlite3_backup_step(backup, pages);
        const auto all = static_cast<double>(sqlite3_backup_pagecount(backup));
        if (progress && all > 0)
            progress(1 - static_cast<double>(sqlite3_backup_remaining(backup)) / all);
    }
    sqlite3_backup_finish(backup);
    execute("ROLLBACK");
    const int kind = code & 0xff;
    if (kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB) fail(code);
    if (kind == SQLITE_OK) target.fail(SQLITE_INTERRUPT);
    if (code != SQLITE_DONE) target.fail(code);
    // The copy has inherited the library's WAL mode.
    target.execute("PRAGMA journal_mode = DELETE");
}

void Database::breakOffWhen(const std::stop_token& stop) {
    constexpr int instructionsBetweenLooks = 10'000;
    stop_ = std::make_unique<std::stop_token>(stop);
    const auto look = [](void* token) {
        return static_cast<std::stop_token*>(token)->stop_requested() ? 1 : 0;
    };
    sqlite3_progress_handler(handle_.get(), instructionsBetweenLooks, look, stop_.get());
    // The check of a whole file is one instruction, which only an interrupt stops.
    interruption_.emplace(stop, [this] { sqlite3_interrupt(handle_.get()); });
}

void Database::hurryWhen(const std::atomic<bool>& flag) {
    const auto wait = [](void* hurry, int times) {
        constexpr std::chrono::milliseconds pause(20);
        constexpr int hurriedMilliseconds = 500;
        const bool isHurried = static_cast<const std::atomic<bool>*>(hurry)->load();
        const int longest = isHurried ? hurriedMilliseconds : kBusyMilliseconds;
        if (times * pause.count() >= longest) return 0;
        std::this_thread::sleep_for(pause);
        return 1;
    };
    sqlite3_busy_handler(handle_.get(), wait, const_cast<std::atomic<bool>*>(&flag));
}

std::int64_t SQLValue::number() const { return sqlite3_value_int64(value_); }

std::string_view SQLValue::text() const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value_));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value_)))
                 : std::string_view();
}

void Database::define(const char* name, Function function) {
    const auto call = [](sqlite3_context* context, int, sqlite3_value** arguments) {
        const auto& wanted = *static_cast<Function*>(sqlite3_user_data(context));
        sqlite3_result_int64(context, wanted(SQLValue(arguments[0])));
    };
    const auto forget = [](void* owned) { delete static_cast<Function*>(owned); };
    const int code = sqlite3_create_function_v2(
        handle_.get(), name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
        new Function(std::move(function)), call, nullptr, nullptr, forget);
    if (code != SQLITE_OK) fail(code);
}

std::int64_t Database::changes() const { return sqlite3_changes64(handle_.get()); }

void Database::fail(int code) const {
    throw errorFor(code, file_, handle_ ? sqlite3_system_errno(handle_.get()) : 0);
}

ReadOnce::ReadOnce(Database& database) : database_(database) {
    Statement size(database_, "PRAGMA cache_size");
    size.step();
    cacheSize_ = size.number(0);
    database_.execute("PRAGMA cache_size = -2000");
}

ReadOnce::~ReadOnce() {
    try {
        database_.execute(fmt::format("PRAGMA cache_size = {}", cacheSize_).c_str());
    } catch (const StoreError&) {
        // A database that is being closed keeps the smaller cache.
    }
}

Transaction::Transaction(Database& database, std::function<void()> beforeCommit)
    : database_(database), beforeCommit_(std::move(beforeCommit)) {
    // Locks for writing at once: a reader that becomes a writer later cannot wait for its turn.
    database_.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        database_.execute("ROLLBACK");
    } catch (const StoreError&) {
        // A failed statement may already have rolled back.
    }
}

void Transaction::commit() {
    if (beforeCommit_) beforeCommit_();
    database_.execute("COMMIT");
    open_ = false;
}

}  // namespace app
