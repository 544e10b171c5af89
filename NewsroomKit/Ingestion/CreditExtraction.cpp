#include "NewsroomKit/Ingestion/CreditExtraction.h"

#include <algorithm>
#include <array>
#include <optional>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Ingestion/CreditPhrases.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/PublisherNames.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

// A link further from its phrase is unrelated to it.
constexpr std::size_t kReach = 48;

// About 5,000 words: a text credits its source before that.
constexpr std::size_t kReadBytes = 32 * 1024;

/// "@name" or "@name@server.example" at the start of `text`.
std::string_view handleAt(std::string_view text) {
    if (!text.starts_with('@')) return {};
    std::size_t length = 1;
    while (length < text.size() &&
           (isASCIIAlphanumeric(text[length]) || text[length] == '_' || text[length] == '@' ||
            text[length] == '-' || text[length] == '.')) {
        ++length;
    }
    while (length > 1 && (text[length - 1] == '.' || text[length - 1] == '-')) --length;
    return length > 1 ? text.substr(0, length) : std::string_view();
}

/// Up to four words that begin with a capital, the first perhaps with a digit: "The Elec",
/// "9to5Mac".
std::string_view nameAt(std::string_view text) {
    std::size_t end = 0;
    std::size_t at = 0;
    for (int words = 0; words < 4 && at < text.size(); ++words) {
        const bool capital = text[at] >= 'A' && text[at] <= 'Z';
        if (!capital && !(words == 0 && isASCIIDigit(text[at]))) break;
        auto wordEnd = at;
        while (const auto length = wordCharacterAt(text, wordEnd)) wordEnd += length;
        end = wordEnd;
        if (wordEnd >= text.size() || text[wordEnd] != ' ') break;
        at = wordEnd + 1;
    }
    const auto name = text.substr(0, end);
    const bool number = std::all_of(name.begin(), name.end(), isASCIIDigit);
    return name.size() < 2 || number || name == "The" ? std::string_view() : name;
}

/// The host of an http(s) address, in lower case.
std::string hostOf(std::string_view address) {
    const auto begin = address.find("://");
    if (begin == std::string_view::npos) return {};
    auto authority = address.substr(begin + 3);
    authority = authority.substr(0, authority.find_first_of("/?#"));
    if (const auto at = authority.rfind('@'); at != std::string_view::npos)
        authority.remove_prefix(at + 1);
    return lowercasedASCII(authority.substr(0, authority.find(':')));
}

bool isAppleDocument(std::string_view text) {
    const auto address = WebAddress::parse(text);
    if (!address) return false;
    const auto pieces = address->pathPieces();
    return !pieces.empty() &&
           (pieces[0] == "newsroom" || pieces[0] == "news" || address->host == "support.apple.com");
}

class Extraction {
public:
    Extraction(LinkedText linked, std::string_view siteURL, std::string_view sourceName)
        : linked_(std::move(linked)), sourceName_(sourceName) {
        siteHost_ = hostOf(siteURL);
        if (siteHost_.starts_with("www.")) siteHost_.erase(0, 4);
    }

    std::vector<SourceCredit> run() {
        const auto phrases = findCreditPhrases(linked_.text);
        auto phrase = phrases.begin();
        for (const auto& link : linked_.links) {
            while (phrase != phrases.end() && phrase->begin < link.end && !isFull())
                creditAfter(*phrase++);
            if (isFull()) break;
            if (!isCredited(link.address)) creditLink(link, std::nullopt);
        }
        while (phrase != phrases.end() && !isFull()) creditAfter(*phrase++);
        return std::move(credits_);
    }

private:
    bool isFull() const { return credits_.size() >= kCreditLimit; }

