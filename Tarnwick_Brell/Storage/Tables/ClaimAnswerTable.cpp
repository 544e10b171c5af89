#include "Tarnwick_Brell/Storage/Tables/ClaimAnswerTable.h"

namespace app {

std::vector<kit::ClaimAnswer> ClaimAnswerTable::all() {
    Statement rows(database_, "SELECT claim, story, why FROM claimAnswers ORDER BY claim");
    std::vector<kit::ClaimAnswer> answers;
    while (rows.step())
        answers.push_back({.claim = rows.text(0), .story = rows.text(1), .why = rows.text(2)});
    return answers;
}

void ClaimAnswerTable::keep(const std::vector<kit::ClaimAnswer>& answers) {
    Statement insert(database_,
                     "INSERT OR IGNORE INTO claimAnswers (claim, story, why) VALUES (?, ?, ?)");
    for (const auto& answer : answers) {
        insert.bind(0, answer.claim).bind(1, answer.story).bind(2, answer.why);
        insert.run();
    }
}

}  // namespace app
