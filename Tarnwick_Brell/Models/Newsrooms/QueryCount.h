#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>

#include "NewsroomKit/Panels/ProposedTerms.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"

namespace app {

/// How many stories of the last two weeks a query matches, and which words would widen it; counted
/// a moment after the query or the wire has changed.
class QueryCount : public QObject {
    Q_OBJECT
public:
    explicit QueryCount(const DeskStores& stores, QObject* parent = nullptr);
    ~QueryCount() override;

    void setQuery(const kit::StoryQuery& query);
    /// "27 stories in 14 days"; empty until it is known.
    QString text() const;
    /// Words that the headlines of these stories share, as they are added to the query.
    QStringList proposedWords() const;

signals:
    void changed();

private:
    kit::Clock clock_;
    PanelStoryCollector collector_;
    std::optional<kit::StoryQuery> query_;
    PanelStoryCollector::SubscriptionID subscription_ = 0;
    std::optional<int> stories_;
    std::vector<kit::ProposedTerm> proposed_;
};

}  // namespace app
