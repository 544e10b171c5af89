#pragma once

#include <cstdint>
#include <filesystem>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace test {

/// Fails unless the full-text index knows every story by what it says now.
inline constexpr const char* kCheckSearchIndex =
    "INSERT INTO storySearch (storySearch, rank) VALUES ('integrity-check', 1)";

/// Counts the pages that are written to a library. A reader who does not end keeps the
/// write-ahead log from beginning anew, so that it only grows.
class PagesWritten {
public:
    explicit PagesWritten(const std::filesystem::path& library)
        : log_(library.string() + "-wal"), reader_(library, app::Database::Access::readOnly) {
        reader_.execute("BEGIN; SELECT count(*) FROM sqlite_schema");
        begin();
    }

    void begin() { start_ = size(); }
    std::int64_t count() const { return (size() - start_) / kBytesPerFrame; }

private:
    static constexpr std::int64_t kBytesPerFrame = 24 + 4096;

    std::int64_t size() const {
        return static_cast<std::int64_t>(std::filesystem::file_size(log_));
    }

    std::filesystem::path log_;
    app::Database reader_;
    std::int64_t start_ = 0;
};

}  // namespace test
