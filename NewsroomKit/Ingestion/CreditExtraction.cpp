#include "NewsroomKit/Ingestion/CreditExtraction.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "NewsroomKit/Ingestion/CreditCollector.h"
#include "NewsroomKit/Ingestion/CreditHosts.h"
#include "NewsroomKit/Ingestion/CreditPhrases.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Ingestion/OutletMention.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"
#include "NewsroomKit/Outlets/Outlet.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

// A link further from its phrase is unrelated to it.
constexpr std::size_t kReach = 48;
constexpr std::size_t kNearReach = 12;
// Among more links than this, those that no words explain are for further reading.
constexpr std::size_t kMostPlainLinks = 8;

// About 5,000 words: a text credits its source before that.
constexpr std::size_t kReadBytes = 32 * 1024;

constexpr std::string_view kNamedWithLink = "named with a link";
constexpr std::string_view kEmbedded = "embedded post";
/// The words with which Reddit's feeds link to what a post is about.
constexpr std::string_view kShared = "[link]";

using Certainty = OutletMention::Certainty;
using Link = LinkedText::Link;

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

template <std::size_t Size>
bool holdsAny(std::string_view text, const std::array<std::string_view, Size>& words) {
    const std::string lower = lowercasedASCII(text);
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) {
        return lower.find(word) != std::string::npos;
    });
}

// What a company reports is not what an outlet reports.
constexpr auto kResultWords = std::to_array<std::string_view>(
    {"earnings", "results", "revenue", "profit", "loss", "quarter", "sales", "income"});
constexpr auto kArticleWords = std::to_array<std::string_view>(
    {"article", "newspaper", "magazine", "media report", "news report", "news site"});
constexpr auto kPictureWords =
    std::to_array<std::string_view>({"image", "photo", "picture", "screenshot", "video"});

class Extraction {
public:
    Extraction(LinkedText linked, std::string_view siteURL, std::string_view sourceName)
        : linked_(std::move(linked)), text_(linked_.text), credits_(siteURL, sourceName) {}

    std::vector<SourceCredit> run() {
        for (const auto& phrase : findCreditPhrases(text_)) {
            if (credits_.isFull()) break;
            words_ = lowercasedASCII(text_.substr(phrase.begin, phrase.end - phrase.begin));
            credits_.setPhrase(phrase.begin, words_);
            read(phrase);
        }
        for (const auto& link : linked_.links) {
            if (credits_.isFull()) break;
            if (!credits_.isCredited(link.address)) creditBareLink(link);
        }
        return std::move(credits_).credits();
    }

private:
    void read(const CreditPhrase& phrase) {
        switch (phrase.role) {
            case CreditRole::origin: return creditOrigin(phrase, kReach);
            case CreditRole::via: return creditVia(phrase);
            case CreditRole::source: return creditSource(phrase);
            case CreditRole::writing: return creditWriting(phrase);
            case CreditRole::report: return creditReport(phrase);
            case CreditRole::statement: return creditStatement(phrase);
            case CreditRole::post: return creditPost(phrase);
        }
    }

    const Link* firstLinkAfter(std::size_t place) const {
        const auto link = std::partition_point(linked_.links.begin(), linked_.links.end(),
                                               [&](const Link& l) { return l.end <= place; });
        return link != linked_.links.end() ? &*link : nullptr;
    }

    /// The link that holds the phrase in its words, or the first behind it in its sentence.
    const Link* linkBehind(const CreditPhrase& phrase, std::size_t reach) const {
        const auto near = text_.substr(phrase.end, reach);
        const auto end = phrase.end + std::min(near.find_first_of(".;\n"), near.size());
        const Link* link = firstLinkAfter(phrase.begin);
        return link && link->begin <= end ? link : nullptr;
    }

    /// The link on some of the words from `begin` to `end`.
    const Link* linkOn(std::size_t begin, std::size_t end) const {
        const Link* link = firstLinkAfter(begin);
        return link && link->begin < end ? link : nullptr;
    }

    /// Credits the link under the name in its words, those before `from` left out.
    bool creditLink(const Link& link, std::size_t from = 0) {
        return credits_.addLink(
            link, mentionAfter(text_.substr(0, link.end), std::max(link.begin, from)));
    }

