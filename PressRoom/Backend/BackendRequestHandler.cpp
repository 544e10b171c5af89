#include "PressRoom/Backend/BackendRequestHandler.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <stdexcept>
#include <vector>

#include <fmt/format.h>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/Trackers/WorldTime.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

using Kind = MisbehaviourKind;
using std::chrono::sys_seconds;

constexpr std::array kBackendFaults{Kind::silent, Kind::page,   Kind::missing, Kind::busy,
                                    Kind::empty,  Kind::broken, Kind::huge,    Kind::rotating};
// More than any reader should unfold.
constexpr std::size_t kHugeNesting = 1'000'000;

std::string replaced(std::string text, std::string_view what, const std::string& with) {
    for (auto at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// Rises with every answer of this press room.
std::size_t answerNumber() {
    static std::atomic<std::size_t> number = 0;
    return ++number;
}

}  // namespace

BackendRequestHandler::BackendRequestHandler(WorldPublicFiles files, sys_seconds anchor,
                                             Misbehaviours& misbehaviours)
    : files_(std::move(files)), anchor_(anchor) {
    const auto found = misbehaviours.find("backend");
    if (found == misbehaviours.end()) return;
    misbehaviour_ = found->second;
    if (std::ranges::find(kBackendFaults, misbehaviour_->kind) == kBackendFaults.end()) {
        throw std::runtime_error(
            fmt::format("backend can't misbehave as \"{}\"", kit::rawValue(misbehaviour_->kind)));
    }
    misbehaviours.erase(found);
}

std::string BackendRequestHandler::document(const WorldPublicFile& file, sys_seconds now) const {
    const auto turn = answerNumber();
    const auto time = std::to_string(now.time_since_epoch().count() * 1'000 +
                                     static_cast<std::int64_t>(turn % 1'000));
    std::vector<std::string> entries;
    for (const auto& entry : file.entries) {
        if (entry.minutesAgo && worldTime(anchor_, *entry.minutesAgo) > now) continue;
        if (entry.goneMinutesAgo && worldTime(anchor_, *entry.goneMinutesAgo) <= now) continue;
        const auto copies = std::lround(entry.copies.value_or(1));
        for (long copy = 0; copy < copies; ++copy) {
            auto text = replaced(entry.text, "{copy}", std::to_string(copy));
            if (misbehaviour_ && misbehaviour_->kind == Kind::rotating)
                text = replaced(text, ".com/", ".com/" + time);
            entries.push_back(std::move(text));
        }
    }
    if (!entries.empty()) {
        const auto first = static_cast<std::ptrdiff_t>(turn % entries.size());
        std::ranges::rotate(entries, entries.begin() + first);
    }
    const auto body =
        fmt::format("{}{}{}", file.head, fmt::join(entries, file.separator), file.tail);
    return replaced(replaced(body, "{answer}", time), "{night}", isoDate(now, "Z").substr(0, 10));
}

std::optional<Response> BackendRequestHandler::answer(const Request& request,
                                                      sys_seconds now) const {
    const auto file = std::ranges::find_if(files_.files, [&](const WorldPublicFile& one) {
        return one.host == request.host && one.path == request.path();
    });
    if (file == files_.files.end()) return std::nullopt;
    auto body = document(*file, now);
    if (misbehaviour_) {
        switch (misbehaviour_->kind) {
            case Kind::silent: return Response{.delivery = {.neverAnswers = true}};
            case Kind::page: return htmlPage(200, "Down", "<p>Please come back later.</p>");
            case Kind::missing: return htmlPage(404, "Not found", "<p>It has gone.</p>");
            case Kind::busy: {
                auto response = htmlPage(429, "Busy", "<p>Please come back later.</p>");
                response.headers.emplace_back("Retry-After", std::to_string(misbehaviour_->amount));
                return response;
            }
            case Kind::empty: body.clear(); break;
            case Kind::broken: body.resize(file->head.size() / 2); break;
            case Kind::huge: body = std::string(kHugeNesting, '['); break;
            default: break;
        }
    }
    return answerConditionally(request, {.body = std::move(body), .contentType = file->type});
}

}  // namespace pressroom
