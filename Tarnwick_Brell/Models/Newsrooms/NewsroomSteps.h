#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace app {

class NewsroomStore;
class UndoStack;

/// The user's changes of newsrooms, each stored at once and as one step that can be undone. A step
/// leaves out newsrooms that another program has removed meanwhile.
class NewsroomSteps {
public:
    NewsroomSteps(NewsroomStore& newsrooms, UndoStack& undo) : newsrooms_(newsrooms), undo_(undo) {}

    /// Replaces a newsroom. Does nothing when it is unchanged or gone.
    void change(kit::NewsroomSpec after, const QString& text);
    /// Replaces several newsrooms in one step.
    void change(std::vector<kit::NewsroomSpec> after, const QString& text);
    void add(kit::NewsroomSpec spec);
    /// Also of one that can't be read.
    void remove(const std::string& id);
    /// `place` counts from 0.
    void move(const std::string& id, std::size_t place);

private:
    NewsroomStore& newsrooms_;
    UndoStack& undo_;
};

}  // namespace app
