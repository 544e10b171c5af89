#include "NewsroomKit/Feeds/ExcerptEnding.h"

#include <algorithm>
#include <array>
#include <utility>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/TagAttribute.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

/// The greatest length of an invitation to read on, in bytes of the excerpt.
constexpr std::size_t longestInvitation = 200;
constexpr std::size_t longestWordsBesideLinks = 80;
/// A longer link is part of the text itself.
constexpr std::size_t longestLinkWords = 160;

/// Beginnings of an invitation, whatever follows (the outlet's name or the headline). Folded.
constexpr std::array<std::string_view, 16> fullStoryWords{
    "read the full ",       "read the rest",    "read the whole ",      "read the complete ",
    "read full article",    "read full story",  "to read this article", "view full coverage",
    "discuss this article", "continue reading", "den ganzen artikel",   "lire la suite",
    "lire l'article",       "continua leyendo", "continua a leggere",   "leia a noticia completa"};

/// Words that are an invitation when only a place follows ("at Example", "»"), or at the start of a
/// link. Folded.
constexpr std::array<std::string_view, 22> moreWords{
    "read more",  "read on",     "keep reading",   "more",           "permalink",   "weiterlesen",
    "mehr lesen", "zum artikel", "leer mas",       "seguir leyendo", "leggi tutto", "leggi di piu",
    "leia mais",  "ler mais",    "continue lendo", "lees meer",      "lees verder", "verder lezen",
    "las mer",    "lue lisaa",   "читать далее",   "suite"};

constexpr std::array<std::string_view, 12> placeWords{" at ",  " on ",  " in ", " auf ",
                                                      " bei ", " sur ", " en ", " su ",
                                                      " em ",  " no ",  " na ", " op "};

bool isLetterOrDigit(char32_t c) { return isLetter(c) || isNumber(c); }

std::size_t firstLetterOrDigit(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto decoded = decodeUTF8(text, at);
        if (isLetterOrDigit(decoded.value)) return at;
        at += decoded.length;
    }
    return none;
}

bool hasLetterOrDigit(std::string_view text) { return firstLetterOrDigit(text) != none; }

/// The end of the text without its closing marks: after the last letter or digit.
std::size_t endOfWords(std::string_view text) {
    while (!text.empty()) {
        const auto last = decodeUTF8Before(text, text.size());
        if (isLetterOrDigit(last.value)) break;
        text.remove_suffix(last.length);
    }
    return text.size();
}

/// The text folded, with uniform apostrophes and dashes, from its first letter to its last.
std::string comparable(std::string_view text) {
    text = text.substr(0, endOfWords(text));
    text.remove_prefix(std::min(firstLetterOrDigit(text), text.size()));
    auto folded = fold(text);
    for (auto at = folded.find("’"); at != none; at = folded.find("’", at)) {
        folded.replace(at, std::string_view("’").size(), "'");
    }
    return folded;
}

/// The address without the parts in which two links to one item may differ.
std::string_view bareAddress(std::string_view address) {
    address = trimWhitespaceAndNewlines(address);
    if (const auto scheme = address.find("://"); scheme != none) address.remove_prefix(scheme + 3);
    if (address.starts_with("www.")) address.remove_prefix(4);
    address = address.substr(0, address.find('#'));
    if (const auto query = address.find('?'); address.find("utm_", query) != none) {
        address = address.substr(0, query);
    }
    while (address.ends_with('/')) address.remove_suffix(1);
    return address;
}

/// Whether an invitation may follow `before`: at the start of a line, after a sentence, or after a
/// text that breaks off.
bool endsBeforeInvitation(std::string_view before) {
    if (before.ends_with('\n')) return true;
    before = trimWhitespaceAndNewlines(before);
    if (before.empty()) return true;
    for (const std::string_view end : {".", "!", "?", "…", "[…]", "...]", "。", "»", "”", "\""}) {
        if (before.ends_with(end)) return true;
    }
    return false;
}

/// The end of a text that breaks off: after the last "…", "..." or "[…]"; none without one.
std::size_t endOfBrokenText(std::string_view text) {
    std::size_t last = 0;
    for (const std::string_view mark : {"...", "…", "...]", "…]"}) {
        const auto at = text.rfind(mark);
        if (at != none) last = std::max(last, at + mark.size());
    }
    return last == 0 ? none : last;
}

/// A small letter continues the sentence. A line break always ends it.
bool beginsSentence(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first != none && text[first] != '\n' && (text[first] < 'a' || text[first] > 'z');
}

constexpr std::array<std::string_view, 7> sentenceEnds{". ", "! ", "? ", "… ", "] ", "» ", "。"};

