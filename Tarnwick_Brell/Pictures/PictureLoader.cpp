#include "Tarnwick_Brell/Pictures/PictureLoader.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <stdexcept>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>

#include <QImageReader>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Pictures/PictureCache.h"
#include "Tarnwick_Brell/Pictures/PictureFetcher.h"

namespace app {

namespace asio = boost::asio;

namespace {

constexpr int kMostFetches = 6;
/// The largest picture that is decoded, with eight bytes a pixel.
constexpr int kMostDecodedMegabytes = 128;

/// The addresses that had no picture lately, so that scrolling does not ask for them over and over.
class FailedAddresses {
public:
    using Clock = std::chrono::steady_clock;

    bool contains(const std::string& address) const {
        const auto failure = until_.find(address);
        return failure != until_.end() && Clock::now() < failure->second;
    }
    void add(const std::string& address) {
        if (until_.size() >= kMost) until_.clear();
        until_[address] = Clock::now() + kPause;
    }
    void clear() { until_.clear(); }

private:
    static constexpr std::size_t kMost = 1'000;
    static constexpr std::chrono::minutes kPause{10};

    std::unordered_map<std::string, Clock::time_point> until_;
};

}  // namespace

/// All but `io` belongs to the thread.
struct PictureLoader::Impl {
    struct Wish {
        Ticket ticket = 0;
        std::string address{};
        PictureShape shape{};
        Done done{};
    };
    using Wishes = std::vector<Wish>;
    struct Fetch {
        Wishes wishes{};  ///< may all have been cancelled
        bool isUnderWay = false;
    };

    explicit Impl(Options given) : options(std::move(given)), guard(asio::make_work_guard(io)) {}

    void setOn(bool on);
    void add(Wish wish);
    void cancel(Ticket ticket);
    void close();

    void stepSoon();
    void step();
    bool showCached(const Wish& wish);
    void join(Wish wish);
    void startFetches();
    void start(const std::string& address);
    void finish(const std::string& address, const kit::FetchResult<std::string>& body);
    void show(const std::string& address, const std::string& bytes, const Wishes& wishes);
    void dropAll();

