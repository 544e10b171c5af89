#pragma once

#include <cstddef>
#include <filesystem>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Desk/LogReader.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"

namespace app {

/// Reads the log of signals for a page. The newest request wins: what was asked for before it is
/// dropped.
class LogLoader : public QObject {
    Q_OBJECT
public:
    explicit LogLoader(std::filesystem::path library);

    void load(const SignalSelection& selection, std::size_t most);
    bool isLoading() const { return reading_.isLoading(); }

signals:
    void loaded(const app::LogPage& page, const app::SignalSelection& selection);
    /// A sentence.
    void failed(const QString& sentence);

private:
    std::filesystem::path library_;
    LibraryReading<LogPage> reading_;
};

}  // namespace app
