#pragma once

#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// What the icon in the desktop's tray says: unread stories, the latest ones, problems of services.
class TrayModel : public QObject {
    Q_OBJECT
public:
    struct Entry {
        QString storyID{};
        QString title{};

        bool operator==(const Entry&) const = default;
    };
    static constexpr std::size_t kStories = 5;

    explicit TrayModel(const DeskStores& stores, QObject* parent = nullptr);

    void setUnread(int unread);
    /// "Tarnwick Brell, 12 unread, 1 service with problems"
    QString tip() const;
    /// The newest ones that are not set aside.
    const std::vector<Entry>& stories() const { return entries_; }
    const QStringList& problems() const { return problems_; }

    /// "Quiet until 17:00" by the user's word; empty when notifications are shown.
    QString quietText() const;
    enum class Quiet { forAnHour, untilMorning, end };
    void setQuiet(Quiet quiet);

signals:
    void changed();

private:
    void look();

    DeskStores stores_;
    int unread_ = 0;
    std::vector<Entry> entries_;
    QStringList problems_;
    QTimer soon_;
};

}  // namespace app
