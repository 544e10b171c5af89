#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Storage/Safety/LibraryWork.h"

namespace app {

/// Asks for the desktop's dialog that chooses a file.
struct FileWish {
    QString title{};
    QString filter{};  ///< "Lists of feeds (*.opml *.xml);;All files (*)"
    QString path{};    ///< that the dialog begins with
    bool isForWriting = false;
};

/// What a sheet over the window works on, for as long as it is open. It is drawn by the file of
/// its name in Interface/Sheets: AddSourceSheet.qml for an AddSourceSheetModel.
class SheetModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString file READ file CONSTANT)

public:
    QString file() const;
    /// The answer to `fileWanted`: the path of the file that was chosen.
    virtual void useFile(const QString&) {}

signals:
    void fileWanted(const app::FileWish& wish);
    /// The work is done, or given up.
    void closeWanted();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// What the sheet made is to be shown: a key of `Destination`.
    void placeWanted(const QString& key);
    /// Another sheet is to take this one's place: a key of `makeSheet`.
    void sheetWanted(const QString& key);
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);
    /// Only a desk that is closed can do it.
    void libraryWorkWanted(const app::LibraryWork& work);
};

}  // namespace app
