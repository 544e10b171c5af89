#include "Tarnwick_Brell/Models/Pages/LogLoader.h"

#include <exception>
#include <utility>

#include <QThreadPool>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

/// Not Qt's own pool: Qt converts images there, and a frame would wait for our work.
QThreadPool& logThread() {
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    return pool;
}

}  // namespace

LogLoader::LogLoader(std::filesystem::path library)
    : library_(std::move(library)),
      newest_(std::make_shared<std::atomic<std::uint64_t>>(0)),
      queue_(std::make_shared<MainThreadQueue>()) {}

LogLoader::~LogLoader() {
    ++*newest_;
    queue_->close();
}

void LogLoader::load(const SignalSelection& selection, std::size_t most) {
    isLoading_ = true;
    const auto request = ++*newest_;
    const auto read = [this, request, selection, most, newest = newest_, queue = queue_,
                       library = library_] {
        if (*newest != request) return;
        LogPage page;
        QString failure;
        try {
            page = readLog(library, selection, most);
        } catch (const std::exception& error) {
            failure = titleText(error.what(), kExcerptCharacters);
        }
        queue->send([this, request, newest, selection, page = std::move(page), failure] {
            if (*newest != request) return;
            isLoading_ = false;
            if (failure.isEmpty()) {
                emit loaded(page, selection);
            } else {
                emit failed(failure);
            }
        });
    };
    logThread().start(read);
}

}  // namespace app
