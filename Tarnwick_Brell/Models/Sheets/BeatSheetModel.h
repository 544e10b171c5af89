#pragma once

#include <memory>

#include <QStringList>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "Tarnwick_Brell/Models/Beats/BeatPreviewModel.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"

namespace app {

/// A beat being made or changed. Nothing is stored before `save`.
class BeatSheetModel : public app::SheetModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(bool isNew READ isNew CONSTANT)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY changed)
    Q_PROPERTY(QList<QString> symbols READ symbols CONSTANT)
    Q_PROPERTY(QString proposedName READ proposedName NOTIFY changed)
    Q_PROPERTY(QList<QString> words READ words NOTIFY changed)
    Q_PROPERTY(QList<QString> excludedWords READ excludedWords NOTIFY changed)
    Q_PROPERTY(app::FilterOptions* sources READ sources CONSTANT)
    Q_PROPERTY(app::FilterOptions* sourcings READ sourcings CONSTANT)
    Q_PROPERTY(bool includesSetAside READ includesSetAside WRITE setIncludesSetAside NOTIFY changed)
    Q_PROPERTY(bool alerts READ alerts WRITE setAlerts NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(app::BeatPreviewModel* preview READ preview CONSTANT)

public:
    /// The sheet of "beat:ID" and of "beat:" for a new one. Null when there is no such beat.
    static std::unique_ptr<SheetModel> make(const DeskStores& stores, const QString& beatID);
    /// A new beat on what the story's headline names. Null when the story is gone.
    static std::unique_ptr<SheetModel> makeFromStory(const DeskStores& stores,
                                                     const QString& storyID);

    BeatSheetModel(const DeskStores& stores, kit::Beat beat, bool isNew);

    bool isNew() const { return isNew_; }
    QString name() const;
    void setName(const QString& name);
    QString symbol() const;
    void setSymbol(const QString& symbol);
    QStringList symbols() const;
    /// What the beat is called when it is not given a name: after its first word.
    QString proposedName() const;
    QStringList words() const;
    QStringList excludedWords() const;
    FilterOptions* sources() { return &sources_; }
    FilterOptions* sourcings() { return &sourcings_; }
    bool includesSetAside() const { return draft_.query.includesSetAside; }
    void setIncludesSetAside(bool includes);
    bool alerts() const { return beat_.alerts; }
    void setAlerts(bool alerts);
    /// Why it can't be saved; empty when it can.
    const QString& problem() const { return problem_; }
    BeatPreviewModel* preview() { return &preview_; }

    /// One or more words, with commas between them. Words that are there already are not added.
    Q_INVOKABLE void addWords(const QString& list);
    Q_INVOKABLE void removeWord(int index);
    /// The text that is not a word yet.
    Q_INVOKABLE void setTyped(const QString& text);
    Q_INVOKABLE void addExcludedWords(const QString& list);
    Q_INVOKABLE void removeExcludedWord(int index);
    Q_INVOKABLE void addOtherForm();
    Q_INVOKABLE void removeTooMuch();

    Q_INVOKABLE void save();
    Q_INVOKABLE void remove();

signals:
    void changed();

private:
    void offerSources();
    void readFilters();
    void update();
    kit::Beat finished() const;

    DeskStores stores_;
    kit::Beat beat_;
    bool isNew_;
    kit::BeatDraft draft_;
    FilterOptions sources_;
    FilterOptions sourcings_;
    BeatPreviewModel preview_;
    QString problem_;
};

}  // namespace app
