#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <QAbstractListModel>
#include <QMetaProperty>

namespace app {

/// A list of records for a view. `Row` is a Q_GADGET with MEMBER properties and equality; its
/// properties are the roles, under their own names.
template <class Row>
class GadgetListModel final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<Row>& rows() const { return rows_; }
    const Row* row(int index) const {
        const auto place = static_cast<std::size_t>(index);
        return index >= 0 && place < rows_.size() ? &rows_[place] : nullptr;
    }

    /// Rows that stay where they are, at the beginning and at the end, keep their delegates.
    void setRows(std::vector<Row> rows) {
        const auto [mine, theirs] =
            std::mismatch(rows_.begin(), rows_.end(), rows.begin(), rows.end());
        const auto head = mine - rows_.begin();
        const auto [mineLast, theirsLast] =
            std::mismatch(rows_.rbegin(), std::make_reverse_iterator(mine), rows.rbegin(),
                          std::make_reverse_iterator(theirs));
        const auto tail = mineLast - rows_.rbegin();
        const auto leaving = static_cast<int>(std::ssize(rows_) - head - tail);
        const auto coming = static_cast<int>(std::ssize(rows) - head - tail);
        const auto first = static_cast<int>(head);
        const auto changed = std::min(leaving, coming);
        const auto from = rows.begin() + head;
        std::move(from, from + changed, rows_.begin() + head);
        if (changed > 0) emit dataChanged(index(first), index(first + changed - 1));
        if (leaving > coming) {
            beginRemoveRows({}, first + changed, first + leaving - 1);
            rows_.erase(rows_.begin() + first + changed, rows_.begin() + first + leaving);
            endRemoveRows();
        } else if (coming > leaving) {
            beginInsertRows({}, first + changed, first + coming - 1);
            rows_.insert(rows_.begin() + first + changed, std::make_move_iterator(from + changed),
                         std::make_move_iterator(from + coming));
            endInsertRows();
        }
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const auto* record = row(index.row());
        const auto property = Row::staticMetaObject.property(role - Qt::UserRole);
        return record && property.isValid() ? property.readOnGadget(record) : QVariant();
    }

    QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        const auto& meta = Row::staticMetaObject;
        for (int i = 0; i < meta.propertyCount(); ++i)
            names[Qt::UserRole + i] = meta.property(i).name();
        return names;
    }

private:
    std::vector<Row> rows_;
};

}  // namespace app
