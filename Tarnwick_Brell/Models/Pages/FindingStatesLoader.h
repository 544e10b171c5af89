#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Storage/Histories/FindingHistory.h"

namespace app {

/// The file of a finding as it was sent before and with it; empty where it is no longer kept.
struct FindingStates {
    std::string before{};
    std::string after{};
};

/// Reads the states of a finding on a thread of its own. What was asked for before is dropped.
class FindingStatesLoader : public QObject {
    Q_OBJECT
public:
    explicit FindingStatesLoader(std::filesystem::path library);
    ~FindingStatesLoader() override;

    void load(const StoredFinding& finding);

signals:
    void loaded(std::int64_t number, const app::FindingStates& states);
    /// A sentence.
    void failed(const QString& sentence);

private:
    std::filesystem::path library_;
    std::shared_ptr<std::atomic<std::uint64_t>> newest_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
