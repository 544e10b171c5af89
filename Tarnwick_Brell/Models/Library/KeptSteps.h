#pragma once

#include <cstddef>
#include <string>

#include <QString>

#include "NewsroomKit/Library/ProjectTimeline.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Storage/Tables/KeptKind.h"

namespace app {

/// Changes of what the user keeps, each a step of the undo. `name` is what a step calls the thing.
class KeptSteps {
public:
    explicit KeptSteps(const DeskStores& stores) : stores_(stores) {}

    void clip(const kit::Story& story, const std::string& quote);
    void remove(KeptKind kind, const std::string& id, const QString& name);
    void restore(KeptKind kind, const std::string& id, const QString& name);
    /// `project` by its id and its name.
    void setMember(const std::string& project, const QString& projectName, kit::MemberKind kind,
                   const std::string& id, bool isIn);
    void setDone(const std::string& project, const std::string& memberKey, bool isDone);
    /// From one place of the timeline to another, both counted with the member in its place.
    void moveMember(const std::string& project, const std::string& memberKey, std::size_t from,
                    std::size_t to);
    void moveProject(const std::string& id, std::size_t from, std::size_t to);

private:
    DeskStores stores_;
};

/// The same text on one line, cut so that a step or a notice can name the thing.
QString shortName(std::string_view text);

}  // namespace app
