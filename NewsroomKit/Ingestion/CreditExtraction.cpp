#include "NewsroomKit/Ingestion/CreditExtraction.h"

#include <algorithm>
#include <array>
#include <optional>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/PublisherNames.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

namespace {

// A longer phrase stands before the shorter one that it contains.
constexpr std::array<std::string_view, 11> kPhrases{
    "originally reported by", "first reported by", "as reported by", "reported by",
    "first spotted by",       "spotted by",        "according to",   "hat tip to",
    "credit to",              "h/t",               "via"};

// A link further from its phrase belongs to another thought.
constexpr std::size_t kReach = 48;

bool isWordByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           static_cast<signed char>(c) < 0;
}

struct Phrase {
    std::size_t begin;
    std::size_t end;
};

/// Credit phrases as whole words, in order; a phrase inside a longer one is left out.
std::vector<Phrase> findPhrases(std::string_view lower) {
    std::vector<Phrase> found;
    for (const auto phrase : kPhrases) {
        for (auto at = lower.find(phrase); at != std::string_view::npos; at = lower.find(phrase, at + 1)) {
            const auto end = at + phrase.size();
            const bool whole = (at == 0 || !isWordByte(lower[at - 1])) &&
                               (end == lower.size() || !isWordByte(lower[end]));
            const bool inside = std::any_of(found.begin(), found.end(), [&](const Phrase& longer) {
                return at >= longer.begin && at < longer.end;
            });
            if (whole && !inside) found.push_back({at, end});
        }
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.begin < b.begin; });
    return found;
}

/// "@name" or "@name@server.example" at the start of `text`.
std::string_view handleAt(std::string_view text) {
    if (!text.starts_with('@')) return {};
    std::size_t length = 1;
    while (length < text.size() && (isWordByte(text[length]) || text[length] == '_' || text[length] == '@' ||
                                    text[length] == '-' || text[length] == '.')) {
        ++length;
    }
    while (length > 1 && (text[length - 1] == '.' || text[length - 1] == '-')) --length;
    return length > 1 ? text.substr(0, length) : std::string_view();
}

/// Up to four words with a capital or a digit in front: "The Elec", "9to5Mac".
std::string_view nameAt(std::string_view text) {
    std::size_t end = 0, at = 0;
    for (int words = 0; words < 4 && at < text.size(); ++words) {
        const char first = text[at];
        const bool capital = (first >= 'A' && first <= 'Z') || (first >= '0' && first <= '9');
        if (!capital || (words > 0 && first >= '0' && first <= '9')) break;
        auto wordEnd = at;
        while (wordEnd < text.size() && (isWordByte(text[wordEnd]) || text[wordEnd] == '&')) ++wordEnd;
        end = wordEnd;
        if (wordEnd >= text.size() || text[wordEnd] != ' ') break;
        at = wordEnd + 1;
    }
    const auto name = text.substr(0, end);
    const bool number = std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    return name.size() < 2 || number || name == "The" ? std::string_view() : name;
}

bool isAppleDocument(const WebAddress& address) {
    if (!isHostOrSubhost(address.host, hosts::kApple)) return false;
    const auto pieces = address.pathPieces();
    return !pieces.empty() && (pieces[0] == "newsroom" || pieces[0] == "news" || address.host == "support.apple.com");
}

class Extraction {
public:
    Extraction(LinkedText linked, std::string_view siteURL, std::string_view sourceName)
        : linked_(std::move(linked)), lower_(lowercasedASCII(linked_.text)), sourceName_(sourceName) {
        if (const auto site = WebAddress::parse(siteURL)) {
            siteHost_ = site->host;
            if (siteHost_.starts_with("www.")) siteHost_.erase(0, 4);
        }
    }

