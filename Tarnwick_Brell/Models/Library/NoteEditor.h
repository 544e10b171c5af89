#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Library/Note.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// A note while the user types it. What is typed is saved within kSavedWithin, and at once when
/// the editor goes to another note or ends. A new note is kept with its first character.
class NoteEditor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Pages and the reader make theirs.")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY changed)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    Q_PROPERTY(QString fact READ fact NOTIFY changed)
    Q_PROPERTY(QList<QString> versions READ versions NOTIFY versionsChanged)

public:
    static constexpr std::chrono::milliseconds kSavedWithin{400};

    explicit NoteEditor(const DeskStores& stores, QObject* parent = nullptr);
    ~NoteEditor() override;

    /// Reads the note with this id; nothing is open until it has come.
    void open(const std::string& id);
    /// An empty note with what it belongs to; it is kept once something is typed.
    void begin(kit::Note draft);
    void close();

    bool isOpen() const { return note_.has_value(); }
    /// Empty for a note that is not kept yet.
    std::string id() const { return note_ ? note_->id : std::string(); }
    std::vector<std::string> storyIDs() const {
        return note_ ? note_->storyIDs : std::vector<std::string>();
    }
    QString title() const;
    void setTitle(const QString& title);
    QString text() const;
    void setText(const QString& text);
    /// "Saved 16:02", "Not saved yet"; why it can't be saved.
    const QString& fact() const { return fact_; }
    /// The library has what is typed.
    bool isKept() const { return !isUnsaved_ && !isSaving_; }
    /// When the earlier texts were replaced, the last one first.
    const QStringList& versions() const { return versionNames_; }
    /// The text of an earlier version takes the place of this one, which becomes a version.
    Q_INVOKABLE void useVersion(int version);

signals:
    void changed();
    void versionsChanged();
    /// It has an id from now on.
    void kept();

private:
    void show(std::optional<kit::Note> note);
    void saveSoon();
    void save();
    void follow();
    void readVersions();
    void setFact(const QString& fact);

    DeskStores stores_;
    std::optional<kit::Note> note_;
    std::string awaited_;  ///< the id of the note that is being read
    bool isUnsaved_ = false;
    bool isSaving_ = false;
    QString fact_;
    std::vector<kit::NoteVersion> versions_;
    QStringList versionNames_;
    QTimer soon_;
};

}  // namespace app