/// The last sentence of a line. When it is too long for an invitation, the result may include
/// earlier sentences.
std::string_view lastSentence(std::string_view line) {
    const auto words = line.substr(0, endOfWords(line));
    const auto from = words.size() - std::min(words.size(), longestInvitation);
    std::size_t begin = 0;
    for (const auto end : sentenceEnds) {
        const auto at = words.substr(from).rfind(end);
        if (at != none) begin = std::max(begin, from + at + end.size());
    }
    return line.substr(begin);
}

template <std::size_t N>
std::string_view beginningAmong(std::string_view text,
                                const std::array<std::string_view, N>& beginnings) {
    for (const auto words : beginnings) {
        if (!text.starts_with(words)) continue;
        const auto rest = text.substr(words.size());
        if (rest.empty() || words.ends_with(' ') || !isLetterOrDigit(decodeUTF8(rest, 0).value)) {
            return words;
        }
    }
    return {};
}

/// Whether a sentence or a link's text is only an invitation to read on.
bool isInvitation(std::string_view text, bool isLink) {
    if (text.size() > longestInvitation) return false;
    const auto words = comparable(text);
    if (!beginningAmong(words, fullStoryWords).empty()) return true;
    const auto beginning = beginningAmong(words, moreWords);
    if (beginning.empty()) return false;
    const auto rest = std::string_view(words).substr(beginning.size());
    if (beginning.find(' ') == none) {
        // "More" begins too many headlines, and is a sentence in some texts.
        return !hasLetterOrDigit(rest) && (isLink || text.find_first_of("([") == 0);
    }
    return isLink || !hasLetterOrDigit(rest) || !beginningAmong(rest, placeWords).empty();
}

class EndingCutter {
public:
    EndingCutter(std::string text, std::vector<HTMLReader::Link> links, std::string_view itemLink)
        : text_(std::move(text)), links_(std::move(links)), itemLink_(bareAddress(itemLink)) {}

    std::string cut() && {
        // Each ending occurs once or twice; the bound is for texts made of nothing else.
        constexpr int mostRounds = 8;
        trimEnd();
        for (int round = 0; round < mostRounds; ++round) {
            const auto size = text_.size();
            dropBareLines();
            dropPostFooter();
            dropSiteFooter();
            dropClosingLink();
            dropClosingWords();
            dropContinueReading();
            if (text_.size() == size) break;
        }
        if (isOnlyLinks()) text_.clear();
        return std::move(text_);
    }

private:
    void trimEnd() { cutAt(text_.find_last_not_of(" \n") + 1); }

    void cutAt(std::size_t size) {
        text_.resize(size);
        while (!links_.empty() && links_.back().begin >= size) links_.pop_back();
        if (!links_.empty()) links_.back().end = std::min(links_.back().end, size);
    }

    /// Removes the text from `at` on, and trailing white space.
    void dropFrom(std::size_t at) {
        cutAt(at);
        trimEnd();
    }

    std::string_view text() const { return text_; }
    std::size_t lastLine() const {
        const auto lineBreak = text_.rfind('\n');
        return lineBreak == none ? 0 : lineBreak + 1;
    }

    bool leadsToItem(const HTMLReader::Link& link) const {
        if (itemLink_.empty()) return false;
        return bareAddress(decodedEntities(tagAttribute(link.tag, "href"))) == itemLink_;
    }

    /// Whether the second link leads to the site or blog that contains the first one's page.
    static bool leadsToPageAndSite(const HTMLReader::Link& page, const HTMLReader::Link& site) {
        const auto first = tagAttribute(page.tag, "href");
        const auto second = bareAddress(tagAttribute(site.tag, "href"));
        const auto address = bareAddress(first);
        return !second.empty() && address.size() > second.size() && address.starts_with(second) &&
               address[second.size()] == '/';
    }

    void dropBareLines() {
        const auto size = withoutBareLines(text_).size();
        if (size < text_.size()) dropFrom(size);
    }

    /// Drops "The post <title> appeared first on <site>.", which WordPress adds at the start of a
    /// line or after the text.
    void dropPostFooter() {
        constexpr std::string_view opening = "The post ";
        auto begin = lastStart(opening);
        if (begin == none) return;
        // The title may begin with the same words.
        while (text().substr(0, begin).ends_with(opening)) begin -= opening.size();
        const auto line = text().substr(begin, text_.find('\n', begin) - begin);
        if (line.find(" appeared first on ") == none && line.find(" first appeared on ") == none) {
            return;
        }
        erase(begin, line.size());
        trimEnd();
    }

    void erase(std::size_t begin, std::size_t size) {
        const auto end = begin + size;
        text_.erase(begin, size);
        std::erase_if(links_,
                      [&](const auto& link) { return link.end > begin && link.begin < end; });
        for (auto& link : links_) {
            if (link.begin < end) continue;
            link.begin -= size;
            link.end -= size;
        }
    }

