#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/ValidatorTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Trackers/Tracker.h"

namespace kit {
class HTTPClient;
template <class T>
struct FetchedFile;
}  // namespace kit

namespace app {

class LocalStore;

/// How an answer without any item is treated.
enum class EmptyAnswer {
    refused,
    refusedAfterItems,  ///< accepted until an answer had items
    accepted
};

/// Why a server can't be asked further: 401 or 429 in the status, and the pause that it wants.
struct ServerRefusal {
    int status = 0;  ///< 0: there is none
    std::chrono::seconds pause{0};
};

/// How a file is asked for by those who have its last answer.
template <class T>
struct ConditionalFetch {
    /// Of the last answer; none when a full answer is wanted.
    std::function<kit::Validators(LocalStore&)> validators{};
    std::function<boost::asio::awaitable<kit::FetchedFile<T>>(kit::HTTPClient&, kit::Validators)>
        fetch{};
    /// Records that the last answer still holds, within a transaction.
    std::function<void(LocalStore&, kit::Instant now)> recordUnchanged{};
};

/// One file that the desk tracks: where it comes from, how it is read and how far its answers are
/// trusted. TrackedFiles has the rows.
template <class T>
struct TrackedFile {
    Tracker tracker{};    ///< the one that fetches it
    std::string name;     ///< its key in the cache
    std::string title;    ///< its subject in sentences
    std::string address;  ///< its host is not asked while it wants a pause
    std::function<boost::asio::awaitable<kit::FetchedFile<T>>(kit::HTTPClient&)> fetch;
    T (*parse)(std::string_view body);  ///< for the cached copy
    /// Takes the place of `fetch` once there is a copy.
    std::optional<ConditionalFetch<T>> conditional{};

    EmptyAnswer emptyAnswer = EmptyAnswer::accepted;
    bool (*isEmpty)(const T&) = nullptr;  ///< needed unless empty answers are accepted
    /// The latest answer with what may have been left out of it by mistake (see
    /// RemovalConfirmation.h); nothing when it is complete. Null when each answer is final.
    std::optional<T> (*carryOverMissing)(const T& before, const T& latest) = nullptr;
    /// Whether an answer is the one that was asked for. Null when nothing else can come.
    std::function<bool(const T&)> isRequested{};

    std::string mismatchText{};   ///< the error for an answer that was not asked for
    std::string notFoundText{};   ///< the error for status 404, where its meaning is known
    std::string untrustedHint{};  ///< what helps when the server's certificate is not trusted

    /// It is not asked for again earlier, whoever wants it: services count requests by the day.
    std::chrono::minutes leastInterval{0};
    /// Its host is left alone for as long as any host is after it has forbidden a request (403): a
    /// firewall that is asked on locks readers out.
    bool pausesWhenForbidden = false;
    /// A digest of what the request identifies itself with. One that the host has refused (401) for
    /// any file is not offered again.
    std::string credential{};
    std::string refusedText{};  ///< the error then

    /// Records a good answer in the histories, within the transaction that caches it. `before`
    /// is the value that was shown until then.
    std::function<void(LocalStore&, const std::optional<T>& before, const T& value,
                       kit::Instant now)>
        record{};
    /// Fetches what a recorded answer refers to, as the forms that filings consist of. What it
    /// can't have now is left for the next time.
    std::function<boost::asio::awaitable<ServerRefusal>(LocalStore&, kit::HTTPClient&, kit::Clock)>
        complete{};
    /// The tracker's other files are fetched only once this one has a value.
    bool comesFirst = false;
};

}  // namespace app
