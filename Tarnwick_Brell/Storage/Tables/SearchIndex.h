#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Collects the stories whose text changes in a transaction, and brings the full-text index up
/// to date with all of them at its end. SQLite writes a new piece of the index to disk whenever
/// story numbers fall, and with a trigger for each story, and merges the pieces later: written
/// story by story, the index costs more than everything else that a pass stores.
class SearchIndex {
public:
    /// What the index knows a story by. It takes back only what it is given word for word.
    struct Text {
        std::string title{};
        std::string summary{};
        std::optional<std::string> author{};

        bool operator==(const Text&) const = default;
    };

    explicit SearchIndex(Database& database) : database_(database) {}

    /// A new story. It must not be deleted in the same transaction.
    void add(std::int64_t number) { waiting_.try_emplace(number); }
    /// A story whose text was `before` when it was last indexed.
    void replace(std::int64_t number, Text before);

    /// Before the commit: indexes what the collected stories say now.
    void update();
    /// After a rollback: the collected changes have not happened.
    void forget() { waiting_.clear(); }

private:
    Database& database_;
    std::map<std::int64_t, std::optional<Text>> waiting_;  ///< by number, with the indexed text
};

}  // namespace app