    /// Credits what follows a credit phrase: a nearby link, a handle, or a name.
    void creditAfter(const CreditPhrase& phrase) {
        const std::string words = lowercasedASCII(
            std::string_view(linked_.text).substr(phrase.begin, phrase.end - phrase.begin));
        const auto near = std::string_view(linked_.text).substr(phrase.end, kReach);
        const auto reach = phrase.end + std::min(near.find_first_of(".;\n"), near.size());
        const auto link =
            std::lower_bound(linked_.links.begin(), linked_.links.end(), phrase.end,
                             [](const auto& l, std::size_t place) { return l.begin < place; });
        if (link != linked_.links.end() && link->begin <= reach) return creditLink(*link, words);

        auto start = phrase.end;
        while (start < linked_.text.size() &&
               (linked_.text[start] == ' ' || linked_.text[start] == ':'))
            ++start;
        const auto rest = std::string_view(linked_.text).substr(start);
        if (const auto handle = handleAt(rest); !handle.empty()) {
            add({.kind = SourceCredit::Kind::post, .name = std::string(handle), .detail = words});
        } else if (const auto name = nameAt(rest); !name.empty() && isNameCredited(name, words)) {
            const bool apple = name == "Apple";
            add({.kind = apple ? SourceCredit::Kind::apple : SourceCredit::Kind::outlet,
                 .name = std::string(name),
                 .detail = words});
        }
    }

    /// "via HTTPS" and "via Settings" are not credits: after these phrases a bare name counts only
    /// when it is an outlet's.
    static bool isNameCredited(std::string_view name, std::string_view phrase) {
        const bool loose = phrase == "via" || phrase == "h/t" || phrase == "credit to";
        return !loose || isKnownOutletName(name);
    }

    /// Without a credit phrase only posts, Apple's documents and known outlets count. Most links
    /// are none of these, which their host shows without parsing them.
    void creditLink(const LinkedText::Link& link, std::optional<std::string> phrase) {
        const auto host = hostOf(link.address);
        if (host.empty() || (!siteHost_.empty() && isHostOrSubhost(host, siteHost_))) return;
        const auto outlet = knownOutlet(host);
        if (auto post = socialPost(link.address)) {
            add({.kind = SourceCredit::Kind::post,
                 .platform = post->platform,
                 .name = post->account,
                 .url = link.address,
                 .postedAt = post->postedAt,
                 .detail = std::move(phrase)});
        } else if (outlet == "Apple") {
            if (!isAppleDocument(link.address)) return;
            add({.kind = SourceCredit::Kind::apple,
                 .name = "Apple",
                 .url = link.address,
                 .detail = std::move(phrase)});
        } else if (outlet) {
            add({.kind = SourceCredit::Kind::outlet,
                 .name = std::string(*outlet),
                 .url = link.address,
                 .detail = std::move(phrase)});
        } else if (phrase) {
            const auto words =
                std::string_view(linked_.text).substr(link.begin, link.end - link.begin);
            const auto name = nameAt(words);
            const auto bareHost = host.starts_with("www.") ? host.substr(4) : host;
            add({.kind = SourceCredit::Kind::outlet,
                 .name = name.empty() ? bareHost : std::string(name),
                 .url = link.address,
                 .detail = std::move(phrase)});
        }
    }

    bool isCredited(std::string_view address) const {
        return std::any_of(credits_.begin(), credits_.end(),
                           [&](const SourceCredit& credit) { return credit.url == address; });
    }

    void add(SourceCredit credit) {
        if (isFull() || equalIgnoringCase(credit.name, sourceName_)) return;
        const bool known =
            std::any_of(credits_.begin(), credits_.end(), [&](const SourceCredit& other) {
                return other.kind == credit.kind && other.name == credit.name &&
                       (!credit.url || other.url == credit.url);
            });
        if (!known) credits_.push_back(std::move(credit));
    }

    const LinkedText linked_;
    const std::string_view sourceName_;
    std::string siteHost_;
    std::vector<SourceCredit> credits_;
};

}  // namespace

std::vector<SourceCredit> extractCredits(std::string_view contentHTML, std::string_view summaryHTML,
                                         std::string_view siteURL, std::string_view sourceName) {
    const std::array pieces{contentHTML.substr(0, kReadBytes), summaryHTML.substr(0, kReadBytes)};
    return Extraction(linkedText(pieces), siteURL, sourceName).run();
}

}  // namespace kit
