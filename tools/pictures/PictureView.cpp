#include "tools/pictures/PictureView.h"

#include <stdexcept>
#include <string>

#include <QEventLoop>
#include <QTimer>

namespace pictures {

using namespace app;
using namespace std::chrono_literals;

void runFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

void waitUntil(const char* what, const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error(std::string("waited in vain: ") + what);
        runFor(20ms);
    }
}

void chooseStory(WindowModel& model, NewsDesk& news) {
    for (const auto& cluster : *news.clusters()) {
        if (cluster.storyIDs.size() < 3) continue;
        model.openStory(QString::fromStdString(cluster.storyIDs[1]));
        return;
    }
    model.selectedStory()->step(1);
}

}  // namespace pictures
