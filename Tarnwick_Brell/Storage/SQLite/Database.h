#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_value;

namespace app {

class Database;

/// A prepared statement. Parameters and columns count from 0; bound text must outlive the
/// next step(). Throws StoreError.
class Statement {
public:
    Statement(Database& database, std::string_view sql);

    Statement& bind(int index, std::string_view text);
    Statement& bind(int index, std::int64_t number);
    Statement& bind(int index, std::nullopt_t);
    /// Bytes that are no text, which must outlive the next step() too.
    Statement& bindBytes(int index, std::string_view bytes);
    Statement& bind(int index, bool) = delete;
    Statement& bind(int index, const char*) = delete;
    template <class T>
    Statement& bind(int index, const std::optional<T>& value) {
        return value ? bind(index, *value) : bind(index, std::nullopt);
    }

    /// Advances to the next row; false when there is none.
    bool step();
    /// Runs the statement to its end and resets it.
    void run();
    void reset();

    std::string text(int column) const;
    std::string_view view(int column) const;  ///< as text, valid until the next step
    std::int64_t number(int column) const;
    bool isNull(int column) const;
    std::optional<std::string> optionalText(int column) const;
    std::optional<std::string_view> optionalView(int column) const;
    std::optional<std::int64_t> optionalNumber(int column) const;

private:
    void check(int code) const;

    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// An argument of a function called from SQL.
class SQLValue {
public:
    explicit SQLValue(sqlite3_value* value) : value_(value) {}
    std::int64_t number() const;
    std::string_view text() const;  ///< valid during the call

private:
    sqlite3_value* value_;
};

/// One SQLite file, in WAL mode so that readers never wait for a writer. Used by one thread
/// at a time.
class Database {
public:
    enum class Access {
        readWrite,  ///< creates the file when there is none
        readOnly,   ///< also works in a read-only folder or on a full disk
        unshared    ///< creates a file for exclusive use, without a log
    };

    /// A database in memory.
    static constexpr const char* kInMemory = ":memory:";

    /// A temporary file without a name, for unshared use. It is deleted with its object.
    static constexpr const char* kScratch = "";

    Database(const std::filesystem::path& file, Access access);

    void execute(const char* sql);

    /// Copies the current state of this library, page by page, into `target`, which is open as
    /// unshared. Others may write meanwhile. `progress` hears what share of the pages is copied.
    /// Throws StoreError when it is stopped.
    void copyInto(Database& target, const std::stop_token& stop,
                  const std::function<void(double)>& progress = {});

    /// From now on every statement fails once a stop is requested.
    void breakOffWhen(const std::stop_token& stop);

    /// Once the flag is set, the database waits for other programs only half a second. The flag
    /// must outlive it.
    void hurryWhen(const std::atomic<bool>& flag);

    /// A function of one argument for use in SQL. It must be pure and must not throw.
    using Function = std::function<std::int64_t(const SQLValue&)>;
    void define(const char* name, Function function);

    /// Rows changed by the last statement.
    std::int64_t changes() const;
    const std::filesystem::path& file() const { return file_; }

private:
    friend class Statement;
    [[noreturn]] void fail(int code) const;
    int open(const std::string& name, int flags);
    int openForReading();
    void useWriteAheadLog();

    struct Closer {
        void operator()(sqlite3* database) const;
    };
    std::filesystem::path file_;
    std::unique_ptr<std::stop_token> stop_;  // SQLite stores its address
    std::unique_ptr<sqlite3, Closer> handle_;
    std::optional<std::stop_callback<std::function<void()>>> interruption_;
};

/// While it lives, the pages of the database that are read replace each other after two megabytes:
/// whoever reads a large table once needs none of them again.
class ReadOnce {
public:
    explicit ReadOnce(Database& database);
    ~ReadOnce();
    ReadOnce(const ReadOnce&) = delete;
    ReadOnce& operator=(const ReadOnce&) = delete;

private:
    Database& database_;
    std::int64_t cacheSize_;
};

/// Rolled back unless committed.
class Transaction {
public:
    /// `beforeCommit` runs last within the transaction.
    explicit Transaction(Database& database, std::function<void()> beforeCommit = {});
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& database_;
    std::function<void()> beforeCommit_;
    bool open_ = true;
};

}  // namespace app
