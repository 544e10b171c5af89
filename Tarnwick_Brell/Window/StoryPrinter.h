#pragma once

#include <memory>

#include <QObject>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include "Tarnwick_Brell/Models/Stories/StoryDocument.h"
#include "Tarnwick_Brell/Window/DeskWindows.h"

namespace app {

/// Prints the story in the reader, after the desktop's questions. Needs a QApplication.
class StoryPrinter : public QObject {
    Q_OBJECT
public:
    /// The windows must outlive it.
    explicit StoryPrinter(DeskWindows& windows);

private:
    void ask();
    void print();

    DeskWindows& windows_;
    QPointer<WindowModel> model_;  ///< of the window that asked
    StoryDocument document_;
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPrintDialog> dialog_;
};

}  // namespace app
