#include "NewsroomKit/Outlets/Outlet.h"

#include <functional>
#include <string>
#include <unordered_map>

#include "NewsroomKit/Outlets/OutletNames.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

struct OutletKeyHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const {
        return std::hash<std::string_view>{}(key);
    }
};

using OutletMap = std::unordered_map<std::string, const Outlet*, OutletKeyHash, std::equal_to<>>;

struct OutletIndex {
    OutletMap byName;     ///< folded
    OutletMap byHost;     ///< in lower case
    OutletMap byAccount;  ///< "platform:account" in lower case
};

void addAccounts(OutletMap& map, std::string_view accounts, const Outlet& outlet) {
    forEachPart(accounts, ' ',
                [&](std::string_view account) { map.emplace(lowercasedASCII(account), &outlet); });
}

const OutletIndex& outletIndex() {
    static const OutletIndex index = [] {
        OutletIndex made;
        for (const Outlet& outlet : knownOutlets()) {
            made.byName.emplace(foldedOutletName(outlet.name), &outlet);
            forEachPart(outlet.aliases, '|', [&](std::string_view alias) {
                made.byName.emplace(foldedOutletName(alias), &outlet);
            });
            forEachPart(outlet.hosts, ' ', [&](std::string_view host) {
                made.byHost.emplace(std::string(host), &outlet);
            });
            addAccounts(made.byAccount, outlet.accounts, outlet);
            addAccounts(made.byAccount, outlet.reporters, outlet);
        }
        return made;
    }();
    return index;
}

const Outlet* foundIn(const OutletMap& map, std::string_view key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

}  // namespace

std::string foldedOutletName(std::string_view name) {
    std::string folded = fold(name);
    constexpr std::string_view typographic = "’";
    for (auto at = folded.find(typographic); at != std::string::npos;
         at = folded.find(typographic, at)) {
        folded.replace(at, typographic.size(), "'");
    }
    return folded;
}

const Outlet* outletNamed(std::string_view name) {
    const std::string folded = foldedOutletName(trimWhitespaceAndNewlines(name));
    if (const Outlet* outlet = foundIn(outletIndex().byName, folded)) return outlet;
    constexpr std::string_view article = "the ";
    if (!folded.starts_with(article)) return nullptr;
    return foundIn(outletIndex().byName, std::string_view(folded).substr(article.size()));
}

const Outlet* outletOfHost(std::string_view host) {
    const std::string lower = lowercasedASCII(host);
    for (std::string_view rest = lower; !rest.empty();) {
        if (const Outlet* outlet = foundIn(outletIndex().byHost, rest)) return outlet;
        const auto point = rest.find('.');
        rest = point == std::string_view::npos ? std::string_view() : rest.substr(point + 1);
    }
    return nullptr;
}

const Outlet* outletOfAccount(std::string_view platform, std::string_view account) {
    if (account.starts_with('@')) account.remove_prefix(1);
    const std::string key = lowercasedASCII(std::string(platform).append(":").append(account));
    if (const Outlet* outlet = foundIn(outletIndex().byAccount, key)) return outlet;
    if (platform == "Bluesky") return outletOfHost(account);
    const auto server = account.find('@');
    const bool onServer = platform == "Mastodon" && server != std::string_view::npos;
    return onServer ? outletOfHost(account.substr(server + 1)) : nullptr;
}

std::string_view mainHost(const Outlet& outlet) {
    return outlet.hosts.substr(0, outlet.hosts.find(' '));
}

}  // namespace kit
