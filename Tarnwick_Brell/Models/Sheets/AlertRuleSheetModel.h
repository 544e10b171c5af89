#pragma once

#include <memory>

#include <QStringList>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/Models/Alerts/RehearsalModel.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"

namespace app {

/// A rule of alerts being made or changed, with what it would have told beside it. Nothing is
/// stored before `save`.
class AlertRuleSheetModel : public app::SheetModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(bool isNew READ isNew CONSTANT)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(bool isOn READ isOn WRITE setIsOn NOTIFY changed)
    Q_PROPERTY(QList<QString> triggers READ triggers CONSTANT)
    Q_PROPERTY(int trigger READ trigger WRITE setTrigger NOTIFY changed)
    Q_PROPERTY(QString beat READ beat NOTIFY changed)
    Q_PROPERTY(QList<QString> words READ words NOTIFY changed)
    Q_PROPERTY(QList<QString> excludedWords READ excludedWords NOTIFY changed)
    Q_PROPERTY(app::FilterOptions* kinds READ kinds CONSTANT)
    Q_PROPERTY(QList<QString> leasts READ leasts NOTIFY changed)
    Q_PROPERTY(int least READ least WRITE setLeast NOTIFY changed)
    Q_PROPERTY(int outlets READ outlets WRITE setOutlets NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY changed)
    Q_PROPERTY(QList<QString> conditions READ conditions CONSTANT)
    Q_PROPERTY(int condition READ condition WRITE setCondition NOTIFY changed)
    Q_PROPERTY(QString figureLabel READ figureLabel NOTIFY changed)
    Q_PROPERTY(QString figure READ figure WRITE setFigure NOTIFY changed)
    Q_PROPERTY(QString within READ within WRITE setWithin NOTIFY changed)
    Q_PROPERTY(bool isWithin READ isWithin NOTIFY changed)
    Q_PROPERTY(bool isQuiet READ isQuiet WRITE setIsQuiet NOTIFY changed)
    Q_PROPERTY(
        bool respectsQuietHours READ respectsQuietHours WRITE setRespectsQuietHours NOTIFY changed)
    Q_PROPERTY(QList<QString> pauses READ pauses CONSTANT)
    Q_PROPERTY(int pause READ pause WRITE setPause NOTIFY changed)
    Q_PROPERTY(bool sound READ sound WRITE setSound NOTIFY changed)
    Q_PROPERTY(bool once READ once WRITE setOnce NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(app::RehearsalModel* rehearsal READ rehearsal CONSTANT)

public:
    enum Trigger { Stories, Signals, Price };
    Q_ENUM(Trigger)

    /// The sheet of "alert-rule:ID" and of "alert-rule:" for a new one. Null when there is no such
    /// rule.
    static std::unique_ptr<SheetModel> make(const DeskStores& stores, const QString& ruleID);
    /// A new rule on what the story's headline names. Null when the story is gone.
    static std::unique_ptr<SheetModel> makeFromStory(const DeskStores& stores,
                                                     const QString& storyID);
    /// A new rule on what is logged with these words: a service, a platform, a company, a device.
    static std::unique_ptr<SheetModel> makeFromWords(const DeskStores& stores,
                                                     const QString& words);

    /// A new rule on the stories of a beat, or on the price of a symbol.
    static std::unique_ptr<SheetModel> makeFromBeat(const DeskStores& stores,
                                                    const QString& beatID);
    static std::unique_ptr<SheetModel> makeFromQuote(const DeskStores& stores,
                                                     const QString& symbol);

    AlertRuleSheetModel(const DeskStores& stores, kit::AlertRule rule, bool isNew);

    bool isNew() const { return isNew_; }
    QString name() const;
    void setName(const QString& name);
    bool isOn() const { return rule_.on; }
    void setIsOn(bool on);
    QStringList triggers() const;
    int trigger() const { return static_cast<int>(rule_.trigger.index()); }
    void setTrigger(int trigger);
    /// Of which beat the stories are; empty when the rule has words of its own.
    QString beat() const;
    QStringList words() const;
    QStringList excludedWords() const;
    FilterOptions* kinds() { return &kinds_; }
    /// The least sourcing of stories, or the least weight of signals.
    QStringList leasts() const;
    int least() const;
    void setLeast(int least);
    int outlets() const;
    void setOutlets(int outlets);
    QString symbol() const;
    void setSymbol(const QString& symbol);
    QStringList conditions() const;
    int condition() const;
    void setCondition(int condition);
    /// What the condition's number means; empty when it has none.
    QString figureLabel() const;
    const QString& figure() const { return figure_; }
    void setFigure(const QString& figure);
    const QString& within() const { return within_; }
    void setWithin(const QString& minutes);
    bool isWithin() const;
    bool isQuiet() const { return rule_.delivery.how == kit::AlertDelivery::How::quiet; }
    void setIsQuiet(bool quiet);
    bool respectsQuietHours() const { return rule_.delivery.respectsQuietHours; }
    void setRespectsQuietHours(bool respects);
    QStringList pauses() const;
    int pause() const;
    void setPause(int pause);
    bool sound() const { return rule_.delivery.sound; }
    void setSound(bool sound);
    bool once() const { return rule_.delivery.once; }
    void setOnce(bool once);
    /// Why it can't be saved; empty when it can.
    const QString& problem() const { return problem_; }
    RehearsalModel* rehearsal() { return &rehearsal_; }

    /// One or more words, with commas between them. Words that are there already are not added.
    Q_INVOKABLE void addWords(const QString& list);
    Q_INVOKABLE void removeWord(int index);
    /// The text that is not a word yet.
    Q_INVOKABLE void setTyped(const QString& text);
    Q_INVOKABLE void addExcludedWords(const QString& list);
    Q_INVOKABLE void removeExcludedWord(int index);

    Q_INVOKABLE void save();
    Q_INVOKABLE void remove();

signals:
    void changed();

private:
    std::vector<std::string>* wordList();
    std::vector<std::string>* excludedList();
    const std::vector<std::string>& listOf(bool excluded) const;
    void readKinds();
    void readFigures();
    void checkSymbol();
    void update();
    kit::AlertRule finished() const;
    template <class Member, class Value>
    void setDelivery(Member member, Value value);

    DeskStores stores_;
    kit::AlertRule rule_;
    bool isNew_;
    FilterOptions kinds_;
    RehearsalModel rehearsal_;
    std::string typed_;
    QString figure_;
    QString within_;
    QString symbolProblem_;  ///< what the service says of the symbol; empty when it knows it
    QString problem_;
};

}  // namespace app
