#include "NewsroomKit/Links/RedirectPage.h"

#include <algorithm>
#include <array>

#include <boost/json.hpp>

#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Links/RedirectLink.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

namespace json = boost::json;

constexpr std::string_view kProcedure = "Fbv4je";
constexpr std::size_t kMostArticles = 16;
constexpr std::size_t kLongestField = 2048;
constexpr std::size_t kLongestTimestamp = 12;

constexpr auto kDataNames =
    std::to_array<std::string_view>({"data-n-au", "data-url", "data-href", "data-article-url"});

bool isField(std::string_view text) {
    return !text.empty() && text.size() <= kLongestField &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return isASCIIAlphanumeric(c) || c == '-' || c == '_' || c == '=';
           });
}

bool isTimestamp(std::string_view text) {
    return !text.empty() && text.size() <= kLongestTimestamp &&
           std::all_of(text.begin(), text.end(), isASCIIDigit);
}

class RedirectPageReader {
public:
    RedirectPage read(std::string_view html) {
        html = html.substr(0, kRedirectPageBytes);
        for (auto open = html.find('<'); open != std::string_view::npos;) {
            const auto end = tagEnd(html, open);
            if (end != std::string_view::npos) readTag(html.substr(open + 1, end - open - 1));
            open = html.find('<', end == std::string_view::npos ? open + 1 : end);
        }
        return std::move(page_);
    }

private:
    void readTag(std::string_view tag) {
        if (standsAt(tag, 0, "form")) {
            const auto host = linkHost(attributeValue(tag, "action"));
            page_.asksForConsent |= host.starts_with("consent.");
        } else if (standsAt(tag, 0, "link") && attributeValue(tag, "rel") == "canonical") {
            addArticle(attributeValue(tag, "href"));
        }
        if (tag.find("data-") == std::string_view::npos) return;
        for (const auto name : kDataNames) addArticle(attributeValue(tag, name));
        RedirectSignature found{.identifier = attributeValue(tag, "data-n-a-id"),
                                .signature = attributeValue(tag, "data-n-a-sg"),
                                .timestamp = attributeValue(tag, "data-n-a-ts")};
        if (isField(found.identifier) && isField(found.signature) && isTimestamp(found.timestamp)) {
            page_.signature = std::move(found);
        }
    }

    void addArticle(std::string_view address) {
        if (address.empty() || page_.articles.size() >= kMostArticles) return;
        if (auto link = articleLinkOf(address)) page_.articles.push_back(std::move(*link));
    }

    RedirectPage page_;
};

std::string formEncoded(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        if (isASCIIAlphanumeric(c) || c == '-' || c == '_' || c == '.' || c == '*') {
            out += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        out += '%';
        out += digits[byte >> 4];
        out += digits[byte & 0xF];
    }
    return out;
}

const json::string* textAt(const json::value& value, std::size_t index) {
    const auto* list = value.if_array();
    return list && index < list->size() ? (*list)[index].if_string() : nullptr;
}

/// The address in the answer that the procedure packs as text into the batch's answer.
std::optional<std::string> articleInResult(std::string_view packed) {
    boost::system::error_code error;
    const auto result = json::parse(packed, error);
    if (error) return std::nullopt;
    const auto* kind = textAt(result, 0);
    const auto* address = textAt(result, 1);
    if (!kind || *kind != "garturlres" || !address) return std::nullopt;
    return articleLinkOf(*address);
}

}  // namespace

RedirectPage readRedirectPage(std::string_view html) { return RedirectPageReader().read(html); }

std::string batchRequestBody(const RedirectSignature& signature) {
    // The second value stands for the reader's language, region and settings.
    const json::array reader{"en-US", "US",    json::array{"FINANCE_TOP_INDICES", "WEB_TEST_1_0_0"},
                             nullptr, nullptr, 1,
                             1,       "US:en", nullptr,
                             0,       nullptr, nullptr,
                             nullptr, nullptr, nullptr,
                             0};
    const json::array call{"garturlreq", reader, signature.identifier,
                           std::stoll(signature.timestamp), signature.signature};
    const json::array row{kProcedure, json::serialize(call), nullptr, "generic"};
    // Braces around one array would copy it.
    json::array rows;
    rows.emplace_back(row);
    json::array batch;
    batch.emplace_back(std::move(rows));
    return "f.req=" + formEncoded(json::serialize(batch));
}

std::optional<std::string> articleInBatchAnswer(std::string_view answer) {
    // The answer begins with a line that no script may run.
    const auto begin = answer.find('[');
    if (begin == std::string_view::npos) return std::nullopt;
    boost::system::error_code error;
    json::stream_parser parser;  // more lines may follow
    parser.write_some(answer.data() + begin, answer.size() - begin, error);
    if (error || !parser.done()) return std::nullopt;
    const auto batch = parser.release();
    const auto* rows = batch.if_array();
    if (!rows) return std::nullopt;
    for (const auto& row : *rows) {
        const auto* procedure = textAt(row, 1);
        const auto* packed = textAt(row, 2);
        if (!procedure || *procedure != kProcedure || !packed) continue;
        if (auto link = articleInResult(*packed)) return link;
    }
    return std::nullopt;
}

}  // namespace kit
