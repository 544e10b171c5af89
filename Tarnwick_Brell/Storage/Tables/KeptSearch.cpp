#include "Tarnwick_Brell/Storage/Tables/KeptSearch.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/KeptKind.h"

namespace app {

namespace {

// Control characters around hits: what is kept has none, and in texts from outside others are
// dropped with them.
constexpr char kHitBegins = '\x01';
constexpr char kHitEnds = '\x02';

/// The text that the index marked, on one line.
MarkedText readMarks(std::string_view text) {
    MarkedText marked;
    bool isOpen = false;
    for (const char c : text) {
        if (c == kHitBegins) {
            isOpen = true;
            marked.hits.push_back({.begin = marked.text.size(), .size = 0});
        } else if (c == kHitEnds && isOpen) {
            isOpen = false;
            marked.hits.back().size = marked.text.size() - marked.hits.back().begin;
        } else if (c == '\n' || c == '\r' || c == '\t') {
            if (!marked.text.empty() && marked.text.back() != ' ') marked.text += ' ';
        } else if (static_cast<unsigned char>(c) >= ' ') {
            marked.text += c;
        }
    }
    return marked;
}

/// Without one when nothing in it was hit: then the title says why it was found.
MarkedText snippetOf(std::string_view text) {
    auto marked = readMarks(text);
    return marked.hits.empty() ? MarkedText() : marked;
}

/// The columns of a hit that FTS5 makes: the title and a passage of the text, both marked.
std::string markedColumns(std::string_view index) {
    return fmt::format(
        "highlight({0}, 0, char(1), char(2)), snippet({0}, 1, char(1), char(2), '…', 24)", index);
}

SearchScope scopeOf(KeptKind kind) {
    switch (kind) {
        case KeptKind::clip: return SearchScope::clips;
        case KeptKind::note: return SearchScope::notes;
        case KeptKind::project: return SearchScope::projects;
        case KeptKind::story: break;
    }
    return SearchScope::saved;
}

std::optional<KeptKind> kindIn(SearchScope scope) {
    for (const auto& row : kit::enumTable<KeptKind>) {
        if (scopeOf(row.value) == scope) return row.value;
    }
    return std::nullopt;
}

/// Words that must not occur can't be looked up by themselves: without others they find nothing.
SearchText wordsOf(const KeptSearchQuery& query, SearchText::Authors authors) {
    return SearchText::parse(query.text, query.lastWord, authors);
}

/// " AND {0}.rowid NOT IN (…)" for words that must not occur.
std::string withoutUnwanted(std::string_view index, const SearchText& words) {
    if (words.unwanted.empty()) return {};
    return fmt::format(" AND {0}.rowid NOT IN (SELECT rowid FROM {0} WHERE {0} MATCH ?)", index);
}

/// Binds the words and what more there is; returns the next place.
int bindWords(Statement& statement, const SearchText& words) {
    int index = 0;
    statement.bind(index++, words.wanted);
    if (!words.unwanted.empty()) statement.bind(index++, words.unwanted);
    return index;
}

// "+" keeps SQLite from asking the index for each member by itself: for a large project and a
// frequent word that took a quarter of a second.
constexpr std::string_view kInProject =
    " AND +keptSearch.rowid IN (SELECT number FROM keptLinks WHERE field = 'project' AND value = "
    "?)";

}  // namespace

std::vector<SearchHit> KeptSearch::find(const KeptSearchQuery& query) {
    std::vector<SearchHit> hits;
    const auto scope = query.scope;
    if (scope == SearchScope::all || kindIn(scope)) findKept(query, hits);
    if (!query.project.empty()) return hits;
    if (scope == SearchScope::all || scope == SearchScope::stories) findStories(query, hits);
    if (scope == SearchScope::all || scope == SearchScope::loggedSignals) findSignals(query, hits);
    return hits;
}

void KeptSearch::findKept(const KeptSearchQuery& query, std::vector<SearchHit>& hits) {
    const auto words = wordsOf(query, SearchText::Authors::none);
    if (words.wanted.empty()) return;
    const auto kind = kindIn(query.scope);
    Statement found(
        database_,
        fmt::format(
            "SELECT k.kind, k.id, k.at, {} FROM keptSearch JOIN kept k ON "
            "k.number = keptSearch.rowid WHERE keptSearch MATCH ?{}{}{} AND k.removedAt IS NULL "
            "ORDER BY keptSearch.rowid DESC LIMIT ?",
            markedColumns("keptSearch"), withoutUnwanted("keptSearch", words),
            kind ? " AND k.kind = ?" : "",
            query.project.empty() ? std::string_view() : kInProject));
    auto index = bindWords(found, words);
    if (kind) found.bind(index++, kit::rawValue(*kind));
    if (!query.project.empty()) found.bind(index++, query.project);
    found.bind(index, static_cast<std::int64_t>(query.most));
    while (found.step()) {
        hits.push_back({.scope = scopeOf(*kit::enumFromRaw<KeptKind>(found.view(0))),
                        .id = found.text(1),
                        .title = readMarks(found.view(3)),
                        .snippet = snippetOf(found.view(4)),
                        .at = instantOf(found.number(2))});
    }
    std::ranges::stable_sort(hits, std::greater(), &SearchHit::at);
}

void KeptSearch::findStories(const KeptSearchQuery& query, std::vector<SearchHit>& hits) {
    const auto words = wordsOf(query, SearchText::Authors::indexed);
    if (words.wanted.empty()) return;
    std::set<std::string> saved;
    for (const auto& hit : hits) {
        if (hit.scope == SearchScope::saved) saved.insert(hit.id);
    }
    Statement found(
        database_,
        fmt::format("SELECT s.id, s.publishedAt, {} FROM storySearch JOIN stories s "
                    "ON s.number = storySearch.rowid WHERE storySearch MATCH ?{} "
                    "ORDER BY storySearch.rowid DESC LIMIT ?",
                    markedColumns("storySearch"), withoutUnwanted("storySearch", words)));
    found.bind(bindWords(found, words), static_cast<std::int64_t>(query.most));
    while (found.step()) {
        if (saved.contains(found.text(0))) continue;
        hits.push_back({.scope = SearchScope::stories,
                        .id = found.text(0),
                        .title = readMarks(found.view(2)),
                        .snippet = snippetOf(found.view(3)),
                        .at = instantOf(found.number(1))});
    }
}

void KeptSearch::findSignals(const KeptSearchQuery& query, std::vector<SearchHit>& hits) {
    auto words = wordsOf(query, SearchText::Authors::none);
    if (words.wanted.empty()) return;
    // The index has the kind and the weight too.
    words.wanted = fmt::format("{{title detail subject}} : ({})", words.wanted);
    Statement found(
        database_,
        fmt::format("SELECT s.id, s.seenAt, {} FROM signalSearch JOIN signals s "
                    "ON s.number = signalSearch.rowid WHERE signalSearch MATCH ?{} "
                    "ORDER BY signalSearch.rowid DESC LIMIT ?",
                    markedColumns("signalSearch"), withoutUnwanted("signalSearch", words)));
    found.bind(bindWords(found, words), static_cast<std::int64_t>(query.most));
    while (found.step()) {
        hits.push_back({.scope = SearchScope::loggedSignals,
                        .id = found.text(0),
                        .title = readMarks(found.view(2)),
                        .snippet = snippetOf(found.view(3)),
                        .at = instantOf(found.number(1))});
    }
}

}  // namespace app
