#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/this_coro.hpp>

#include "NewsroomKit/HTTP/BodyFetch.h"
#include "NewsroomKit/Records/UnreadableAnswer.h"
#include "Tarnwick_Brell/Trackers/TrackerCache.h"

namespace app {

/// Fetches tracked files into the library: a good answer goes into the cache and the file's
/// histories, anything else leaves both as they were.
///
/// The object must outlive its coroutines. They throw StoreError.
class TrackerFetcher {
public:
    TrackerFetcher(LocalStore& store, kit::HTTPClient& http, kit::Clock clock)
        : store_(store), http_(http), clock_(std::move(clock)), cache_(store) {}

    /// The value to show, with an error when it does not come from this answer.
    template <class T>
    boost::asio::awaitable<kit::CachedValue<T>> fetch(TrackedFile<T> file);

    // For what is fetched beside tracked files, with the same care for hosts.
    LocalStore& store() { return store_; }
    kit::HTTPClient& http() { return http_; }
    kit::Instant now() const { return clock_(); }
    /// Why the host is not to be asked now.
    std::optional<std::string> pauseText(const std::string& address);
    void backOff(const std::string& address, std::chrono::seconds wanted);

private:
    template <class T>
    boost::asio::awaitable<kit::FetchedFile<T>> ask(const TrackedFile<T>& file);
    template <class T>
    kit::CachedValue<T> unchanged(const TrackedFile<T>& file);
    template <class T>
    kit::CachedValue<T> accept(const TrackedFile<T>& file, const kit::FetchedFile<T>& fetched);
    template <class T>
    bool isRefusedAsEmpty(const TrackedFile<T>& file, const T& value);
    template <class T>
    kit::CachedValue<T> failed(const TrackedFile<T>& file, const std::string& error);
    template <class T>
    kit::CachedValue<T> notAsked(const TrackedFile<T>& file, const std::string& sentence);

    void recordFailure(const std::string& name, std::string error);
    bool wasAskedWithin(const std::string& name, std::chrono::minutes interval);
    bool isRefused(const std::string& address, const std::string& credential);
    void setRefused(const std::string& address, const std::string& credential);

    LocalStore& store_;
    kit::HTTPClient& http_;
    kit::Clock clock_;
    TrackerCache cache_;
};

/// The user has no network, or has cancelled the request: no fault of the server's.
bool isOurFault(const kit::FetchError& error);

/// Whether the answer had this status.
bool hasStatus(const kit::FetchError& error, int status);

/// A sentence for the user. The texts take the place of the description, or follow it, where the
/// meaning of an error is known; they may be empty.
std::string failureText(const kit::FetchError& error, const std::string& notFoundText,
                        const std::string& untrustedHint);

template <class T>
boost::asio::awaitable<kit::CachedValue<T>> TrackerFetcher::fetch(TrackedFile<T> file) {
    co_await boost::asio::this_coro::throw_if_cancelled(false);
    if (const auto pause = pauseText(file.address))
        co_return notAsked(file, file.title + ": " + *pause);
    if (isRefused(file.address, file.credential)) co_return notAsked(file, file.refusedText);
    if (wasAskedWithin(file.name, file.leastInterval)) co_return cache_.read(file);
    std::optional<kit::FetchedFile<T>> fetched;
    try {
        fetched = co_await ask(file);
    } catch (const kit::RecordError& error) {
        co_return failed(file, kit::unreadableAnswer(error));
    }
    if (fetched->isUnchanged) co_return unchanged(file);
    if (fetched->value) {
        auto cached = accept(file, *fetched);
        if (file.complete && !cached.error) {
            const auto refusal = co_await file.complete(store_, http_, clock_);
            backOff(file.address, refusal.pause);
            if (refusal.status == 401) setRefused(file.address, file.credential);
        }
        co_return cached;
    }
    if (fetched->retryAfter) backOff(file.address, *fetched->retryAfter);
    const auto& error = fetched->value.error();
    if (isOurFault(error)) co_return notAsked(file, file.title + ": " + error.description());
    if (file.pausesWhenForbidden && hasStatus(error, 403))
        backOff(file.address, HostBackoff::kLongest);
    if (!file.credential.empty() && hasStatus(error, 401)) {
        // The next credential is not to wait for the least interval.
        setRefused(file.address, file.credential);
        co_return notAsked(file, file.refusedText);
    }
    co_return failed(file, failureText(error, file.notFoundText, file.untrustedHint));
}

template <class T>
boost::asio::awaitable<kit::FetchedFile<T>> TrackerFetcher::ask(const TrackedFile<T>& file) {
    const bool isKnown = file.conditional && cache_.latest(file);
    if (!isKnown) co_return co_await file.fetch(http_);
    co_return co_await file.conditional->fetch(http_, file.conditional->validators(store_));
}

template <class T>
kit::CachedValue<T> TrackerFetcher::unchanged(const TrackedFile<T>& file) {
    const auto now = clock_();
    auto transaction = store_.transaction();
    cache_.confirm(file, now);
    file.conditional->recordUnchanged(store_, now);
    transaction.commit();
    return cache_.read(file);
}

template <class T>
kit::CachedValue<T> TrackerFetcher::accept(const TrackedFile<T>& file,
                                           const kit::FetchedFile<T>& fetched) {
    const T& latest = fetched.value.value();
    if (file.isRequested && !file.isRequested(latest)) return failed(file, file.mismatchText);
    if (isRefusedAsEmpty(file, latest)) return failed(file, "The answer was an empty list.");
    const auto now = clock_();
    auto transaction = store_.transaction();
    const auto before = file.record ? cache_.read(file).value : std::nullopt;
    cache_.store(file, fetched.body, latest, now);
    auto cached = cache_.read(file);
    // The cached copy of an answer may say less than the answer.
    const T& shown = file.carryOverMissing ? *cached.value : latest;
    if (file.record) file.record(store_, before, shown, now);
    transaction.commit();
    return cached;
}

template <class T>
bool TrackerFetcher::isRefusedAsEmpty(const TrackedFile<T>& file, const T& value) {
    if (file.emptyAnswer == EmptyAnswer::accepted || !file.isEmpty(value)) return false;
    if (file.emptyAnswer == EmptyAnswer::refused) return true;
    const auto latest = cache_.latest(file);
    return latest && !file.isEmpty(*latest);
}

template <class T>
kit::CachedValue<T> TrackerFetcher::failed(const TrackedFile<T>& file, const std::string& error) {
    recordFailure(file.name, file.title + ": " + error);
    return cache_.read(file);
}

/// The failure is not counted against the tracker.
template <class T>
kit::CachedValue<T> TrackerFetcher::notAsked(const TrackedFile<T>& file,
                                             const std::string& sentence) {
    auto cached = cache_.read(file);
    cached.error = sentence;
    return cached;
}

}  // namespace app
