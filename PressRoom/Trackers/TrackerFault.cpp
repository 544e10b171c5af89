#include "PressRoom/Trackers/TrackerFault.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

#include <fmt/format.h>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/Server/Conditional.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using Kind = MisbehaviourKind;

constexpr std::array kOnlyOfFeeds{Kind::rotating,    Kind::retitled, Kind::samelink,
                                  Kind::republished, Kind::future,   Kind::undeclared,
                                  Kind::threshold};

// Above what any reader of trackers should accept.
constexpr std::size_t kHugeSize = 7 * 1024 * 1024;

Response served(const Request& request, std::string body, bool isScript) {
    return answerConditionally(
        request, {.body = std::move(body),
                  .contentType = isScript ? "application/javascript" : "application/json"});
}

/// Keeps only the first `keep` entries.
void shorten(json::value& list, std::size_t keep) {
    if (list.is_array()) {
        list.get_array().resize(keep);
        return;
    }
    auto& platforms = list.get_object();
    while (platforms.size() > keep) platforms.erase(std::prev(platforms.end()));
}

std::size_t length(const json::value& list) {
    return list.is_array() ? list.get_array().size() : list.get_object().size();
}

/// The first object that has `key`, at any depth; nullptr when there is none.
json::object* holder(json::value& value, std::string_view key) {
    if (auto* object = value.if_object()) {
        if (object->contains(key)) return object;
        for (auto& member : *object) {
            if (auto* found = holder(member.value(), key)) return found;
        }
    }
    if (auto* array = value.if_array()) {
        for (auto& item : *array) {
            if (auto* found = holder(item, key)) return found;
        }
    }
    return nullptr;
}

/// The document with one key's entry changed: in its list where that has the key, as other members
/// may stand before it and nobody may read them.
template <class Change>
TrackerAnswer changed(TrackerAnswer answer, std::string_view key, Change change) {
    json::value value(std::move(answer.document));
    auto* list = value.get_object().if_contains(answer.list);
    auto* object = list ? holder(*list, key) : nullptr;
    if (!object) object = holder(value, key);
    if (object) change(*object);
    answer.document = std::move(value.get_object());
    return answer;
}

TrackerAnswer shortened(TrackerAnswer answer, bool keepsHalf) {
    const auto key = answer.list;
    return changed(std::move(answer), key, [&](json::object& entry) {
        auto& list = entry.at(key);
        shorten(list, keepsHalf ? length(list) / 2 : 0);
    });
}

Response refusal(int status, std::int64_t retryAfter) {
    auto response = htmlPage(status, "Trackers", "<p>Please come back later.</p>");
    response.headers.emplace_back("Retry-After", std::to_string(retryAfter));
    return response;
}

bool trackersCanBe(MisbehaviourKind kind) {
    return std::ranges::find(kOnlyOfFeeds, kind) == kOnlyOfFeeds.end();
}

Response trackerResponse(const Request& request, const TrackerAnswer& answer) {
    return served(request, answer.text(), answer.isWrapped);
}

/// The answer of a misbehaving tracker.
Response faultyAnswer(const Request& request, TrackerAnswer answer, Misbehaviour misbehaviour) {
    const auto dateKey = answer.dateKey, requiredKey = answer.requiredKey;
    switch (misbehaviour.kind) {
        case Kind::silent: return {.delivery = {.neverAnswers = true}};
        case Kind::busy: return refusal(429, misbehaviour.amount);
        case Kind::unavailable: return refusal(503, misbehaviour.amount);
        case Kind::page: return htmlPage(200, "Trackers", "<p>Sign in to go on.</p>");
        case Kind::missing: return htmlPage(404, "Not found", "<p>This tracker has gone.</p>");
        case Kind::empty: return trackerResponse(request, shortened(std::move(answer), false));
        case Kind::partial: return trackerResponse(request, shortened(std::move(answer), true));
        case Kind::incomplete:
            return trackerResponse(request,
                                   changed(std::move(answer), requiredKey,
                                           [&](json::object& entry) { entry.erase(requiredKey); }));
        case Kind::undated:
            return trackerResponse(
                request, changed(std::move(answer), dateKey,
                                 [&](json::object& entry) { entry[dateKey] = "last Tuesday"; }));
        case Kind::huge:
            return served(request, answer.text().append(kHugeSize, ' '), answer.isWrapped);
        case Kind::broken: {
            const auto text = answer.text();
            return served(request, text.substr(0, text.size() / 2), answer.isWrapped);
        }
        case Kind::slow: {
            auto response = trackerResponse(request, answer);
            response.delivery.delay = std::chrono::milliseconds(misbehaviour.amount);
            return response;
        }
        case Kind::rotating:
        case Kind::retitled:
        case Kind::samelink:
        case Kind::republished:
        case Kind::future:
        case Kind::undeclared:
        case Kind::threshold: break;
    }
    return trackerResponse(request, answer);
}

}  // namespace

std::string TrackerAnswer::text() const {
    auto text = json::serialize(document);
    return isWrapped ? "jsonCallback(" + text + ");" : text;
}

TrackerFaults::TrackerFaults(const std::vector<std::string_view>& names,
                             Misbehaviours& misbehaviours) {
    for (const auto name : names) {
        const auto found = misbehaviours.find(name);
        if (found == misbehaviours.end()) continue;
        if (!trackersCanBe(found->second.kind)) {
            throw std::runtime_error(fmt::format("the tracker {} can't misbehave as \"{}\"", name,
                                                 kit::rawValue(found->second.kind)));
        }
        misbehaviours_.insert(misbehaviours.extract(found));
    }
}

Response TrackerFaults::served(std::string_view name, const Request& request,
                               TrackerAnswer answer) const {
    const auto found = misbehaviours_.find(name);
    return found == misbehaviours_.end() ? trackerResponse(request, answer)
                                         : faultyAnswer(request, std::move(answer), found->second);
}

}  // namespace pressroom
