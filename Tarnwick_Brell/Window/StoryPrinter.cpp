#include "Tarnwick_Brell/Window/StoryPrinter.h"

#include <QPrinterInfo>
#include <QWindow>

namespace app {

StoryPrinter::StoryPrinter(DeskWindows& windows) : windows_(windows) {
    connect(&windows_, &DeskWindows::printWanted, this, &StoryPrinter::ask);
}

void StoryPrinter::ask() {
    if (dialog_ && dialog_->isVisible()) return;
    model_ = &windows_.model();
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        const auto key = model_->actions()->keyText(DeskAction::SaveStoryPDF);
        emit model_->noticed(
            tr("No printer is set up on this computer. %1 saves the story as PDF.").arg(key));
        return;
    }
    // When the answer comes the reader may show another story.
    document_ = model_->selectedStory()->reader()->document();
    dialog_.reset();
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setDocName(document_.title);
    dialog_ = std::make_unique<QPrintDialog>(printer_.get());
    dialog_->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                        QAbstractPrintDialog::PrintShowPageSize |
                        QAbstractPrintDialog::PrintCollateCopies);
    // A dialog of widgets has a window once it has an id.
    dialog_->winId();
    dialog_->windowHandle()->setTransientParent(&windows_.window().window());
    connect(dialog_.get(), &QDialog::accepted, this, &StoryPrinter::print);
    dialog_->open();
}

void StoryPrinter::print() {
    app::print(document_, *printer_);
    if (model_ && printer_->printerState() == QPrinter::Error)
        emit model_->noticed(tr("The story could not be printed."));
}

}  // namespace app
