#include "NewsroomKit/Addresses/URLRedaction.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::string_view kMask = "…";
constexpr std::string_view kSchemeEnd = "://";
// Keys that services issue are longer; ids that people share are shorter.
constexpr std::size_t kShortestToken = 16;
// Posts of social networks have numbers of up to twenty digits.
constexpr std::size_t kLongestNumber = 20;

/// A name that contains one of these words has a secret value.
constexpr std::string_view kSecretWords[] = {
    "apikey",    "auth",       "authorization", "authkey", "bearer",    "credential", "credentials",
    "hmac",      "jsessionid", "jwt",           "key",     "pass",      "passkey",    "passphrase",
    "passwd",    "password",   "phpsessid",     "pw",      "pwd",       "secret",     "session",
    "sessionid", "sid",        "sig",           "sign",    "signature", "token",
};
/// Endings of names that are written without separators ("accesstoken", "feedkey").
constexpr std::string_view kSecretEndings[] = {"apikey", "authkey", "feedkey",   "password",
                                               "rsskey", "secret",  "sessionid", "token"};

/// Public ids that look random. They come after the query item's name or path segment `after` and
/// begin with `beginning`.
struct PublicID {
    std::string_view after;
    std::string_view beginning;
};
constexpr PublicID kPublicIDs[] = {
    {"channel_id", "UC"}, {"channel", "UC"}, {"playlist_id", "PL"}, {"playlist_id", "UU"},
    {"list", "PL"},       {"list", "UU"},    {"articles", "CBM"},   {"articles", "CAI"},
};

bool isPublicID(std::string_view after, std::string_view text) {
    return std::any_of(std::begin(kPublicIDs), std::end(kPublicIDs), [&](const PublicID& id) {
        return after == id.after && text.starts_with(id.beginning);
    });
}

bool isSecretName(std::string_view encoded) {
    const std::string name = percentDecoded(encoded);
    std::string word;
    std::string whole;
    for (std::size_t at = 0; at <= name.size(); ++at) {
        const char c = at < name.size() ? name[at] : '_';
        const bool capital = c >= 'A' && c <= 'Z';
        const bool afterSmall = at > 0 && name[at - 1] >= 'a' && name[at - 1] <= 'z';
        // "access_token", "X-Amz-Signature", "accessToken"
        if (!isASCIIAlphanumeric(c) || (capital && afterSmall)) {
            const auto end = std::end(kSecretWords);
            if (std::find(std::begin(kSecretWords), end, word) != end) return true;
            word.clear();
        }
        if (!isASCIIAlphanumeric(c)) continue;
        word += lowercaseASCII(c);
        whole += lowercaseASCII(c);
    }
    return std::any_of(std::begin(kSecretEndings), std::end(kSecretEndings),
                       [&](std::string_view ending) { return whole.ends_with(ending); });
}

enum class Letters { small, capital, digit };

Letters lettersOf(char c) {
    if (isASCIIDigit(c)) return Letters::digit;
    return c >= 'a' ? Letters::small : Letters::capital;
}

/// Statistics that distinguish random text from words, for a run without separators. Small letters
/// after a capital don't count as a change of kind: they form a word.
struct Piece {
    std::size_t length = 0;
    std::size_t digits = 0;
    std::size_t digitRuns = 0;
    std::size_t changes = 0;  ///< between small letters, capitals and digits
    std::size_t vowels = 0;
    std::size_t longestConsonants = 0;  ///< in a row
    bool hexadecimal = true;

    explicit Piece(std::string_view text) : length(text.size()) {
        std::size_t consonants = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const Letters now = lettersOf(text[at]);
            const bool begins = at == 0 || lettersOf(text[at - 1]) != now;
            const bool digit = now == Letters::digit;
            const bool vowel =
                std::string_view("aeiouy").find(lowercaseASCII(text[at])) != std::string_view::npos;
            if (digit) ++digits;
            if (digit && begins) ++digitRuns;
            if (vowel) ++vowels;
            consonants = digit || vowel ? 0 : consonants + 1;
            longestConsonants = std::max(longestConsonants, consonants);
            hexadecimal = hexadecimal && hexValue(text[at]) >= 0;
            if (at == 0 || !begins) continue;
            const bool word = now == Letters::small && lettersOf(text[at - 1]) == Letters::capital;
            if (!word) ++changes;
        }
    }

    /// Judges the piece on its own. Words have vowels in every language of the sources.
    bool looksRandom() const {
        if (digits == length) return length > kLongestNumber;
        if (length < kShortestToken) return false;
        const std::size_t letters = length - digits;
        return hexadecimal || digitRuns >= 3 || longestConsonants >= 7 ||
               (letters >= kShortestToken / 2 && vowels * 6 < letters);
    }

    bool isWordOrNumber() const { return changes == 0; }
};

bool isUUID(std::string_view text) {
    constexpr std::string_view shape = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(),
                      [](char c, char form) { return form == '-' ? c == '-' : hexValue(c) >= 0; });
}

/// True when the text cannot be made of words.
bool looksRandom(std::string_view text) {
    if (text.size() < kShortestToken) return false;
    if (isUUID(text)) return true;
    std::size_t mixed = 0;
    std::size_t digits = 0;
    std::size_t changes = 0;
    for (auto rest = text; !rest.empty();) {
        const auto end = std::find_if_not(rest.begin(), rest.end(), isASCIIAlphanumeric);
        const Piece piece(rest.substr(0, static_cast<std::size_t>(end - rest.begin())));
        rest.remove_prefix(std::min(rest.size(), piece.length + 1));
        if (piece.looksRandom()) return true;
        // 1. Many public addresses end in a short hash, or in an article's id after a slug.
        if (piece.isWordOrNumber() || piece.hexadecimal) continue;
        mixed += piece.length;
        digits += piece.digits;
        changes += piece.changes;
    }
    // 2. Base 64 also uses "-" and "_". In it the kind of character changes at about 40 % of all
    // places, in joined words ("iPhone18ProMaxReview") at about 20 %.
    return mixed >= kShortestToken * 3 / 4 && mixed * 2 >= text.size() && digits > 0 &&
           changes * 10 >= mixed * 3;
}

