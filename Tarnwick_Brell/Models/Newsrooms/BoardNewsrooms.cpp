#include "Tarnwick_Brell/Models/Newsrooms/BoardNewsrooms.h"

#include <algorithm>

#include <QString>
#include <QStringList>

#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

constexpr std::string_view kMemory = "board";
constexpr const char* kLeftOut = "leftOut";
constexpr QChar kBetweenIDs = u'\n';

QStringList leftOut(const Defaults& defaults) {
    const auto memory = defaults.memory(kMemory).value_or(Defaults::Memory());
    const auto found = memory.find(kLeftOut);
    if (found == memory.end()) return {};
    return QString::fromStdString(found->second).split(kBetweenIDs, Qt::SkipEmptyParts);
}

}  // namespace

std::vector<std::string> boardNewsrooms(const NewsroomStore& newsrooms, const Defaults& defaults) {
    const auto without = leftOut(defaults);
    std::vector<std::string> ids;
    for (const auto& entry : newsrooms.newsrooms().entries()) {
        if (entry.value && !without.contains(QString::fromStdString(entry.id)))
            ids.push_back(entry.id);
    }
    return ids;
}

bool isOnBoard(const Defaults& defaults, const std::string& id) {
    return !leftOut(defaults).contains(QString::fromStdString(id));
}

void setOnBoard(Defaults& defaults, const std::string& id, bool on) {
    auto without = leftOut(defaults);
    without.removeAll(QString::fromStdString(id));
    if (!on) without << QString::fromStdString(id);
    defaults.remember(kMemory, {{kLeftOut, without.join(kBetweenIDs).toStdString()}});
}

}  // namespace app
