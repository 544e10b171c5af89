#include <stdexcept>

#include <QCoreApplication>
#include <QKeySequence>

#include "Tarnwick_Brell/Models/Actions/ActionTable.h"

namespace app {
namespace {

QString words(const char* text) { return QCoreApplication::translate("Actions", text); }

QString capOf(QKeyCombination combination) {
    switch (combination.key()) {
        case Qt::Key_Up: return QStringLiteral("↑");
        case Qt::Key_Down: return QStringLiteral("↓");
        case Qt::Key_Return: return words("Enter");
        case Qt::Key_Space: return words("Space");
        case Qt::Key_Escape: return words("Esc");
        default: break;
    }
    const auto name = QKeySequence(combination.key()).toString(QKeySequence::NativeText);
    const bool isBare = combination.keyboardModifiers() == Qt::NoModifier;
    return isBare && name.size() == 1 ? name.toLower() : name;
}

}  // namespace

QString titleOf(ActionGroup group) {
    switch (group) {
        case ActionGroup::thisStory: return words(QT_TRANSLATE_NOOP("Actions", "This story"));
        case ActionGroup::thisPage: return words(QT_TRANSLATE_NOOP("Actions", "This page"));
        case ActionGroup::goTo: return words(QT_TRANSLATE_NOOP("Actions", "Go to"));
        case ActionGroup::work: return words(QT_TRANSLATE_NOOP("Actions", "Do"));
        case ActionGroup::view: return words(QT_TRANSLATE_NOOP("Actions", "View"));
    }
    throw std::logic_error("a group of actions without a title");
}

QString titleOf(const ActionEntry& entry, bool isDone) {
    return words(isDone && entry.otherTitle ? entry.otherTitle : entry.title);
}

bool worksInText(const ActionKey& key) {
    const auto sequence = QKeySequence::fromString(QString::fromLatin1(key.text));
    return sequence[0].keyboardModifiers().testFlag(Qt::ControlModifier);
}

QStringList keyCaps(const ActionKey& key) {
    QStringList caps;
    const auto sequence = QKeySequence::fromString(QString::fromLatin1(key.text));
    for (int i = 0; i < sequence.count(); ++i) {
        const auto combination = sequence[static_cast<uint>(i)];
        const auto modifiers = combination.keyboardModifiers();
        if (modifiers.testFlag(Qt::ControlModifier)) caps << words("Ctrl");
        if (modifiers.testFlag(Qt::AltModifier)) caps << words("Alt");
        if (modifiers.testFlag(Qt::ShiftModifier)) caps << words("Shift");
        caps << capOf(combination);
    }
    return caps;
}

}  // namespace app
