#include "Tarnwick_Brell/Storage/SearchIndex.h"

#include <utility>

namespace desk {

void SearchIndex::replace(std::int64_t number, Text before) {
    // Of a story that has changed twice, or is new, the index still has what it had first.
    waiting_.try_emplace(number, std::move(before));
}

void SearchIndex::update() {
    if (waiting_.empty()) return;
    Statement remove(database_,
                     "INSERT INTO storySearch (storySearch, rowid, title, summary, author) "
                     "VALUES ('delete', ?, ?, ?, ?)");
    Statement insert(database_,
                     "INSERT INTO storySearch (rowid, title, summary, author) "
                     "SELECT number, title, summary, author FROM stories WHERE number = ?");
    for (const auto& [number, before] : waiting_) {
        if (before) {
            remove.bind(0, number).bind(1, before->title).bind(2, before->summary);
            remove.bind(3, before->author).run();
        }
        insert.bind(0, number).run();
    }
    waiting_.clear();
}

}  // namespace desk