    std::vector<SourceCredit> run() {
        const auto phrases = findPhrases(lower_);
        auto phrase = phrases.begin();
        for (const auto& link : linked_.links) {
            while (phrase != phrases.end() && phrase->begin < link.end) creditAfter(*phrase++);
            if (!isCredited(link.address)) creditLink(link, std::nullopt);
        }
        while (phrase != phrases.end()) creditAfter(*phrase++);
        return std::move(credits_);
    }

private:
    /// What stands behind a credit phrase: a link soon after, a handle, or a name.
    void creditAfter(const Phrase& phrase) {
        const std::string words = lower_.substr(phrase.begin, phrase.end - phrase.begin);
        const auto sentenceEnd = std::min(linked_.text.find_first_of(".;\n", phrase.end), linked_.text.size());
        const auto reach = std::min(sentenceEnd, phrase.end + kReach);
        for (const auto& link : linked_.links) {
            if (link.begin >= phrase.end && link.begin <= reach) return creditLink(link, words);
        }
        auto start = phrase.end;
        while (start < linked_.text.size() && (linked_.text[start] == ' ' || linked_.text[start] == ':')) ++start;
        const auto rest = std::string_view(linked_.text).substr(start);
        if (const auto handle = handleAt(rest); !handle.empty()) {
            add({.kind = SourceCredit::Kind::post, .name = std::string(handle), .detail = words});
        } else if (const auto name = nameAt(rest); !name.empty()) {
            const bool apple = name == "Apple";
            add({.kind = apple ? SourceCredit::Kind::apple : SourceCredit::Kind::outlet,
                 .name = std::string(name),
                 .detail = words});
        }
    }

    /// Without a credit phrase only posts, Apple's documents and known outlets count.
    void creditLink(const LinkedText::Link& link, std::optional<std::string> phrase) {
        const auto address = WebAddress::parse(link.address);
        if (!address || (!siteHost_.empty() && isHostOrSubhost(address->host, siteHost_))) return;
        if (auto post = socialPost(link.address)) {
            add({.kind = SourceCredit::Kind::post, .platform = post->platform, .name = post->account,
                 .url = link.address, .postedAt = post->postedAt, .detail = std::move(phrase)});
        } else if (isAppleDocument(*address)) {
            add({.kind = SourceCredit::Kind::apple, .name = "Apple", .url = link.address,
                 .detail = std::move(phrase)});
        } else if (const auto outlet = knownOutlet(address->host); outlet && *outlet != "Apple") {
            add({.kind = SourceCredit::Kind::outlet, .name = std::string(*outlet), .url = link.address,
                 .detail = std::move(phrase)});
        } else if (phrase) {
            auto host = address->host.starts_with("www.") ? address->host.substr(4) : address->host;
            const auto words = std::string_view(linked_.text).substr(link.begin, link.end - link.begin);
            const auto name = nameAt(words);
            add({.kind = SourceCredit::Kind::outlet, .name = name.empty() ? host : std::string(name),
                 .url = link.address, .detail = std::move(phrase)});
        }
    }

    bool isCredited(std::string_view address) const {
        return std::any_of(credits_.begin(), credits_.end(),
                           [&](const SourceCredit& credit) { return credit.url == address; });
    }

    void add(SourceCredit credit) {
        if (credits_.size() >= kCreditLimit || equalIgnoringCase(credit.name, sourceName_)) return;
        const bool known = std::any_of(credits_.begin(), credits_.end(), [&](const SourceCredit& other) {
            return other.kind == credit.kind && other.name == credit.name &&
                   (!credit.url || other.url == credit.url);
        });
        if (!known) credits_.push_back(std::move(credit));
    }

    const LinkedText linked_;
    const std::string lower_;
    const std::string_view sourceName_;
    std::string siteHost_;
    std::vector<SourceCredit> credits_;
};

}  // namespace

std::vector<SourceCredit> extractCredits(std::string_view html, std::string_view siteURL,
                                         std::string_view sourceName) {
    return Extraction(linkedText(html), siteURL, sourceName).run();
}

}  // namespace newsroom