/// True for a secret and for an escaped address that contains one.
bool isSecretValue(std::string_view encoded) {
    const std::string value = percentDecoded(encoded);
    if (looksRandom(value)) return true;
    return value.size() < encoded.size() && value.find(kSchemeEnd) != std::string::npos &&
           carriesSecret(value);
}

/// Appends one "name=value" of a query, a fragment or a path parameter (";").
void appendItem(std::string_view item, std::string& out) {
    const auto equals = item.find('=');
    const bool named = equals != std::string_view::npos;
    const std::string_view name = named ? item.substr(0, equals) : std::string_view();
    const std::string_view value = named ? item.substr(equals + 1) : item;
    if (named) out.append(name).append("=");
    const bool secret = isSecretName(name) || (!isPublicID(name, value) && isSecretValue(value));
    out.append(secret && !value.empty() ? kMask : value);
}

/// Calls `append` for each part between separators, which stay where they are.
template <class Append>
void appendParts(std::string_view text, std::string_view separators, std::string& out,
                 Append append) {
    while (true) {
        const auto end = text.find_first_of(separators);
        append(text.substr(0, end));
        if (end == std::string_view::npos) return;
        out += text[end];
        text.remove_prefix(end + 1);
    }
}

void appendPath(std::string_view path, std::string& out) {
    std::string_view before;
    appendParts(path, "/", out, [&](std::string_view piece) {
        if (isPublicID(before, piece)) {
            out.append(piece);
        } else {
            appendParts(piece, ";", out, [&](std::string_view item) { appendItem(item, out); });
        }
        before = piece;
    });
}

/// `address` begins with its authority.
void appendAddress(std::string_view address, bool hasScheme, std::string& out) {
    // 1. User information. Without a scheme only a password distinguishes it from a mail address.
    // The host stays, because it is visible on the network anyway.
    std::string_view authority = address.substr(0, address.find_first_of("/?#\\"));
    address.remove_prefix(authority.size());
    const auto at = authority.rfind('@');
    const bool user = at != std::string_view::npos && at > 0 &&
                      (hasScheme || authority.substr(0, at).find(':') != std::string_view::npos);
    if (user) {
        out.append(kMask);
        authority.remove_prefix(at);
    }
    out.append(authority);
    // 2. The path, 3. query and fragment. ";" also ends the "&amp;" of a quoted address.
    const auto pathEnd = std::min(address.find_first_of("?#"), address.size());
    appendPath(address.substr(0, pathEnd), out);
    if (pathEnd == address.size()) return;
    appendParts(address.substr(pathEnd), "?#&;", out,
                [&](std::string_view item) { appendItem(item, out); });
}

/// The start of the scheme whose "://" stands at `schemeEnd`.
std::size_t schemeStart(std::string_view word, std::size_t schemeEnd) {
    while (schemeEnd > 0 && isASCIIAlphanumeric(word[schemeEnd - 1])) --schemeEnd;
    return schemeEnd;
}

/// Appends one word, which may contain several addresses in a row.
void appendWord(std::string_view word, std::string& out) {
    // Closing punctuation belongs to the sentence.
    const auto end = word.find_last_not_of(".,:!)]}'") + 1;
    const std::string_view closing = word.substr(end);
    word = word.substr(0, end);

    auto scheme = word.find(kSchemeEnd);
    const auto start = scheme == std::string_view::npos ? word.size() : schemeStart(word, scheme);
    appendAddress(word.substr(0, start), false, out);
    while (scheme != std::string_view::npos) {
        const auto from = scheme + kSchemeEnd.size();
        const auto next = word.find(kSchemeEnd, from);
        const auto until =
            next == std::string_view::npos ? word.size() : std::max(from, schemeStart(word, next));
        out.append(word.substr(schemeStart(word, scheme), from - schemeStart(word, scheme)));
        appendAddress(word.substr(from, until - from), true, out);
        scheme = next;
    }
    out.append(closing);
}

}  // namespace

std::string maskedSecrets(std::string_view text) {
    constexpr std::string_view wordEnds = " \t\r\n\v\f\"<>`";
    std::string masked;
    masked.reserve(text.size());
    appendParts(text, wordEnds, masked, [&](std::string_view word) {
        if (word.find_first_of("/?") == std::string_view::npos) {
            masked.append(word);
        } else {
            appendWord(word, masked);
        }
    });
    return masked;
}

std::string maskedLogins(std::string_view text) {
    constexpr std::string_view authorityEnds = "/?#\\ \t\r\n\v\f\"<>`";
    std::string masked;
    masked.reserve(text.size());
    for (auto scheme = text.find(kSchemeEnd); scheme != std::string_view::npos;
         scheme = text.find(kSchemeEnd)) {
        masked.append(text.substr(0, scheme + kSchemeEnd.size()));
        text.remove_prefix(scheme + kSchemeEnd.size());
        const auto at = text.substr(0, text.find_first_of(authorityEnds)).rfind('@');
        if (at == std::string_view::npos || at == 0) continue;
        masked.append(kMask);
        text.remove_prefix(at);
    }
    return masked.append(text);
}

bool carriesSecret(std::string_view url) { return maskedSecrets(url) != url; }

}  // namespace kit
