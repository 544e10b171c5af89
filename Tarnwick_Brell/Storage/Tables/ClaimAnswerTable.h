#pragma once

#include <vector>

#include "NewsroomKit/Attribution/LaterAnswers.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// What has settled claims, kept for good: what words weigh changes with the stories held, and a
/// claim that was settled once stays settled.
class ClaimAnswerTable {
public:
    explicit ClaimAnswerTable(Database& database) : database_(database) {}

    std::vector<kit::ClaimAnswer> all();
    /// The first answer to a claim stays.
    void keep(const std::vector<kit::ClaimAnswer>& answers);

private:
    Database& database_;
};

}  // namespace app
