#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryWork.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

/// The repair or restoring of a library that no desk of this process has open, on a thread of its
/// own. A repair is tried on a copy first, and asks before it is made.
class LibraryWorkModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes it.")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool isRepair READ isRepair CONSTANT)
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
    Q_PROPERTY(double share READ share NOTIFY changed)
    Q_PROPERTY(bool asks READ asks NOTIFY changed)

public:
    /// `holder` is this program's name in the library's lock.
    LibraryWorkModel(LibraryWork work, std::filesystem::path library, kit::Clock clock,
                     std::string holder);
    ~LibraryWorkModel() override;

    QString title() const;
    bool isRepair() const { return work_.kind == LibraryWork::Kind::repair; }
    const QString& sentence() const { return sentence_; }
    /// Of the copying, from 0 to 1.
    double share() const { return share_; }
    /// It waits for `confirm`.
    bool asks() const { return asks_; }
    /// How it ended, as a sentence; either the work was done or the library is as it was.
    const QString& outcome() const { return outcome_; }

    void start();
    Q_INVOKABLE void confirm();
    Q_INVOKABLE void cancel();

signals:
    void changed();
    void finished();

private:
    /// Returns what happens on the main thread afterwards.
    using Job = std::function<std::function<void()>(const WorkWatch&)>;

    void preview();
    void work();
    void run(const QString& sentence, Job job);
    void finish(const QString& outcome);

    LibraryWork work_;
    std::filesystem::path library_;
    kit::Clock clock_;
    std::string holder_;
    QString sentence_;
    QString outcome_;
    double share_ = 0;
    bool asks_ = false;
    std::shared_ptr<MainThreadQueue> queue_;
    std::jthread thread_;
};

}  // namespace app
