#include "Tarnwick_Brell/Models/Pages/LogLoader.h"

#include <utility>

namespace app {

LogLoader::LogLoader(std::filesystem::path library) : library_(std::move(library)) {}

void LogLoader::load(const SignalSelection& selection, std::size_t most) {
    reading_.start(
        [library = library_, selection, most] { return readLog(library, selection, most); },
        [this, selection](const LogPage& page) { emit loaded(page, selection); },
        [this](const QString& sentence) { emit failed(sentence); });
}

}  // namespace app
