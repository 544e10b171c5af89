#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include <QString>
#include <QThreadPool>

#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

/// The thread on which pages read the library. Not Qt's own pool: Qt converts images there, and a
/// frame would wait for our work.
QThreadPool& libraryThread();

/// Reads something from the library for a page. The newest request wins: what was asked for before
/// it is dropped, and so is everything once this is gone.
template <class T>
class LibraryReading {
public:
    LibraryReading()
        : newest_(std::make_shared<std::atomic<std::uint64_t>>(0)),
          queue_(std::make_shared<MainThreadQueue>()) {}
    ~LibraryReading() {
        ++*newest_;
        queue_->close();
    }
    LibraryReading(const LibraryReading&) = delete;
    LibraryReading& operator=(const LibraryReading&) = delete;

    /// `read` runs on the thread and may throw; it must hold what it needs by value. `show` gets
    /// what it returns, `fail` the reason as a sentence, both on the main thread.
    void start(std::function<T()> read, std::function<void(T)> show,
               std::function<void(const QString&)> fail) {
        isLoading_ = true;
        const auto request = ++*newest_;
        libraryThread().start([this, request, read = std::move(read), show = std::move(show),
                               fail = std::move(fail), newest = newest_, queue = queue_] {
            if (*newest != request) return;
            auto found = std::make_shared<T>();
            QString failure;
            try {
                *found = read();
            } catch (const std::exception& error) {
                failure = titleText(error.what(), kExcerptCharacters);
            }
            queue->send([this, request, newest, found, failure, show, fail] {
                if (*newest != request) return;
                isLoading_ = false;
                if (failure.isEmpty()) {
                    show(std::move(*found));
                } else {
                    fail(failure);
                }
            });
        });
    }
    bool isLoading() const { return isLoading_; }

private:
    bool isLoading_ = false;
    std::shared_ptr<std::atomic<std::uint64_t>> newest_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
