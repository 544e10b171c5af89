#pragma once

#include <functional>

#include <QObject>
#include <QString>
#include <QUndoStack>
#include <qqmlregistration.h>

namespace app {

/// Everything that the user did in this window and can undo, in one order, whatever it changed:
/// newsrooms, sources, beats, marks. Steps name themselves: "Remove panel Latest".
class UndoStack : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY changed)
    Q_PROPERTY(QString undoText READ undoText NOTIFY changed)
    Q_PROPERTY(QString redoText READ redoText NOTIFY changed)

public:
    /// A change that can go both ways. The functions run on the main thread and must hold what
    /// they need by value: the page or sheet that made the step may be gone.
    struct Step {
        QString text{};  ///< translated, without "Undo": "Remove panel Latest"
        std::function<void()> undo{};
        std::function<void()> redo{};
        /// What has been done, as a sentence for the user, shown with a button that undoes it;
        /// without one nothing is shown.
        QString notice{};
    };

    static constexpr int kMostSteps = 200;

    explicit UndoStack(QObject* parent = nullptr);

    /// Records a change that has just been made. Drops the steps that were undone before it.
    void push(Step step);

    /// False when there is no step.
    Q_INVOKABLE bool undo();
    Q_INVOKABLE bool redo();

    bool canUndo() const { return stack_.canUndo(); }
    bool canRedo() const { return stack_.canRedo(); }
    /// The step that would be undone or done again; empty when there is none.
    QString undoText() const { return stack_.undoText(); }
    QString redoText() const { return stack_.redoText(); }

signals:
    void changed();
    /// A step with a notice was pushed.
    void noticed(const QString& notice);
    /// A step was undone, or done again: its text, for a sentence to the user.
    void undone(const QString& text);
    void redone(const QString& text);

private:
    QUndoStack stack_;
};

}  // namespace app
