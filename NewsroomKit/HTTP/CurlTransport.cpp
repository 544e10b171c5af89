#include "NewsroomKit/HTTP/CurlTransport.h"

#include <algorithm>
#include <csignal>
#include <memory>
#include <mutex>
#include <new>
#include <set>
#include <thread>
#include <unordered_map>
#include <utility>

#include <boost/asio/associated_cancellation_slot.hpp>
#include <boost/asio/associated_executor.hpp>
#include <boost/asio/async_result.hpp>
#include <boost/asio/cancellation_type.hpp>
#include <boost/asio/execution/outstanding_work.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/prefer.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/HTTP/CurlTransfer.h"

namespace kit {
namespace {

namespace asio = boost::asio;
using SteadyClock = CurlTransfer::Clock;
/// Identifies a request for the transport's lifetime; never reused.
using RequestNumber = std::uint64_t;

constexpr long keptConnections = 300;
constexpr std::size_t keptHandles = 64;
constexpr int longestPollMilliseconds = 10'000;

/// Delivers an answer on the waiting coroutine's executor, which counts as having work until then.
class Completion {
public:
    template <class Handler>
    explicit Completion(Handler handler)
        : held_(std::make_unique<Held<Handler>>(std::move(handler))) {}

    void complete(TransportAnswer answer) { held_->complete(std::move(answer)); }

private:
    struct Base {
        virtual ~Base() = default;
        virtual void complete(TransportAnswer answer) = 0;
    };

    template <class Handler>
    struct Held final : Base {
        explicit Held(Handler h) : executor(tracked(h)), handler(std::move(h)) {}

        void complete(TransportAnswer answer) override {
            asio::post(executor,
                       [waiting = std::move(handler), result = std::move(answer)]() mutable {
                           // Runs on the executor that emits cancellations, so none is missed or
                           // doubled.
                           if (auto slot = asio::get_associated_cancellation_slot(waiting);
                               slot.is_connected()) {
                               slot.clear();
                           }
                           waiting(std::move(result));
                       });
        }

        static auto tracked(const Handler& h) {
            return asio::prefer(asio::get_associated_executor(h),
                                asio::execution::outstanding_work.tracked);
        }

        // Counts as work until `post` has returned: the handler may run before that and may be the
        // context's last work. A work guard would release the work before the executor, which may
        // belong to a strand of the context.
        decltype(tracked(std::declval<const Handler&>())) executor;
        Handler handler;
    };

    std::unique_ptr<Base> held_;
};

struct Order {
    RequestNumber number;
    TransportRequest request;
    Completion completion;
};

TransportAnswer cancelledAnswer() { return {.failure = URLError::cancelled}; }

/// Requests from other threads to curl's thread. Shared with the cancellation slots of waiting
/// coroutines, which may outlive the transport.
class Inbox {
public:
    struct Batch {
        std::vector<Order> orders;
        std::vector<RequestNumber> cancellations;
        bool closed;
    };

    explicit Inbox(CURLM* multi) : multi_(multi) {}

    RequestNumber nextNumber() {
        const std::lock_guard lock(mutex_);
        return ++lastNumber_;
    }

    void submit(Order order) {
        const std::lock_guard lock(mutex_);
        if (closed_) {
            order.completion.complete(cancelledAnswer());
            return;
        }
        orders_.push_back(std::move(order));
        wake();
    }

    void cancel(RequestNumber number) {
        const std::lock_guard lock(mutex_);
        if (closed_) return;
        cancellations_.push_back(number);
        wake();
    }

    void close() {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        wake();
    }

    Batch drain() {
        const std::lock_guard lock(mutex_);
        awake_ = false;
        return {std::exchange(orders_, {}), std::exchange(cancellations_, {}), closed_};
    }

private:
    void wake() {
        if (!std::exchange(awake_, true)) curl_multi_wakeup(multi_);
    }

    std::mutex mutex_;
    CURLM* multi_;  ///< not touched once closed
    RequestNumber lastNumber_ = 0;
    std::vector<Order> orders_;
    std::vector<RequestNumber> cancellations_;
    bool closed_ = false;
    bool awake_ = false;  ///< the thread will check the inbox before it sleeps again
};

struct MultiDeleter {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

/// curl counts these; the last one frees curl's process-wide state.
struct CurlLibrary {
    CurlLibrary() {
        if (curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) throw std::bad_alloc();
    }
    ~CurlLibrary() { curl_global_cleanup(); }
    CurlLibrary(const CurlLibrary&) = delete;
    CurlLibrary& operator=(const CurlLibrary&) = delete;
};

CurlList connectList(const std::optional<std::string>& connectTo) {
    CurlList list;
    if (connectTo) append(list, "::" + *connectTo);
    return list;
}

/// curl's TLS may write to sockets that the peer has closed. With SIGPIPE blocked this is an
/// ordinary error. All other signals are handled by other threads.
void blockSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

}  // namespace

class CurlTransport::Loop {
public:
    explicit Loop(Options options)
        : rules_{.authorities = {options.caFile, options.extraAuthorities},
                 .connectTo = connectList(options.connectTo),
                 .isPrivate = options.isPrivate},
          multi_(curl_multi_init()),
          inbox_(std::make_shared<Inbox>(multi_.get())) {
        if (!multi_) throw std::bad_alloc();
        curl_multi_setopt(multi_.get(), CURLMOPT_MAXCONNECTS, keptConnections);
        thread_ = std::jthread([this] { run(); });
    }

