#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

namespace app {

namespace {

/// One full-text expression, as long as something is wanted in it: NOT needs a left side.
std::string matchExpression(const SearchText& search) {
    if (search.wanted.empty() || search.unwanted.empty()) return search.wanted;
    return "(" + search.wanted + ") NOT (" + search.unwanted + ")";
}

}  // namespace

SelectionClause::SelectionClause(const StorySelection& selection)
    : selection_(selection), match_(matchExpression(selection.search)) {
    if (!match_.empty()) sql_ += "JOIN storySearch f ON f.rowid = s.number ";
    sql_ += "WHERE TRUE";
    if (!match_.empty()) sql_ += " AND f.storySearch MATCH ?";
    if (match_.empty() && !selection.search.unwanted.empty()) {
        sql_ += " AND s.number NOT IN (SELECT rowid FROM storySearch WHERE storySearch MATCH ?)";
    }
    // The index must be told of the range itself, or it would find everything outside as well.
    if (selection.since) sql_ += fmt::format(" AND {} >= ?", number());
    if (selection.before) sql_ += fmt::format(" AND {} < ?", number());
    if (selection.unread) sql_ += " AND m.readAt IS NULL";
    if (selection.saved) {
        sql_ += " AND s.number IN (SELECT number FROM marks WHERE savedAt IS NOT NULL)";
    }
    if (selection.sourceIDs.empty()) return;
    std::string ids = "?";
    for (std::size_t count = 1; count < selection.sourceIDs.size(); ++count) ids += ",?";
    // A word's matches are told apart by number, without reading the stories of other sources.
    sql_ += match_.empty()
                ? fmt::format(" AND s.sourceID IN ({})", ids)
                : fmt::format(" AND f.rowid IN (SELECT number FROM stories WHERE sourceID IN ({}))",
                              ids);
}

void SelectionClause::bind(Statement& statement, int index) const {
    if (!match_.empty()) {
        statement.bind(index++, match_);
    } else if (!selection_.search.unwanted.empty()) {
        statement.bind(index++, selection_.search.unwanted);
    }
    if (selection_.since) statement.bind(index++, firstStoryNumber(*selection_.since));
    if (selection_.before) statement.bind(index++, firstStoryNumber(*selection_.before));
    for (const auto& id : selection_.sourceIDs) statement.bind(index++, id);
}

}  // namespace app
