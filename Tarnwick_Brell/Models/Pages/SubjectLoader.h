#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/SubjectReader.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// Reads the subjects of a long time for a page, and has the page's records made from them, on a
/// thread that all these pages share. A page that is left does not wait for it: what it makes is
/// dropped.
class SubjectLoader : public QObject {
    Q_OBJECT
public:
    /// Called on the thread, when the page may be gone: it must use nothing of it. Returns what
    /// shows the records, which is called on the main thread while the page is there.
    using Make = std::function<std::function<void()>(const Subjects&)>;

    SubjectLoader(const DeskStores& stores, Make make);
    ~SubjectLoader() override;

    /// Does nothing while one is under way.
    void load(std::chrono::days span);
    bool isLoading() const { return isLoading_; }
    /// Why the last one failed, as a sentence; empty when it did not.
    const QString& failure() const { return failure_; }

signals:
    void loaded();

private:
    DeskStores stores_;
    Make make_;
    bool isLoading_ = false;
    QString failure_;
    std::shared_ptr<MainThreadQueue> queue_;
    std::stop_source stop_;
};

}  // namespace app
