#include "NewsroomKit/Backend/FindingParts.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t kLongestFindingName = 80;

}  // namespace

std::string findingName(std::string_view text) {
    const auto begin = firstCharacters(text, kLongestFindingName);
    std::string name(begin);
    std::ranges::replace(name, '\n', ' ');
    return begin.size() == text.size() ? name : name + "…";
}

std::string countedEntries(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

EntryNoun nounOf(WatchedSource source) {
    switch (source) {
        case WatchedSource::gdmf: return {"build", "builds"};
        case WatchedSource::assets: return {"asset", "assets"};
        case WatchedSource::catalogue: return {"product", "products"};
        case WatchedSource::configuration: return {"setting", "settings"};
        case WatchedSource::aasa: return {"path", "paths"};
        case WatchedSource::robots: return {"line", "lines"};
        case WatchedSource::sitemap: return {"address", "addresses"};
        case WatchedSource::json:
        case WatchedSource::plist: break;
    }
    return {"entry", "entries"};
}

BackendFinding findingOfEntries(const WatchedFile& file, FindingKind kind, std::string title,
                                WatchedRecords records) {
    const auto noun = nounOf(file.source);
    BackendFinding finding{.file = std::string(file.id), .kind = kind, .title = std::move(title)};
    finding.extent = fmt::format("{}{}", kind == FindingKind::removed ? "−" : "+",
                                 countedEntries(records.size(), noun.one, noun.many));
    if (records.size() > kMostFindingEntries) records.resize(kMostFindingEntries);
    (kind == FindingKind::removed ? finding.removed : finding.added) = std::move(records);
    return finding;
}

}  // namespace kit
