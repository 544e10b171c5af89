#pragma once

#include <optional>
#include <string>

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Storage/Safety/LibraryWork.h"

/// How a setting is changed.
namespace app::SettingControl {

Q_NAMESPACE
QML_ELEMENT

/// A fact has no control: it is something that the section says.
enum Value { Switch, Choice, Days, Text, Button, Fact };
Q_ENUM_NS(Value)

}  // namespace app::SettingControl

namespace app {

struct SettingSectionRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)

public:
    QString title{};
    QString symbol{};

    bool operator==(const SettingSectionRow&) const = default;
};

struct SettingRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString meaning MEMBER meaning)
    Q_PROPERTY(QString section MEMBER section)
    Q_PROPERTY(app::SettingControl::Value control MEMBER control)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(bool isNumber MEMBER isNumber)
    Q_PROPERTY(bool isOn MEMBER isOn)
    Q_PROPERTY(QString action MEMBER action)
    Q_PROPERTY(QStringList choices MEMBER choices)
    Q_PROPERTY(int choice MEMBER choice)
    Q_PROPERTY(QList<bool> days MEMBER days)
    Q_PROPERTY(QList<qreal> band MEMBER band)
    Q_PROPERTY(bool isChanged MEMBER isChanged)
    Q_PROPERTY(QString standard MEMBER standard)
    Q_PROPERTY(QString problem MEMBER problem)

public:
    QString title{};
    QString meaning{};
    QString section{};  ///< named while searching only
    SettingControl::Value control = SettingControl::Text;
    QString value{};
    bool isNumber = false;  ///< of a text: a short one
    bool isOn = false;
    QString action{};  ///< of a button
    QStringList choices{};
    int choice = -1;
    QList<bool> days{};  ///< which of the weekdays in `choices` are chosen
    /// Quiet hours: their beginning, their end and this moment as parts of a day; empty when off.
    QList<qreal> band{};
    bool isChanged = false;             ///< not the default
    QString standard{};                 ///< "Default: 5"
    QString problem{};                  ///< why the last input was refused
    std::string key{};                  ///< of a setting
    std::string beatID{};               ///< of the beat whose alerts are switched
    std::string ruleID{};               ///< of the rule that is switched
    QString sheet{};                    ///< that the button opens
    std::optional<LibraryWork> work{};  ///< of a button

    bool operator==(const SettingRow&) const = default;
};

}  // namespace app
