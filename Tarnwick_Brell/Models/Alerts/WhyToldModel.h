#pragma once

#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// Why the user was told of something, and what can be done about the rule that told it.
class WhyToldModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Pages that show what was told have one.")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool hasRule READ hasRule NOTIFY changed)
    Q_PROPERTY(QString lessText READ lessText NOTIFY changed)

public:
    explicit WhyToldModel(const DeskStores& stores, QObject* parent = nullptr);

    /// The key of an event, as the history of alerts has it; empty for none.
    void setEvent(const std::string& event);

    /// "Told by “Chips”, today 15:26, for “m6”." Empty when nothing told it.
    const QString& text() const { return text_; }
    /// The rule is one that the user can change, and is on.
    bool hasRule() const { return rule_.has_value(); }
    /// What `lessOfThis` does; empty when it can do nothing.
    QString lessText() const;

    Q_INVOKABLE void editRule();
    /// Raises what the rule asks for at least.
    Q_INVOKABLE void lessOfThis();
    Q_INVOKABLE void turnOff();

signals:
    void changed();
    void sheetWanted(const QString& key);

private:
    void update();

    DeskStores stores_;
    std::string event_;
    QString text_;
    std::optional<kit::AlertRule> rule_;
};

}  // namespace app