    void creditOrigin(const CreditPhrase& phrase, std::size_t reach) {
        const auto mention = mentionAfter(text_, phrase.end);
        const Link* link = linkBehind(phrase, reach);
        if (credits_.addKnown(mention, link) || (link && creditLink(*link, phrase.end))) return;
        const auto start = std::min(text_.find_first_not_of(" :", phrase.end), text_.size());
        const auto handle = handleAt(text_.substr(start));
        if (!handle.empty()) {
            credits_.addHandle(handle);
        } else if (mention && mention->certainty == Certainty::likely) {
            credits_.addOutlet(mention->name);
        }
    }

    /// In brackets or at the start of a sentence "via" credits; elsewhere it is a preposition,
    /// unless an outlet follows. Under a picture it says who took it.
    void creditVia(const CreditPhrase& phrase) {
        const auto before = trimHorizontalWhitespace(text_.substr(0, phrase.begin));
        if (holdsAny(before.substr(before.find_last_of(" \n([") + 1), kPictureWords)) return;
        const bool opens = before.empty() || std::string_view("([.!?\n").find(before.back()) !=
                                                 std::string_view::npos;
        if (opens) return creditOrigin(phrase, kNearReach);
        const Link* link = linkBehind(phrase, kNearReach);
        if (credits_.addKnown(mentionAfter(text_, phrase.end), link) || !link) return;
        const bool follows = link->begin >= phrase.end && outletOfHost(linkHost(link->address));
        if (follows) creditLink(*link);
    }

    void creditSource(const CreditPhrase& phrase) {
        const auto mention = mentionAfter(text_, phrase.end);
        const Link* link = linkBehind(phrase, kReach);
        if (credits_.addKnown(mention, link)) return;
        const auto host = link ? linkHost(link->address) : std::string();
        const bool outlet = link && (outletOfHost(host) || socialPost(link->address));
        if (outlet || (link && isCalledArticle(phrase, *link))) {
            creditLink(*link, phrase.end);
        } else if (mention && mention->certainty == Certainty::likely && words_ != "per") {
            const bool linked = link && link->begin < mention->end && link->end > mention->begin &&
                                namesHost(mention->name, host);
            linked ? void(creditLink(*link)) : credits_.addOutlet(mention->name);
        }
    }

    /// Whether the words from the phrase to the link's end call what is linked an article.
    bool isCalledArticle(const CreditPhrase& phrase, const Link& link) const {
        if (link.end <= phrase.end || !isArticleAddress(link.address) ||
            creditHost(linkHost(link.address)) != CreditHost::site) {
            return false;
        }
        const auto words = text_.substr(phrase.end, std::min(link.end - phrase.end, kReach));
        return holdsAny(words, kArticleWords);
    }

    /// "Ann Writer, writing for Orchard Weekly": the person tells it from "writing for beginners".
    void creditWriting(const CreditPhrase& phrase) {
        const auto mention = mentionAfter(text_, phrase.end);
        if (credits_.addKnown(mention, linkBehind(phrase, kReach)) || !mention) return;
        const bool gerund = words_.starts_with("writing") && !words_.ends_with("in");
        const auto clause = text_.substr(0, phrase.begin).find_last_not_of(" ,");
        if (!gerund || clause == std::string_view::npos) return;
        const auto person = mentionBefore(text_, clause + 1);
        if (person && person->name.find(' ') != std::string::npos) {
            credits_.addOutlet(mention->name);
        }
    }

    void creditReport(const CreditPhrase& phrase) {
        const auto mention = mentionBefore(text_, phrase.begin);
        const bool sure = mention && mention->certainty != Certainty::named;
        if (!sure && creditInverted(phrase)) return;
        if (!mention) return;
        const Link* link = linkOn(mention->begin, phrase.end);
        if (credits_.addKnown(mention, link)) return;
        if (holdsAny(text_.substr(phrase.end, kReach), kResultWords)) return;
        const auto host = link ? linkHost(link->address) : std::string();
        const bool site = link && creditHost(host) == CreditHost::site;
        // "Ann Writer [reports in detail]"
        const bool linksVerb =
            site && link->begin >= mention->end && isArticleAddress(link->address);
        if ((site && namesHost(mention->name, host)) || linksVerb) {
            credits_.addLink(*link, mention);
        } else if (mention->certainty == Certainty::likely) {
            credits_.addOutlet(mention->name);
        }
    }

