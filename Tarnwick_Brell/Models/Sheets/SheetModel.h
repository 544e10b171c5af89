#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

namespace app {

/// What a sheet over the window works on, for as long as it is open. It is drawn by the file of
/// its name in Interface/Sheets: AddSourceSheet.qml for an AddSourceSheetModel.
class SheetModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString file READ file CONSTANT)

public:
    QString file() const;

signals:
    /// The work is done, or given up.
    void closeWanted();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// What the sheet made is to be shown: a key of `Destination`.
    void placeWanted(const QString& key);
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);
    /// The library is to be replaced by this backup, which only a desk that is closed can do.
    void restoreWanted(const QString& backup);
};

}  // namespace app
