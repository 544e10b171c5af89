#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

/// The library's file and its backups. Reads, checks and copies them on a thread of its own, which
/// ends with this object.
class LibraryStatus : public QObject {
    Q_OBJECT
public:
    LibraryStatus(std::filesystem::path library, kit::Clock clock);
    ~LibraryStatus() override;

    const std::filesystem::path& library() const { return library_; }
    /// Nothing until it has been read.
    std::optional<std::uintmax_t> size() const { return files_.size; }
    std::optional<std::size_t> stories() const { return files_.stories; }
    std::optional<kit::Instant> lastCheck() const { return files_.lastCheck; }
    const std::vector<Backup>& backups() const { return files_.backups; }
    /// What is under way, as a sentence; empty for nothing.
    const QString& progress() const { return progress_; }
    /// How the last check or copy ended, as a sentence.
    const QString& outcome() const { return outcome_; }
    /// What a repair would keep, as a sentence; empty unless a check has found that it helps.
    const QString& repair() const { return files_.repair; }
    /// Of the copying that is under way, from 0 to 1.
    double share() const { return share_; }

    /// Both do nothing while one is under way.
    void check();
    void backUp();
    void cancel() { thread_.request_stop(); }

signals:
    void changed();

private:
    struct Files {
        std::optional<std::uintmax_t> size{};
        std::optional<std::size_t> stories{};
        std::optional<kit::Instant> lastCheck{};
        std::vector<Backup> backups{};
        QString repair{};
    };
    struct Result {
        QString outcome{};
        QString repair{};
    };
    using Work = std::function<Result(const WorkWatch&)>;

    static Files filesOf(const std::filesystem::path& library, kit::Instant now);
    void read();
    void run(const QString& progress, const QString& givenUp, Work work);
    static Result checked(const std::filesystem::path& library, kit::Instant now,
                          const WorkWatch& watch);

    std::filesystem::path library_;
    kit::Clock clock_;
    double share_ = 0;
    Files files_;
    QString progress_;
    QString outcome_;
    std::shared_ptr<MainThreadQueue> queue_;
    std::jthread thread_;
};

}  // namespace app
