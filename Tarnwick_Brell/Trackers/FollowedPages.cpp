#include "Tarnwick_Brell/Trackers/FollowedPages.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

namespace app {

using kit::FollowedPage;
using kit::PageStatus;

namespace {

// More than are kept.
constexpr std::size_t kAllRevisions = 1'000;
/// Those among which the states lie that a page may return to.
constexpr std::size_t kLastRevisions = 24;

std::vector<FollowedPage> pagesOfUser(LocalStore& store) {
    std::vector<FollowedPage> pages;
    for (const auto& row : store.followedPages().all()) {
        try {
            pages.push_back(kit::decode<FollowedPage>(kit::parseJSON(row.record)));
        } catch (const kit::RecordError&) {
            continue;  // A newer version wrote it.
        }
    }
    return pages;
}

std::vector<std::string> pagesOfPanels(LocalStore& store) {
    std::vector<std::string> addresses;
    for (const auto& row : store.newsrooms().all()) {
        try {
            const auto spec = kit::decode<kit::NewsroomSpec>(kit::parseJSON(row.record));
            for (const auto& panel : spec.panels) {
                if (panel.kind != kit::PanelKind::pageWatch) continue;
                for (const auto& text : panel.options.pages) {
                    if (auto address = pageAddressIn(text)) addresses.push_back(*address);
                }
            }
        } catch (const kit::RecordError&) {
            continue;
        }
    }
    return addresses;
}

void addState(LocalStore& store, PageStatus& status) {
    const auto& address = status.page.address;
    const auto looks = store.pages().looks(address);
    status.lookedAt = looks.last;
    status.nextLook = looks.next;
    status.state = store.pages().state(address).value_or(kit::PageWatchState());
    status.lastChange = store.pages().lastChange(address);
}

}  // namespace

std::vector<PageStatus> followedPages(LocalStore& store) {
    std::vector<PageStatus> pages;
    for (auto& page : pagesOfUser(store)) pages.push_back({.page = std::move(page), .state = {}});
    for (const auto& address : pagesOfPanels(store)) {
        const bool isKnown = std::ranges::any_of(
            pages, [&](const auto& known) { return known.page.address == address; });
        if (isKnown) continue;
        pages.push_back({.page = {.id = {}, .address = address, .name = pageNameFor(address)},
                         .isOfPanel = true,
                         .state = {}});
    }
    for (auto& status : pages) addState(store, status);
    return pages;
}

std::optional<FollowedPage> followedPageNamed(LocalStore& store, std::string_view text) {
    const auto address = pageAddressIn(text);
    for (const auto& page : pagesOfUser(store)) {
        if (page.address == address || kit::equalIgnoringCase(page.id, text) ||
            kit::equalIgnoringCase(page.name, text)) {
            return page;
        }
    }
    return std::nullopt;
}

void followPage(LocalStore& store, const FollowedPage& page) {
    auto& table = store.followedPages();
    const auto rows = table.all();
    const auto rank = rankBetween(rows.empty() ? "" : rows.back().rank, "");
    table.put({.id = page.id, .record = boost::json::serialize(kit::encode(page)), .rank = rank});
    table.restore(page.id);
}

void unfollowPage(LocalStore& store, std::string_view id, kit::Instant now) {
    store.followedPages().remove(id, now);
}

namespace {

using Blocks = std::vector<kit::PageBlock>;

/// The texts of two revisions without what is left out, the earlier one first.
std::optional<std::pair<Blocks, Blocks>> textsOf(LocalStore& store, std::string_view address,
                                                 std::int64_t one, std::int64_t other) {
    const auto [before, after] = std::minmax(one, other);
    auto& pages = store.pages();
    const auto known = pages.revisions(address, kAllRevisions);
    for (const auto number : {before, after}) {
        if (std::ranges::find(known, number, &kit::PageRevision::number) == known.end())
            return std::nullopt;
    }
    const auto left = pages.state(address).value_or(kit::PageWatchState()).volatileBlocks;
    return std::pair{kit::withoutVolatile(pages.blocks(before), left),
                     kit::withoutVolatile(pages.blocks(after), left)};
}

}  // namespace

std::optional<kit::PageComparison> comparedRevisions(LocalStore& store, std::string_view address,
                                                     std::int64_t one, std::int64_t other) {
    const auto texts = textsOf(store, address, one, other);
    if (!texts) return std::nullopt;
    return kit::pageComparison(texts->first, texts->second);
}

std::optional<std::vector<kit::PageChangeRow>> wholeRevision(LocalStore& store,
                                                             std::string_view address,
                                                             std::int64_t one, std::int64_t other) {
    const auto texts = textsOf(store, address, one, other);
    if (!texts) return std::nullopt;
    return kit::wholeText(texts->first, texts->second);
}

namespace {

void changeParts(LocalStore& store, std::string_view address,
                 const std::function<void(kit::PageWatch&)>& change) {
    auto& pages = store.pages();
    auto watch = pages.watch(address);
    const auto before = watch.state.volatileBlocks;
    change(watch);
    if (watch.state.volatileBlocks == before) return;
    updateEarlierKeys(store, address, watch.state, before);
    pages.storeState(address, watch.state, pages.looks(address));
    pages.storeTexts(address, watch);
}

}  // namespace

void comparePart(LocalStore& store, std::string_view address, const kit::VolatileBlock& part) {
    changeParts(store, address,
                [&](kit::PageWatch& watch) { kit::forgetVolatile(watch, part.place); });
}

void leaveOutPart(LocalStore& store, std::string_view address, const kit::VolatileBlock& part) {
    changeParts(store, address, [&](kit::PageWatch& watch) { kit::restoreVolatile(watch, part); });
}

void updateEarlierKeys(LocalStore& store, std::string_view address, kit::PageWatchState& state,
                       const std::vector<kit::VolatileBlock>& leftOutBefore) {
    std::vector<std::vector<kit::PageBlock>> texts;
    for (const auto& revision : store.pages().revisions(address, kLastRevisions))
        texts.push_back(store.pages().blocks(revision.number));
    kit::updateEarlierKeys(state, leftOutBefore, texts);
}

std::string pageNameFor(const std::string& address) {
    for (const auto& page : kit::kSuggestedPages) {
        if (page.address == address) return std::string(page.name);
    }
    const auto parsed = kit::WebAddress::parse(address);
    if (!parsed) return address;
    auto path = address.substr(address.find(parsed->host) + parsed->host.size());
    while (path.ends_with('/')) path.pop_back();
    return parsed->host + path;
}

std::optional<std::string> pageAddressIn(std::string_view text) {
    const auto address = kit::WebAddress::parse(text);
    if (!address || address->scheme != "https" || address->host.empty()) return std::nullopt;
    auto whole = address->text();
    return whole.substr(0, whole.find('#'));
}

}  // namespace app
