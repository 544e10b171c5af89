#pragma once

#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

struct ChoiceRow {
    Q_GADGET
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

public:
    QString label{};
    bool isChosen = false;
    std::string key{};

    bool operator==(const ChoiceRow&) const = default;
};

/// Some of several things, as a filter chip with a menu offers them. None chosen means any.
class FilterOptions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The wire has its filters.")
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(bool isActive READ isActive NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    explicit FilterOptions(QString name, QObject* parent = nullptr);

    struct Choice {
        std::string key{};
        QString label{};
    };
    /// What was chosen and is still offered stays chosen.
    void offer(const std::vector<Choice>& choices);
    /// Chooses these of what is offered and nothing else.
    void choose(const std::set<std::string, std::less<>>& keys);

    const QString& name() const { return name_; }
    /// "Kind", "Podcast", "Podcast and 2 more"
    QString summary() const;
    bool isActive() const { return !chosen().empty(); }
    std::set<std::string, std::less<>> chosen() const;
    QAbstractListModel* rows() { return &rows_; }

    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void clear();

signals:
    void changed();

private:
    QString name_;
    GadgetListModel<ChoiceRow> rows_;
};

}  // namespace app
