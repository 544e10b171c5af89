#include "Tarnwick_Brell/Window/FileDialog.h"

namespace app {

FileDialog::FileDialog(DeskWindows& windows, QObject* parent) : QObject(parent) {
    connect(&windows, &DeskWindows::fileWanted, this, &FileDialog::show);
}

/// Does not wait: the desk goes on behind the dialog, and its window may be closed meanwhile.
void FileDialog::show(WindowModel* model, const FileWish& wish) {
    if (shown_) return;
    shown_ = new QFileDialog(nullptr, wish.title, wish.path, wish.filter);
    shown_->setAttribute(Qt::WA_DeleteOnClose);
    shown_->setFileMode(wish.isForWriting ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    shown_->setAcceptMode(wish.isForWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    connect(shown_, &QFileDialog::fileSelected, model, &WindowModel::useFile);
    shown_->open();
}

}  // namespace app