    ~Loop() {
        inbox_->close();
        thread_.join();
    }

    const std::shared_ptr<Inbox>& inbox() const { return inbox_; }

private:
    struct Running {
        std::unique_ptr<CurlTransfer> transfer;
        Completion completion;
        SteadyClock::time_point wakeUpAt;  ///< its entry in `deadlines_`
    };

    void run() {
        blockSignals();
        for (;;) {
            auto batch = inbox_->drain();
            for (auto& order : batch.orders) start(std::move(order));
            for (const auto number : batch.cancellations) abandon(number, URLError::cancelled);
            if (batch.closed) break;
            int stillRunning = 0;
            curl_multi_perform(multi_.get(), &stillRunning);
            collectFinished();
            endOverdueOnes();
            curl_multi_poll(multi_.get(), nullptr, 0, pollMilliseconds(), nullptr);
        }
        while (!running_.empty()) abandon(running_.begin()->first, URLError::cancelled);
    }

    void start(Order order) {
        auto transfer =
            std::make_unique<CurlTransfer>(freshHandle(), std::move(order.request), rules_);
        curl_multi_add_handle(multi_.get(), transfer->handle());
        numbers_.emplace(transfer->handle(), order.number);
        const auto deadline = transfer->deadline();
        deadlines_.emplace(deadline, order.number);
        running_.emplace(order.number,
                         Running{std::move(transfer), std::move(order.completion), deadline});
    }

    CurlEasy freshHandle() {
        if (handles_.empty()) {
            CurlEasy fresh(curl_easy_init());
            if (!fresh) throw std::bad_alloc();
            return fresh;
        }
        CurlEasy kept = std::move(handles_.back());
        handles_.pop_back();
        return kept;
    }

    void collectFinished() {
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
            if (message->msg != CURLMSG_DONE) continue;
            const CURLcode code = message->data.result;  // gone once the handle is removed
            end(numbers_.at(message->easy_handle),
                [code](CurlTransfer& transfer) { return transfer.finish(code); });
        }
    }

    /// A request that is not running has finished already.
    void abandon(RequestNumber number, URLError reason) {
        if (!running_.contains(number)) return;
        end(number, [reason](CurlTransfer& transfer) { return transfer.finish(reason); });
    }

    template <class Finish>
    void end(RequestNumber number, Finish finish) {
        auto ended = running_.extract(number);
        auto& [transfer, completion, wakeUpAt] = ended.mapped();
        auto answer = finish(*transfer);
        numbers_.erase(transfer->handle());
        deadlines_.erase({wakeUpAt, number});
        curl_multi_remove_handle(multi_.get(), transfer->handle());
        if (handles_.size() < keptHandles) handles_.push_back(transfer->releaseHandle());
        completion.complete(std::move(answer));
    }

    /// A transfer's deadline may move with every byte; its entry is updated only when it comes due.
    void endOverdueOnes() {
        const auto now = SteadyClock::now();
        while (!deadlines_.empty() && deadlines_.begin()->first <= now) {
            const auto number = deadlines_.begin()->second;
            auto& running = running_.at(number);
            const auto deadline = running.transfer->deadline();
            if (deadline <= now) {
                abandon(number, URLError::timedOut);
            } else {
                deadlines_.erase(deadlines_.begin());
                deadlines_.emplace(deadline, number);
                running.wakeUpAt = deadline;
            }
        }
    }

    int pollMilliseconds() const {
        if (deadlines_.empty()) return longestPollMilliseconds;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadlines_.begin()->first -
                                                                       SteadyClock::now());
        return static_cast<int>(std::clamp<long long>(left.count(), 0, longestPollMilliseconds));
    }

    CurlLibrary library_;
    TransferRules rules_;
    std::unique_ptr<CURLM, MultiDeleter> multi_;
    std::vector<CurlEasy> handles_;
    std::unordered_map<RequestNumber, Running> running_;
    std::unordered_map<CURL*, RequestNumber> numbers_;
    std::set<std::pair<SteadyClock::time_point, RequestNumber>> deadlines_;
    std::shared_ptr<Inbox> inbox_;
    std::jthread thread_;
};

CurlTransport::CurlTransport(Options options) : loop_(std::make_unique<Loop>(std::move(options))) {}

CurlTransport::~CurlTransport() = default;

asio::awaitable<TransportAnswer> CurlTransport::perform(TransportRequest request) {
    const auto initiate = [](auto handler, std::shared_ptr<Inbox> inbox, TransportRequest wanted) {
        const auto number = inbox->nextNumber();
        if (auto slot = asio::get_associated_cancellation_slot(handler); slot.is_connected()) {
            slot.assign([inbox, number](asio::cancellation_type) { inbox->cancel(number); });
        }
        inbox->submit({number, std::move(wanted), Completion(std::move(handler))});
    };
    co_return co_await asio::async_initiate<decltype(asio::use_awaitable), void(TransportAnswer)>(
        initiate, asio::use_awaitable, loop_->inbox(), std::move(request));
}

}  // namespace kit
