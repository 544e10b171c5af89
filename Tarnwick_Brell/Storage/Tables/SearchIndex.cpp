#include "Tarnwick_Brell/Storage/Tables/SearchIndex.h"

#include <utility>

namespace app {

void SearchIndex::replace(std::int64_t number, Text before) {
    // Of a story that has changed twice, or is new, the index still has what it had first.
    waiting_.try_emplace(number, std::move(before));
}

void SearchIndex::update() {
    if (waiting_.empty()) return;
    Statement remove(database_,
                     "INSERT INTO storySearch (storySearch, rowid, title, summary, author) "
                     "VALUES ('delete', ?, ?, ?, ?)");
    // In two statements: SQLite can take back a statement that reads and writes, and to be able
    // to do so it writes a piece of the index to disk for each.
    Statement read(database_, "SELECT title, summary, author FROM stories WHERE number = ?");
    Statement insert(database_,
                     "INSERT INTO storySearch (rowid, title, summary, author) "
                     "VALUES (?, ?, ?, ?)");
    for (const auto& [number, before] : waiting_) {
        if (before) {
            remove.bind(0, number).bind(1, before->title).bind(2, before->summary);
            remove.bind(3, before->author).run();
        }
        read.bind(0, number);
        if (read.step()) {
            insert.bind(0, number).bind(1, read.view(0)).bind(2, read.view(1));
            insert.bind(3, read.optionalView(2)).run();
        }
        read.reset();
    }
    waiting_.clear();
}

}  // namespace app