    /// ", reports Orchard Daily", with the outlet behind the verb.
    bool creditInverted(const CreditPhrase& phrase) {
        const auto before = trimHorizontalWhitespace(text_.substr(0, phrase.begin));
        const bool open = before.empty() || before.back() == ',' || before.back() == '"';
        const Link* on = linkOn(phrase.begin, phrase.end);
        if ((!open && !on) || words_ == "reporting") return false;
        const auto mention = mentionAfter(text_, phrase.end);
        const Link* link = on ? on : linkBehind(phrase, kNearReach);
        if (credits_.addKnown(mention, link)) return true;
        if (!mention || !open) return false;
        const auto host = link ? linkHost(link->address) : std::string();
        if (link && (outletOfHost(host) || namesHost(mention->name, host))) {
            return credits_.addLink(*link, mention);
        }
        const bool oneWord = mention->name.find(' ') == std::string::npos;
        const bool verb = words_ == "reports" || words_ == "reported";
        if (mention->certainty != Certainty::likely && !(oneWord && verb)) return false;
        credits_.addOutlet(mention->name);
        return true;
    }

    /// Outlets are often the subject of what they say, so there a link to them must stand with it;
    /// what they write is their news.
    void creditStatement(const CreditPhrase& phrase) {
        const auto mention = mentionBefore(text_, phrase.begin);
        const bool writes = words_ != "says" && words_ != "reveals";
        if (writes && (!mention || !mention->outlet) && creditInverted(phrase)) return;
        if (!mention) return;
        const Link* link = linkOn(mention->begin, phrase.end);
        if (mention->outlet) {
            const bool there = link && outletOfHost(linkHost(link->address)) == mention->outlet;
            if (writes || there) credits_.addKnown(mention, link);
            return;
        }
        const bool column = link && words_ == "writes" && link->begin <= mention->begin &&
                            creditHost(linkHost(link->address)) == CreditHost::site &&
                            isArticleAddress(link->address);
        if (column) creditLink(*link);
    }

    /// "tweeted" with the post linked near: before the verb, on it or behind it.
    void creditPost(const CreditPhrase& phrase) {
        const Link* link = firstLinkAfter(phrase.begin - std::min(phrase.begin, kReach));
        for (; link && link < linked_.links.data() + linked_.links.size(); ++link) {
            if (link->begin > phrase.end + kReach) return;
            if (credits_.addPost(link->address)) return;
        }
    }

    /// Without a phrase only posts, articles of known outlets and Apple's announcements count, as
    /// background, unless the outlet is named beside the link.
    void creditBareLink(const Link& link) {
        const auto host = linkHost(link.address);
        if (host.empty() || credits_.isOwn(host)) return;
        if (const auto post = socialPost(link.address)) {
            const auto before = trimHorizontalWhitespace(text_.substr(0, link.begin));
            if (before.ends_with("(" + post->account + ")")) {
                credits_.setPhrase(link.begin, std::string(kEmbedded));
            } else if (outletOfAccount(post->platform, post->account)) {
                credits_.setPhrase(link.begin, std::nullopt);
            } else {
                return;
            }
            credits_.addPost(link.address);
            return;
        }
        const Outlet* outlet = outletOfHost(host);
        if (!outlet) return;
        const bool announcement = outlet->isApple && isAppleDocument(link.address);
        if (!announcement && (outlet->isApple || !isArticleAddress(link.address))) return;
        std::optional<std::string> phrase;
        if (!outlet->isApple && isNamedBeside(link, *outlet)) phrase = kNamedWithLink;
        if (text_.substr(link.begin, link.end - link.begin) == kShared) phrase = kShared;
        if (!phrase && !outlet->isApple && linked_.links.size() > kMostPlainLinks) return;
        credits_.setPhrase(link.begin, std::move(phrase));
        creditLink(link);
    }

    /// Whether the link's words or those around it in its line name the outlet.
    bool isNamedBeside(const Link& link, const Outlet& outlet) const {
        const std::size_t begin = link.begin - std::min(link.begin, kReach);
        auto around = text_.substr(begin, link.end + kReach - begin);
        const auto newline = around.substr(0, link.begin - begin).rfind('\n');
        if (newline != std::string_view::npos) around.remove_prefix(newline + 1);
        return isNamedIn(around, outlet);
    }

    const LinkedText linked_;
    const std::string_view text_;
    CreditCollector credits_;
    std::string words_;  ///< those of the phrase, in lower case
};

}  // namespace

std::vector<SourceCredit> extractCredits(std::string_view contentHTML, std::string_view summaryHTML,
                                         std::string_view siteURL, std::string_view sourceName) {
    const std::array pieces{contentHTML.substr(0, kReadBytes), summaryHTML.substr(0, kReadBytes)};
    return Extraction(linkedText(pieces), siteURL, sourceName).run();
}

}  // namespace kit
