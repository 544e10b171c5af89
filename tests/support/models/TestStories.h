#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QAbstractItemModel>
#include <QStringList>

#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "tests/support/models/TestPanels.h"

namespace app::test {

/// A desk for the window's lists of stories.
class TestStories : public TestPanels {
public:
    /// Opens the stores with the newsrooms and waits until everything has been read.
    void open();

    /// Changes the wire without the library, whose changes take seconds to arrive: lists only
    /// depend on the wire and its signals.
    template <class Change>
    WireChange change(const Change& change) {
        const WireChange changed = change(const_cast<Wire&>(news->stories()));
        emit news->wireChanged(changed);
        return changed;
    }
    void come(const std::vector<kit::Story>& stories);
    void mark(Mark mark, const std::vector<std::int64_t>& numbers, bool on);

    /// A story of `outlet`, published at that minute of the clock's day.
    kit::Story story(const std::string& outlet, int minute, const std::string& title) const;
    std::string idOf(const std::string& title) const;

    std::unique_ptr<NewsroomStore> newsrooms;
    std::unique_ptr<AlertStore> alerts;
};

QStringList column(const QAbstractItemModel& model, const char* role);

}  // namespace app::test
