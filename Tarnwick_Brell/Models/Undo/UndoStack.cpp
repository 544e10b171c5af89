#include "Tarnwick_Brell/Models/Undo/UndoStack.h"

#include <utility>

#include <QUndoCommand>

namespace app {

namespace {

class StepCommand final : public QUndoCommand {
public:
    explicit StepCommand(UndoStack::Step step) : QUndoCommand(step.text), step_(std::move(step)) {}

    void undo() override { step_.undo(); }
    /// A push calls this at once, but the change has been made already.
    void redo() override {
        if (std::exchange(isMade_, true)) step_.redo();
    }

private:
    UndoStack::Step step_;
    bool isMade_ = false;
};

}  // namespace

UndoStack::UndoStack(QObject* parent) : QObject(parent) {
    stack_.setUndoLimit(kMostSteps);
    connect(&stack_, &QUndoStack::indexChanged, this, &UndoStack::changed);
}

void UndoStack::push(Step step) {
    const auto notice = step.notice;
    stack_.push(new StepCommand(std::move(step)));
    if (!notice.isEmpty()) emit noticed(notice);
}

bool UndoStack::undo() {
    if (!canUndo()) return false;
    const auto text = undoText();
    stack_.undo();
    emit undone(text);
    return true;
}

bool UndoStack::redo() {
    if (!canRedo()) return false;
    const auto text = redoText();
    stack_.redo();
    emit redone(text);
    return true;
}

}  // namespace app
