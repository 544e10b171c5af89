#include "NewsroomKit/Court/DocketParser.h"

#include <optional>
#include <string>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// CourtListener's own samples of what it posts have marks like "{{ version }}" where numbers
/// stand.
std::string withoutTemplateMarks(std::string_view text) {
    std::string plain(text);
    for (auto at = plain.find(":{{"); at != std::string::npos; at = plain.find(":{{", at + 1)) {
        const auto end = plain.find("}}", at);
        if (end == std::string::npos) break;
        plain.replace(at + 1, end + 2 - (at + 1), "null");
    }
    return plain;
}

std::optional<json::value> parsedJSON(std::string_view text) {
    try {
        return parseJSON(text);
    } catch (const RecordError&) {
        return std::nullopt;
    }
}

DocketResult parseAnswer(std::string_view text) {
    auto answer = parsedJSON(text);
    if (!answer) answer = parsedJSON(withoutTemplateMarks(text));
    if (!answer) return DocketError::malformed;
    if (!answer->is_object()) return DocketError::notADocket;
    auto sheet = courtListenerSheet(answer->get_object());
    if (!sheet) return DocketError::notADocket;
    return std::move(*sheet);
}

}  // namespace

DocketResult parseDocket(std::string_view bytes) {
    const auto start = trimWhitespaceAndNewlines(bytes.substr(0, 64));
    if (start.starts_with('{') || start.starts_with('[')) return parseAnswer(bytes);
    auto root = parseXMLTree(bytes);
    if (!root) return isMeantAsFeed(bytes) ? DocketError::malformed : DocketError::notADocket;
    if (root->name == "gov_uscourts_docket") return archivedSheet(*root);
    const auto feed = feedTree(std::move(*root));
    if (!feed) return DocketError::notADocket;
    return feed->isAtom ? courtListenerSheet(*feed) : courtFeedSheet(*feed);
}

}  // namespace kit
