#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/SQLite/SearchText.h"

namespace app {

/// Where is searched.
enum class SearchScope { all, saved, notes, clips, projects, stories, loggedSignals };

/// A text with the places where a search hit it.
struct MarkedText {
    struct Range {
        std::size_t begin = 0;  ///< in bytes
        std::size_t size = 0;

        bool operator==(const Range&) const = default;
    };

    std::string text{};  ///< one line; "…" where it was cut
    std::vector<Range> hits{};

    bool operator==(const MarkedText&) const = default;
};

/// What a search found.
struct SearchHit {
    SearchScope scope{};  ///< where: never `all`
    std::string id{};     ///< of the clip, note, project, story or signal
    MarkedText title{};
    MarkedText snippet{};  ///< the passage with most hits; empty when only the title has any
    kit::Instant at{};

    bool operator==(const SearchHit&) const = default;
};

struct KeptSearchQuery {
    std::string text{};  ///< as typed, see SearchText
    SearchText::LastWord lastWord = SearchText::LastWord::complete;
    SearchScope scope = SearchScope::all;
    std::string project{};   ///< only members of the project with this id
    std::size_t most = 100;  ///< in each place
};

/// Searches everything at once: what the user keeps, the stories of the wire and the signals. What
/// is kept comes first, then stories, then signals, each the latest first. A story that is saved
/// and still on the wire is found once, as a saved one.
class KeptSearch {
public:
    explicit KeptSearch(Database& database) : database_(database) {}

    std::vector<SearchHit> find(const KeptSearchQuery& query);

private:
    void findKept(const KeptSearchQuery& query, std::vector<SearchHit>& hits);
    void findStories(const KeptSearchQuery& query, std::vector<SearchHit>& hits);
    void findSignals(const KeptSearchQuery& query, std::vector<SearchHit>& hits);

    Database& database_;
};

}  // namespace app

template <>
inline constexpr std::array<kit::EnumRow<app::SearchScope>, 7> kit::enumTable<app::SearchScope>{{
    {app::SearchScope::all, "all", "Everywhere"},
    {app::SearchScope::saved, "saved", "Saved stories"},
    {app::SearchScope::notes, "notes", "Notes"},
    {app::SearchScope::clips, "clips", "Clips"},
    {app::SearchScope::projects, "projects", "Projects"},
    {app::SearchScope::stories, "stories", "Stories"},
    {app::SearchScope::loggedSignals, "signals", "Signals"},
}};