    Options options;
    asio::io_context io{1};
    asio::executor_work_guard<asio::io_context::executor_type> guard;
    std::optional<PictureCache> cache;
    std::optional<PictureFetcher> fetcher;
    bool isOn = false;
    bool isStepping = false;
    Wishes wishes;                         ///< the cache has not been searched yet; the newest last
    std::map<std::string, Fetch> fetches;  ///< by address
    std::vector<std::string> queue;        ///< of addresses that are not under way; the newest last
    int underWay = 0;
    FailedAddresses failed;
    std::thread thread;
};

void PictureLoader::Impl::setOn(bool on) {
    isOn = on;
    failed.clear();
    if (!on) dropAll();
}

/// Fetches under way stay in the table until they have ended.
void PictureLoader::Impl::dropAll() {
    if (fetcher) fetcher->cancelAll();
    queue.clear();
    auto dropped = std::exchange(wishes, {});
    for (auto& [address, fetch] : fetches)
        std::ranges::move(std::exchange(fetch.wishes, {}), std::back_inserter(dropped));
    std::erase_if(fetches, [](const auto& fetch) { return !fetch.second.isUnderWay; });
    for (const auto& wish : dropped) wish.done({});
}

void PictureLoader::Impl::add(Wish wish) {
    if (!isOn) return wish.done({});
    wishes.push_back(std::move(wish));
    stepSoon();
}

void PictureLoader::Impl::cancel(Ticket ticket) {
    const auto drop = [ticket](Wishes& among) {
        const auto wish = std::ranges::find(among, ticket, &Wish::ticket);
        if (wish == among.end()) return false;
        const auto done = std::move(wish->done);
        among.erase(wish);
        done({});
        return true;
    };
    if (drop(wishes)) return;
    for (auto fetch = fetches.begin(); fetch != fetches.end(); ++fetch) {
        if (!drop(fetch->second.wishes)) continue;
        // What is under way is fetched to its end: the reader may scroll back.
        if (fetch->second.wishes.empty() && !fetch->second.isUnderWay) {
            std::erase(queue, fetch->first);
            fetches.erase(fetch);
        }
        return;
    }
}

void PictureLoader::Impl::close() {
    setOn(false);
    guard.reset();
}

/// One wish a turn, so that what has come or has been cancelled meanwhile counts for the next.
void PictureLoader::Impl::stepSoon() {
    if (isStepping || wishes.empty()) return;
    isStepping = true;
    asio::post(io, [this] { step(); });
}

void PictureLoader::Impl::step() {
    isStepping = false;
    if (wishes.empty()) return;
    auto wish = std::move(wishes.back());
    wishes.pop_back();
    stepSoon();
    if (failed.contains(wish.address)) {
        wish.done({});
    } else if (!showCached(wish)) {
        join(std::move(wish));
    }
}

bool PictureLoader::Impl::showCached(const Wish& wish) {
    if (!cache) cache.emplace(options.folder, options.cacheLimit);
    const auto bytes = cache->find(wish.address);
    if (!bytes) return false;
    const auto picture = decodePicture(*bytes, wish.shape);
    if (picture.isNull()) {
        // A power cut may have left half of a file.
        cache->remove(wish.address);
        return false;
    }
    wish.done(picture);
    return true;
}

void PictureLoader::Impl::join(Wish wish) {
    const auto address = wish.address;
    const auto [fetch, isNew] = fetches.try_emplace(address);
    fetch->second.wishes.push_back(std::move(wish));
    if (!isNew) return;
    queue.push_back(address);
    startFetches();
}

void PictureLoader::Impl::startFetches() {
    while (underWay < kMostFetches && !queue.empty()) {
        const auto address = std::move(queue.back());
        queue.pop_back();
        start(address);
    }
}

void PictureLoader::Impl::start(const std::string& address) {
    fetches.at(address).isUnderWay = true;
    ++underWay;
    const auto done = [this, address](const kit::FetchResult<std::string>& body) {
        finish(address, body);
    };
    try {
        if (!fetcher) fetcher.emplace(io, options.network);
        fetcher->fetch(address, done);
    } catch (const std::runtime_error& error) {
        kit::log(kit::LogCategory::window, kit::LogLevel::error, "pictures: {}", error.what());
        done(kit::FetchError(kit::URLError::secureConnectionFailed));
    }
}

void PictureLoader::Impl::finish(const std::string& address,
                                 const kit::FetchResult<std::string>& body) {
    --underWay;
    auto ended = std::move(fetches.extract(address).mapped());
    if (body) {
        show(address, body.value(), ended.wishes);
    } else if (body.error() == kit::FetchError(kit::URLError::cancelled)) {
        // Switched off, and on again before the fetch had ended.
        for (auto& wish : ended.wishes) add(std::move(wish));
    } else {
        failed.add(address);
        for (const auto& wish : ended.wishes) wish.done({});
    }
    startFetches();
}

void PictureLoader::Impl::show(const std::string& address, const std::string& bytes,
                               const Wishes& wanted) {
    bool isGood = isDecodable(bytes);
    std::vector<QImage> pictures;
    for (const auto& wish : wanted) {
        pictures.push_back(isGood ? decodePicture(bytes, wish.shape) : QImage());
        isGood = isGood && !pictures.back().isNull();
    }
    if (isGood) {
        cache->store(address, bytes);
    } else {
        kit::log(kit::LogCategory::window, kit::LogLevel::info,
                 "{} is no picture that can be shown", address);
        failed.add(address);
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) wanted[i].done(pictures[i]);
}

PictureLoader::PictureLoader(Options options) : impl_(std::make_unique<Impl>(std::move(options))) {
    // Another value may stand in the environment.
    QImageReader::setAllocationLimit(kMostDecodedMegabytes);
    impl_->thread = std::thread([this] { impl_->io.run(); });
}

PictureLoader::~PictureLoader() {
    asio::post(impl_->io, [this] { impl_->close(); });
    impl_->thread.join();
}

void PictureLoader::setOn(bool on) {
    asio::post(impl_->io, [this, on] { impl_->setOn(on); });
}

PictureLoader::Ticket PictureLoader::load(std::string address, PictureShape shape, Done done) {
    const auto ticket = ++lastTicket_;
    Impl::Wish wish{
        .ticket = ticket, .address = std::move(address), .shape = shape, .done = std::move(done)};
    asio::post(impl_->io,
               [this, wish = std::move(wish)]() mutable { impl_->add(std::move(wish)); });
    return ticket;
}

void PictureLoader::cancel(Ticket ticket) {
    asio::post(impl_->io, [this, ticket] { impl_->cancel(ticket); });
}

void PictureLoader::forgetFailures() {
    asio::post(impl_->io, [this] { impl_->failed.clear(); });
}

}  // namespace app
