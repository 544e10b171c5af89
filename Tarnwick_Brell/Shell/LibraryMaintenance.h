#pragma once

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <stop_token>
#include <thread>

#include <QObject>
#include <QString>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// Maintains the library of a long-lived desk on a thread of its own: checks it at the start when a
/// check is due, and makes the daily backup.
class LibraryMaintenance : public QObject {
    Q_OBJECT
public:
    LibraryMaintenance(std::filesystem::path library, kit::Clock clock);

    void start(bool lastDeskDied);

signals:
    /// Sentences for the user: the library can't be checked or backed up, or it is damaged.
    void failed(const QString& sentence);
    void libraryDamaged(const QString& sentence);

private:
    void run(const std::stop_token& stop, bool lastDeskDied);
    void maintain(const std::stop_token& stop, bool lastDeskDied);

    std::filesystem::path library_;
    kit::Clock clock_;
    std::mutex mutex_;
    std::condition_variable_any pause_;
    std::jthread thread_;  ///< last, so that it ends before the other members are destroyed
};

}  // namespace app
