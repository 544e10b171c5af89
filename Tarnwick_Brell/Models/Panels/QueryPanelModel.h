#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include <QAbstractListModel>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/StoryGroup.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// A panel whose rows are made from the recent stories that its query wants.
class QueryPanelModel : public app::PanelModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    ~QueryPanelModel() override;

    virtual QAbstractListModel* rows() = 0;
    void tick() override;
    /// Opens what the row tells.
    Q_INVOKABLE virtual void open(int row) = 0;

protected:
    /// What a content was made from.
    struct Extent {
        kit::Instant now{};
        kit::Instant from{};
        std::size_t stories = 0;
        std::optional<kit::Instant> newest{};

        static Extent of(const QueryResult& result);
    };

    QueryPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                    const kit::StoryQuery& query);

    const kit::StoryQuery& query() const { return query_; }

    /// `make` works on the worker's thread; `show` is called with what it returns and with the
    /// extent.
    template <class Make, class Show>
    void gather(std::function<kit::Instant()> earliest, Make make, Show show) {
        follow(std::move(earliest), [make, show](const QueryResult& result) {
            return [show, content = make(result), extent = Extent::of(result)] {
                show(content, extent);
            };
        });
    }
    /// The stories of the kind's span, and those before it that its groups may begin with.
    template <class Make, class Show>
    void gather(Make make, Show show) {
        gather([this, span = span()] { return now() - span - kit::kEarlierContext; },
               std::move(make),
               [span = span(), show = std::move(show)](const auto& content, Extent extent) {
                   extent.from = std::max(extent.from, extent.now - span);
                   show(content, extent);
               });
    }

    /// Ready, or empty for lack of `rows`, with the sentence of the panel's kind.
    void setReady(int rows, const QString& fact, const Extent& extent);

    /// "Last 48 hours", "Last 7 days"; "Since 4 Nov 09:12" when the wire was not read that far.
    QString spanFact(const Extent& extent) const;

private:
    std::chrono::hours span() const;
    void follow(std::function<kit::Instant()> earliest, PanelStoryCollector::Build build);

    kit::StoryQuery query_;
    kit::PanelKind panelKind_;
    std::shared_ptr<PanelStoryCollector> collector_;
    PanelStoryCollector::SubscriptionID subscription_ = 0;
};

}  // namespace app
