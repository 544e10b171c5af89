#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <boost/json.hpp>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/CanonicalLink.h"

/// Pure functions of the core on data from standard input, one JSON object a line.
namespace cli::inspect {

using kit::DateStyle;
namespace json = boost::json;

/// Throws kit::RecordError or WorkFailed; the sentence becomes the line's "error".
using Answer = json::object (*)(const json::object& input);

struct Kind {
    std::string_view name;
    std::string_view takes;  ///< keys of the input, for --help
    Answer answer;
};

std::span<const Kind> kinds();

/// The value of a required key. Throws kit::RecordError naming it.
template <class T>
T required(const json::object& input, std::string_view key) {
    const auto* value = input.if_contains(key);
    if (!value) throw kit::RecordError(std::string(key), "the key is missing");
    try {
        return kit::decode<T>(*value);
    } catch (const kit::RecordError& error) {
        throw error.inside(std::string(key));
    }
}

/// The value of an optional key; null counts as absent.
template <class T>
std::optional<T> optional(const json::object& input, std::string_view key) {
    const auto* value = input.if_contains(key);
    if (!value || value->is_null()) return std::nullopt;
    return required<T>(input, key);
}

/// The document of a line: its "text", or the file at its "path".
std::string document(const json::object& input);

// Text and rules
json::object fold(const json::object& input);
json::object phrase(const json::object& input);
json::object label(const json::object& input);

// Addresses and identity
json::object link(const json::object& input);
json::object storyID(const json::object& input);
json::object publisher(const json::object& input);
json::object address(const json::object& input);
json::object catalogue(const json::object& input);

// Feeds and stories
json::object date(const json::object& input);
json::object feed(const json::object& input);
json::object excerpt(const json::object& input);
json::object stories(const json::object& input);
json::object story(const json::object& input);

// Queries
json::object query(const json::object& input);

// Newsrooms
json::object grid(const json::object& input);
json::object newsroomSpec(const json::object& input);
json::object newsroomMake(const json::object& input);

// Trackers
json::object status(const json::object& input);
json::object problems(const json::object& input);
json::object releases(const json::object& input);
json::object events(const json::object& input);
json::object quote(const json::object& input);

// Signing, updates, charts
json::object signing(const json::object& input);
json::object updates(const json::object& input);
json::object chart(const json::object& input);

// Who had the news, and what became of it
json::object attribution(const json::object& input);
json::object clusters(const json::object& input);
json::object ledger(const json::object& input);
json::object timeline(const json::object& input);

// Courts and press releases
json::object docket(const json::object& input);
json::object press(const json::object& input);

// Watched pages and files
json::object page(const json::object& input);
json::object pageDiff(const json::object& input);
json::object backend(const json::object& input);

// Alerts and prices
json::object alert(const json::object& input);
json::object price(const json::object& input);
json::object moves(const json::object& input);

// Filings and insiders
json::object filings(const json::object& input);
json::object ownership(const json::object& input);
json::object notice(const json::object& input);

// The story archive
json::object archiveURL(const json::object& input);

}  // namespace cli::inspect