    /// Drops the last line of a blog engine in any language: "<title>" erschien zuerst auf <site>.
    void dropSiteFooter() {
        const auto line = lastLine();
        if (links_.size() < 2) return;
        const auto& second = links_.back();
        const auto& first = links_[links_.size() - 2];
        const bool third = links_.size() > 2 && links_[links_.size() - 3].end > line;
        if (first.begin < line || third || endOfWords(text_) > second.end) return;
        const auto linked = (first.end - first.begin) + (second.end - second.begin);
        if (text_.size() - line - linked > longestWordsBesideLinks) return;
        const bool hasShape = leadsToPageAndSite(first, second);
        // A single line may be the whole text of a link blog, which also leads to the item.
        if (itemLink_.empty() ? hasShape : leadsToItem(first) && (hasShape || line > 0)) {
            dropFrom(line);
        }
    }

    /// Drops a separate link at the end that leads on: by its words, by WordPress's class for it,
    /// or because it leads to the item.
    void dropClosingLink() {
        if (links_.empty()) return;
        const auto link = links_.back();
        const auto before = text().substr(0, link.begin);
        if (endOfWords(text_) > link.end || link.end - link.begin > longestInvitation) return;
        if (leadsOn(link, before)) return dropFrom(link.begin);
        // "The text breaks off... More at <link to the item>"
        if (!leadsToItem(link)) return;
        const auto end = endOfBrokenText(before);
        if (end == none || text_.size() - end > longestWordsBesideLinks) return;
        const auto rest = text().substr(end);
        if (beginsSentence(rest) && lastSentence(rest) == rest) dropFrom(end);
    }

    bool leadsOn(const HTMLReader::Link& link, std::string_view before) const {
        constexpr std::size_t longestName = 40;
        const auto classes = tagAttribute(link.tag, "class");
        for (const std::string_view name : {"more-link", "read-more", "readmore"}) {
            if (classes.find(name) != none) return true;
        }
        const auto words = text().substr(link.begin, link.end - link.begin);
        if (endsBeforeInvitation(before) && isInvitation(words, true)) return true;
        if (!leadsToItem(link) || words.size() > longestName || words.starts_with("http")) {
            return false;
        }
        const auto previous = trimWhitespaceAndNewlines(before);
        return before.ends_with('\n') ||
               (!previous.empty() && endOfBrokenText(previous) == previous.size());
    }

    /// Drops the last sentence when it only invites to read on.
    void dropClosingWords() {
        const auto sentence = lastSentence(text().substr(lastLine()));
        if (!isInvitation(sentence, false)) return;
        dropFrom(text_.size() - sentence.size());
    }

    /// Drops "Continue reading <title> →" at the end of the text when it is not a link.
    void dropContinueReading() {
        const auto begin = lastStart("Continue reading");
        if (begin == none) return;
        const auto rest = text().substr(begin);
        // A sentence or line after it makes it part of the article.
        for (const std::string_view end : {". ", "! ", "? ", "\n"}) {
            if (rest.find(end) != none) return;
        }
        dropFrom(begin);
    }

    /// Both footers begin with a capital letter, so searching for it first is far cheaper than
    /// searching for their other words.
    std::size_t lastStart(std::string_view words) const {
        auto last = none;
        for (auto at = text_.find(words); at != none; at = text_.find(words, at + 1)) {
            if (at == 0 || text_[at - 1] == ' ' || text_[at - 1] == '\n') last = at;
        }
        return last;
    }

    bool isOnlyLinks() const {
        if (links_.empty()) return false;
        std::size_t at = 0;
        for (const auto& link : links_) {
            if (link.end - link.begin > longestLinkWords) return false;
            if (hasLetterOrDigit(text().substr(at, link.begin - at))) return false;
            at = link.end;
        }
        return !hasLetterOrDigit(text().substr(at));
    }

    std::string text_;
    std::vector<HTMLReader::Link> links_;
    std::string_view itemLink_;
};

}  // namespace

std::string_view withoutBareLines(std::string_view text) {
    while (!text.empty()) {
        const auto lineBreak = text.rfind('\n');
        const auto line = lineBreak == none ? 0 : lineBreak + 1;
        if (hasLetterOrDigit(text.substr(line))) break;
        text = text.substr(0, lineBreak == none ? 0 : lineBreak);
    }
    return text;
}

std::string withoutExcerptEnding(std::string text, std::vector<HTMLReader::Link> links,
                                 std::string_view itemLink) {
    return EndingCutter(std::move(text), std::move(links), itemLink).cut();
}

}  // namespace kit
