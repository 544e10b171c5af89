#include "Tarnwick_Brell/Storage/Tables/StorySearch.h"

#include <fmt/format.h>

namespace app {

void StorySearch::each(const StorySelection& selection, const StoryTable::Visitor& visit) {
    const SelectionClause clause(selection);
    Statement rows(database_, fmt::format("{}{} ORDER BY {} DESC", StoryTable::selection(),
                                          clause.sql(), clause.number()));
    clause.bind(rows, 0);
    while (rows.step()) {
        if (!visit(stories_.read(rows))) break;
    }
}

}  // namespace app
