#pragma once

#include <QString>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"

namespace app {

/// Changes of sources, each a step of the undo.
class SourceSteps {
public:
    explicit SourceSteps(const DeskStores& stores) : stores_(stores) {}

    /// What is set for the source now, which lines of a table may not show yet.
    SourceOptions optionsOf(const kit::NewsSource& source) const;

    /// `notice`, with the source's name for %1, where nothing else shows that it was done.
    void setEnabled(const kit::NewsSource& source, bool enabled, const QString& notice = {});
    /// `step` names the change, with the source's name for %1.
    void setOptions(const kit::NewsSource& source, const SourceOptions& options,
                    const QString& step);
    // Of sources that the user has added.
    void rename(const kit::NewsSource& source, const QString& name);
    void remove(const kit::NewsSource& source, bool isOn);

private:
    DeskStores stores_;
};

}  // namespace app
