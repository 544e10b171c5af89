#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/this_coro.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/HTTP/BodyFetch.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/KeptAnswers.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// Fetches files and keeps what came, when it is good: the answer itself for the next start,
/// what its log makes of it. What is not good leaves all that as it was.
///
/// What is missing from an answer is not believed to be gone before a second one says so (see
/// TrackedFile::mended); until then the value has it, from the answer before, and so has what
/// the log is told.
///
/// The object must outlive its coroutines. They throw StoreError.
class TrackedFetch {
public:
    template <class T>
    using Result = boost::asio::awaitable<TrackerReading<T>>;

    struct Request {
        std::string address;
        std::size_t byteLimit;
    };

    /// Called for a good answer, mended, in the transaction that keeps it, with what was shown
    /// before.
    template <class T>
    using Log =
        std::function<void(const std::optional<T>& before, const T& value, kit::Instant now)>;

    TrackedFetch(LocalStore& store, kit::HTTPClient& http, kit::Clock clock)
        : store_(store), http_(http), clock_(std::move(clock)), answers_(store) {}

    /// Ends with what there is to show; with an error when that is not from this answer.
    template <class T>
    Result<T> refresh(TrackedFile<T> file, Request request, Log<T> log);

private:
    template <class T>
    TrackerReading<T> keep(const TrackedFile<T>& file, const std::string& body, const Log<T>& log);
    template <class T>
    TrackerReading<T> failed(const TrackedFile<T>& file, const std::string& error);
    template <class T>
    TrackerReading<T> cancelled(const TrackedFile<T>& file, const std::string& error);

    template <class T>
    static std::string sentenceFor(const TrackedFile<T>& file, const kit::FetchError& error);

    void noteFailure(const std::string& name, std::string error);
    std::optional<std::string> pauseText(const std::string& address);
    void backOff(const std::string& address, std::chrono::seconds wanted);

    LocalStore& store_;
    kit::HTTPClient& http_;
    kit::Clock clock_;
    KeptAnswers answers_;
};

/// The server has no such file.
bool isAbsence(const kit::FetchError& error);
/// The server's certificate is not trusted.
bool isDistrust(const kit::FetchError& error);
/// The server is not to blame: the user has no network, or has ended the request.
bool isOurFault(const kit::FetchError& error);

template <class T>
TrackedFetch::Result<T> TrackedFetch::refresh(TrackedFile<T> file, Request request, Log<T> log) {
    co_await boost::asio::this_coro::throw_if_cancelled(false);
    if (const auto pause = pauseText(request.address)) co_return cancelled(file, *pause);

    const auto fetched = co_await kit::fetchBody(http_, request.address, request.byteLimit);
    if (fetched.body) co_return keep(file, fetched.body.value(), log);
    if (fetched.record.retryAfter) backOff(request.address, *fetched.record.retryAfter);
    const auto& error = fetched.body.error();
    co_return isOurFault(error) ? cancelled(file, error.description())
                                : failed(file, sentenceFor(file, error));
}

template <class T>
TrackerReading<T> TrackedFetch::keep(const TrackedFile<T>& file, const std::string& body,
                                     const Log<T>& log) {
    std::optional<T> fresh;
    try {
        fresh = file.parse(body);
    } catch (const kit::RecordError& error) {
        return failed(file, "The answer does not read (" + std::string(error.what()) + ").");
    }
    if (file.isWanted && !file.isWanted(*fresh)) return failed(file, file.mismatch);
    const auto latest = answers_.copy(file.name, file.parse);
    if (file.emptiness != Emptiness::always && file.saysNothing(*fresh)) {
        const bool hadSomething = latest && !file.saysNothing(*latest);
        if (file.emptiness == Emptiness::never || hadSomething) {
            return failed(file, "The answer was an empty list.");
        }
    }
    const auto now = clock_();
    auto& copies = store_.trackerCopies();
    auto transaction = store_.transaction();
    const auto before = log ? answers_.read(file).value : std::nullopt;
    const auto nameBefore = KeptAnswers::nameBefore(file.name);
    if (latest && file.mended && file.mended(*latest, *fresh)) {
        copies.keep(nameBefore, copies.find(file.name).value());
    } else {
        copies.drop(nameBefore);
    }
    copies.keep(file.name, {body, now});
    copies.setHealth(file.name, {.lastAttempt = now, .lastSuccess = now});
    auto reading = answers_.read(file);
    if (log) log(before, reading.value.value(), now);
    transaction.commit();
    return reading;
}

template <class T>
std::string TrackedFetch::sentenceFor(const TrackedFile<T>& file, const kit::FetchError& error) {
    if (isAbsence(error) && !file.absence.empty()) return file.absence;
    if (isDistrust(error) && !file.distrust.empty()) {
        return error.description() + " " + file.distrust;
    }
    return error.description();
}

template <class T>
TrackerReading<T> TrackedFetch::failed(const TrackedFile<T>& file, const std::string& error) {
    noteFailure(file.name, file.title + ": " + error);
    return answers_.read(file);
}

/// Nothing is held against the tracker.
template <class T>
TrackerReading<T> TrackedFetch::cancelled(const TrackedFile<T>& file, const std::string& error) {
    auto reading = answers_.read(file);
    reading.error = file.title + ": " + error;
    return reading;
}

}  // namespace app
