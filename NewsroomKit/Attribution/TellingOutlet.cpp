#include "NewsroomKit/Attribution/TellingOutlet.h"

#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"
#include "NewsroomKit/Outlets/Outlet.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Pattern.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

std::string shownName(const Outlet& outlet) {
    return std::string(outlet.isApple ? kAppleOutlet : outlet.name);
}

/// The outlet on that page, or whose account posted it.
const Outlet* outletAt(std::string_view link) {
    if (const auto post = socialPost(link)) return outletOfAccount(post->platform, post->account);
    const auto address = WebAddress::parse(link);
    return address ? outletOfHost(address->host) : nullptr;
}

std::string shownHost(std::string_view link) {
    const auto address = WebAddress::parse(link);
    if (!address) return {};
    constexpr std::string_view www = "www.";
    return address->host.starts_with(www) ? address->host.substr(www.size()) : address->host;
}

bool isThroughGoogleNews(const Story& story) {
    constexpr std::string_view scheme = "https://";
    const std::string_view link = story.link;
    if (!link.starts_with(scheme) || !link.substr(scheme.size()).starts_with(hosts::kGoogleNews))
        return false;
    const auto address = WebAddress::parse(link);
    return address && address->host == hosts::kGoogleNews;
}

/// The words of `text` before white space, without punctuation at their end.
std::string_view leadingWords(std::string_view text, int count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end = text.find(' ', end + 1);
    auto words = text.substr(0, end);
    for (const std::string_view ending : {"’s", "'s"}) {
        if (words.ends_with(ending)) words.remove_suffix(ending.size());
    }
    constexpr std::string_view punctuation = ".,:;!?)]”’\"'";
    const auto last = words.find_last_not_of(punctuation);
    return words.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Whether the text begins with the name of an outlet other than its own. "Says Apple" is no
/// borrowed news: it is what Apple told everybody. "According to the information" names nobody: a
/// name has a capital letter.
bool beginsWithOutlet(std::string_view text, std::string_view ownKey) {
    constexpr int longestName = 5;
    constexpr std::string_view article = "the ";
    const auto name = lowercasedASCII(text.substr(0, article.size())) == article
                          ? text.substr(article.size())
                          : text;
    if (name.empty() || (name.front() >= 'a' && name.front() <= 'z')) return false;
    for (int count = 1; count <= longestName; ++count) {
        const auto* outlet = outletNamed(leadingWords(text, count));
        if (outlet && !outlet->isApple && outletKey(outlet->name) != ownKey) return true;
    }
    return false;
}

bool namesItsOutlet(std::string_view title, std::string_view ownOutlet) {
    constexpr auto phrases =
        std::to_array<std::string_view>({"per ", "according to ", "via ", "says "});
    const auto ownKey = outletKey(ownOutlet);
    const auto text = lowercasedASCII(title);
    for (const auto phrase : phrases) {
        for (auto at = text.find(phrase); at != std::string::npos; at = text.find(phrase, at + 1)) {
            const bool isWord = at == 0 || text[at - 1] == ' ' || text[at - 1] == '(';
            if (isWord && beginsWithOutlet(title.substr(at + phrase.size()), ownKey)) return true;
        }
    }
    return false;
}

}  // namespace

std::string shownOutletName(std::string_view name) {
    if (const auto* outlet = outletNamed(name)) return shownName(*outlet);
    return std::string(trimWhitespaceAndNewlines(name));
}

std::string outletKey(std::string_view name) { return fold(shownOutletName(name)); }

std::string tellingOutlet(const Story& story) {
    if (story.isAppleSource) return std::string(kAppleOutlet);
    if (isThroughGoogleNews(story)) {
        if (!story.articleLink) return story.sourceName;
        return outletOfPage(shownHost(*story.articleLink), *story.articleLink);
    }
    if (const auto* outlet = outletNamed(story.sourceName)) return shownName(*outlet);
    if (socialPost(story.link)) {
        if (const auto* outlet = outletAt(story.link)) return shownName(*outlet);
    }
    return std::string(trimWhitespaceAndNewlines(story.sourceName));
}

std::string tellingOutletKey(const Story& story) { return fold(tellingOutlet(story)); }

std::string outletOfPage(std::string_view name, std::string_view url) {
    if (const auto* outlet = outletNamed(name)) return shownName(*outlet);
    if (const auto* outlet = outletAt(url)) return shownName(*outlet);
    const auto trimmed = trimWhitespaceAndNewlines(name);
    return trimmed.empty() ? shownHost(url) : std::string(trimmed);
}

std::string creditedOutlet(const SourceCredit& credit) {
    if (credit.kind == SourceCredit::Kind::apple) return std::string(kAppleOutlet);
    if (credit.platform) {
        if (const auto* outlet = outletOfAccount(*credit.platform, credit.name))
            return shownName(*outlet);
    }
    return shownOutletName(credit.name);
}

bool isLinkPost(const Story& story) {
    const auto own = outletKey(tellingOutlet(story));
    if (story.destinationName) {
        const auto* known = outletAt(story.link);
        const auto destination = known ? shownName(*known) : *story.destinationName;
        return outletKey(*story.destinationName) != own && outletKey(destination) != own;
    }
    if (story.kind != StoryKind::post) return false;
    const auto* linked = outletAt(story.link);
    return linked && outletKey(shownName(*linked)) != own;
}

bool isSecondHandTitle(std::string_view title, std::string_view ownOutlet) {
    static const Pattern report(
        R"(\breportedly\b|\breport (?:says|claims|suggests)\b|\breports say\b|\breport:|)"
        R"(\bper (?:a |an |the |one )?(?:new )?report\b)",
        Pattern::Letters::ignoringCase);
    return report.occursIn(title) || namesItsOutlet(title, ownOutlet);
}

}  // namespace kit
