#include "Tarnwick_Brell/Models/Pages/FindingStatesLoader.h"

#include <exception>
#include <optional>
#include <utility>

#include <QThreadPool>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// Not Qt's own pool: Qt converts images there, and a frame would wait for our work.
QThreadPool& findingThread() {
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    return pool;
}

FindingStates readFindingStates(const std::filesystem::path& library,
                                const StoredFinding& finding) {
    LocalStore store(library, Database::Access::readOnly);
    const auto stateOf = [&](const std::optional<std::int64_t>& number) {
        return number ? store.findings().state(*number).value_or("") : std::string();
    };
    return {stateOf(finding.before), stateOf(finding.after)};
}

}  // namespace

FindingStatesLoader::FindingStatesLoader(std::filesystem::path library)
    : library_(std::move(library)),
      newest_(std::make_shared<std::atomic<std::uint64_t>>(0)),
      queue_(std::make_shared<MainThreadQueue>()) {}

FindingStatesLoader::~FindingStatesLoader() {
    ++*newest_;
    queue_->close();
}

void FindingStatesLoader::load(const StoredFinding& finding) {
    const auto request = ++*newest_;
    const auto read = [this, request, finding, newest = newest_, queue = queue_,
                       library = library_] {
        if (*newest != request) return;
        FindingStates states;
        QString failure;
        try {
            states = readFindingStates(library, finding);
        } catch (const std::exception& error) {
            failure = titleText(error.what(), kExcerptCharacters);
        }
        queue->send(
            [this, request, newest, number = finding.number, states = std::move(states), failure] {
                if (*newest != request) return;
                if (failure.isEmpty()) {
                    emit loaded(number, states);
                } else {
                    emit failed(failure);
                }
            });
    };
    findingThread().start(read);
}

}  // namespace app
