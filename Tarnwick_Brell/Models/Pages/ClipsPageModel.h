#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/Clip.h"
#include "Tarnwick_Brell/Models/Library/KeptListPageModel.h"

namespace app {

/// The passages that the user clipped, and of the chosen one its citation and what the user says
/// of it.
class ClipsPageModel final : public app::KeptListPageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ClipsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(bool hasClip READ hasClip NOTIFY changed)
    Q_PROPERTY(QString quote READ quote NOTIFY changed)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString source READ source NOTIFY changed)
    Q_PROPERTY(QString citation READ citation NOTIFY changed)
    Q_PROPERTY(QString tags READ tags NOTIFY changed)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY changed)
    Q_PROPERTY(QList<QString> styles READ styles CONSTANT)

public:
    ClipsPageModel(const DeskStores& stores, std::string chosen);
    ~ClipsPageModel() override;

    bool hasClip() const { return clip_.has_value(); }
    QString quote() const;
    QString headline() const;
    /// "Harbour Post, A. Writer · published 20 November 2026"
    QString source() const;
    QString citation() const;
    /// "#law #browser"
    QString tags() const;
    QString note() const;
    /// The names of the styles of citations.
    QStringList styles() const;

    /// What the user says of the clip, while it is typed: it is kept soon after.
    void setNote(const QString& note);
    /// Words with commas between them.
    Q_INVOKABLE void setTags(const QString& tags);
    /// Opens the story, or its page when the desk does not have the story any more.
    Q_INVOKABLE void openRow(int row);
    /// Asks into which projects the chosen one goes.
    Q_INVOKABLE void putIntoProject();
    /// The quote with its citation; `style` is a place in `styles`.
    Q_INVOKABLE void copy(int style);

    bool offers(Action action) const override;
    void perform(Action action) override;

protected:
    void chosenChanged() override;
    QString nothingKept() const override;
    QString factOf(int count) const override { return tr("%n clips", nullptr, count); }

private:
    void saveNote();

    std::optional<kit::Clip> clip_;
    QTimer saving_;  ///< runs while the note is not kept yet
};

}  // namespace app
