#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"

#include <utility>

namespace app {

FilterOptions::FilterOptions(QString name, QObject* parent)
    : QObject(parent), name_(std::move(name)) {}

void FilterOptions::offer(const std::vector<Choice>& choices) {
    const auto before = chosen();
    std::vector<ChoiceRow> rows;
    for (const auto& [key, label] : choices) {
        rows.push_back({.label = label, .isChosen = before.contains(key), .key = key});
    }
    rows_.setRows(std::move(rows));
    if (chosen() != before) emit changed();
}

void FilterOptions::choose(const std::set<std::string, std::less<>>& keys) {
    auto rows = rows_.rows();
    for (auto& row : rows) row.isChosen = keys.contains(row.key);
    rows_.setRows(std::move(rows));
    emit changed();
}

std::set<std::string, std::less<>> FilterOptions::chosen() const {
    std::set<std::string, std::less<>> keys;
    for (const auto& row : rows_.rows()) {
        if (row.isChosen) keys.insert(row.key);
    }
    return keys;
}

QString FilterOptions::summary() const {
    QString first;
    int more = -1;
    for (const auto& row : rows_.rows()) {
        if (!row.isChosen) continue;
        if (first.isEmpty()) first = row.label;
        ++more;
    }
    if (first.isEmpty()) return name_;
    return more > 0 ? tr("%1 and %n more", nullptr, more).arg(first) : first;
}

void FilterOptions::toggle(int row) {
    auto rows = rows_.rows();
    if (row < 0 || row >= std::ssize(rows)) return;
    auto& chosen = rows[static_cast<std::size_t>(row)].isChosen;
    chosen = !chosen;
    rows_.setRows(std::move(rows));
    emit changed();
}

void FilterOptions::clear() {
    if (!isActive()) return;
    auto rows = rows_.rows();
    for (auto& row : rows) row.isChosen = false;
    rows_.setRows(std::move(rows));
    emit changed();
}

}  // namespace app
