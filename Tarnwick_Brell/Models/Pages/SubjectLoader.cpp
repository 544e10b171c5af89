#include "Tarnwick_Brell/Models/Pages/SubjectLoader.h"

#include <exception>
#include <utility>

#include <QThread>
#include <QThreadPool>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// Not Qt's own pool: Qt converts images there, and a frame would wait for our work.
QThreadPool& subjectThread() {
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    pool.setThreadPriority(QThread::LowPriority);
    return pool;
}

}  // namespace

SubjectLoader::SubjectLoader(const DeskStores& stores, Make make)
    : stores_(stores), make_(std::move(make)), queue_(std::make_shared<MainThreadQueue>()) {}

SubjectLoader::~SubjectLoader() {
    stop_.request_stop();
    queue_->close();
}

void SubjectLoader::load(std::chrono::days span) {
    if (isLoading_) return;
    isLoading_ = true;
    const auto read = [this, span, stop = stop_.get_token(), queue = queue_, make = make_,
                       library = stores_.library, now = stores_.clock()] {
        std::function<void()> show;
        QString failure;
        try {
            LocalStore store(library, Database::Access::readOnly);
            const Subjects subjects(store, {.from = now - span, .now = now}, stop);
            if (stop.stop_requested()) return;
            show = make(subjects);
        } catch (const std::exception& error) {
            failure = titleText(error.what(), kExcerptCharacters);
        }
        queue->send([this, show = std::move(show), failure] {
            isLoading_ = false;
            failure_ = failure;
            if (show) show();
            emit loaded();
        });
    };
    subjectThread().start(read);
}

}  // namespace app
