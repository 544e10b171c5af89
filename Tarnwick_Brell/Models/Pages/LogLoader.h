#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Desk/LogReader.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"

namespace app {

/// Reads the log of signals for a page on a thread of its own. The newest request wins: what was
/// asked for before it is dropped.
class LogLoader : public QObject {
    Q_OBJECT
public:
    explicit LogLoader(std::filesystem::path library);
    ~LogLoader() override;

    void load(const SignalSelection& selection, std::size_t most);
    bool isLoading() const { return isLoading_; }

signals:
    void loaded(const app::LogPage& page, const app::SignalSelection& selection);
    /// A sentence.
    void failed(const QString& sentence);

private:
    std::filesystem::path library_;
    bool isLoading_ = false;
    std::shared_ptr<std::atomic<std::uint64_t>> newest_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
