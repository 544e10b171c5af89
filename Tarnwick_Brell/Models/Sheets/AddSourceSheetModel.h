#pragma once

#include <cstdint>
#include <optional>

#include <QAbstractListModel>
#include <QString>

#include "Tarnwick_Brell/Desk/SourceAdder.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

/// What became of an address that was tried, for views.
namespace AttemptOutcome {

Q_NAMESPACE
QML_ELEMENT

enum Value { UnderWay, Page, Feed, Failed, Untried };
Q_ENUM_NS(Value)

}  // namespace AttemptOutcome

/// An address on the way to a feed.
struct AttemptRow {
    Q_GADGET
    Q_PROPERTY(QString address MEMBER address)
    Q_PROPERTY(app::AttemptOutcome::Value outcome MEMBER outcome)
    Q_PROPERTY(bool isUsed MEMBER isUsed)
    Q_PROPERTY(QString result MEMBER result)
    Q_PROPERTY(QString duration MEMBER duration)

public:
    QString address{};
    AttemptOutcome::Value outcome = AttemptOutcome::UnderWay;
    bool isUsed = false;  ///< the feed that would be added
    QString result{};
    QString duration{};

    bool operator==(const AttemptRow&) const = default;
};

/// A story that the feed would bring, with the labels that it would get.
struct PreviewStoryRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString kindText MEMBER kindText)
    Q_PROPERTY(QString sourcingText MEMBER sourcingText)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString title{};
    QString kindText{};
    QString sourcingText{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString age{};
    QString spokenText{};

    bool operator==(const PreviewStoryRow&) const = default;
};

/// Adds a source: what was typed, the addresses that it leads to as they are tried, and what the
/// feed would bring. Closing the sheet ends the search.
class AddSourceSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(AddSourceSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString typed READ typed WRITE setTyped NOTIFY changed)
    Q_PROPERTY(bool canCheck READ canCheck NOTIFY changed)
    Q_PROPERTY(bool isChecking READ isChecking NOTIFY changed)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY changed)
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(QString knownSource READ knownSource NOTIFY changed)
    Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString group READ group CONSTANT)
    Q_PROPERTY(QString storiesText READ storiesText NOTIFY changed)
    Q_PROPERTY(bool onlyApple READ onlyApple WRITE setOnlyApple NOTIFY changed)
    Q_PROPERTY(QString appleText READ appleText NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* attempts READ attempts CONSTANT)
    Q_PROPERTY(QAbstractListModel* stories READ stories CONSTANT)

public:
    /// `subject` is what the field begins with; it is looked up at once.
    AddSourceSheetModel(const DeskStores& stores, const QString& subject);
    ~AddSourceSheetModel() override;

    const QString& typed() const { return typed_; }
    void setTyped(const QString& typed);
    bool canCheck() const { return !isChecking_ && !found_ && !typed_.trimmed().isEmpty(); }
    bool isChecking() const { return isChecking_; }
    bool canAdd() const { return found_.has_value(); }
    const QString& error() const { return error_; }
    /// The source that has the feed already; empty unless that is the error.
    const QString& knownSource() const { return knownSource_; }
    QString progressText() const;
    const QString& name() const { return name_; }
    void setName(const QString& name);
    QString group() const;
    QString storiesText() const;
    bool onlyApple() const { return onlyApple_; }
    void setOnlyApple(bool only);
    /// How many of the stories are about Apple: "22 of 30".
    QString appleText() const;
    GadgetListModel<AttemptRow>* attempts() { return &attempts_; }
    GadgetListModel<PreviewStoryRow>* stories() { return &previews_; }

    Q_INVOKABLE void check();
    Q_INVOKABLE void stop();
    /// Looks up an address that was not tried.
    Q_INVOKABLE void tryAddress(int row);
    Q_INVOKABLE void add();
    Q_INVOKABLE void showKnown();

signals:
    void changed();

private:
    void forget();
    void follow(const kit::FetchAttempt& attempt);
    void show(const SourceAdder::Checked& checked);
    void showFound();

    DeskStores stores_;
    QString typed_;
    QString name_;
    QString error_;
    QString knownSource_;
    bool isChecking_ = false;
    bool onlyApple_ = false;
    std::uint64_t check_ = 0;   ///< the last one; answers of others are out of date
    std::uint64_t worker_ = 0;  ///< what ends it
    std::vector<kit::FetchAttempt> tried_;
    std::optional<AddressCheck> found_;
    GadgetListModel<AttemptRow> attempts_;
    GadgetListModel<PreviewStoryRow> previews_;
};

}  // namespace app
