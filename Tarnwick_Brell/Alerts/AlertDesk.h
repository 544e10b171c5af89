#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QTimer>

#include "NewsroomKit/Alerts/AlertPipeline.h"
#include "NewsroomKit/Alerts/AlertRuleSet.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Alerts/PriceRules.h"
#include "Tarnwick_Brell/Notifications/Alerts.h"

namespace app {

class Defaults;
class NewsDesk;
class NewsroomStore;

/// Tells the user, through one delivery, of everything that the desk has to tell: what the user's
/// rules match, and what settings, beats and panels ask for. Lives on the main thread.
class AlertDesk : public QObject {
    Q_OBJECT
public:
    using Post = std::function<void(Notification)>;

    struct Stores {
        AlertStore& alerts;
        NewsDesk& news;
        NewsroomStore& newsrooms;
        Defaults& defaults;
        kit::Clock clock;
    };

    AlertDesk(Stores stores, Post post);

    /// News of the wire, newest first.
    void takeStories(const std::vector<kit::Story>& news);
    /// What has been logged as news.
    void takeSignals(const std::vector<kit::Signal>& logged);
    /// A quote that was fetched at that moment.
    void takeQuote(const kit::StockQuote& quote, kit::Instant seenAt);
    /// What a setting, a beat or a panel asks for.
    void take(AskedNotification asked);

signals:
    /// The symbols of the rules on prices that are on.
    void symbolsWanted(const std::vector<std::string>& symbols);

private:
    /// A match with what is shown if it is told at once.
    struct Candidate {
        kit::AlertMatch match{};
        std::string ruleName{};
        Notification notification{};
    };

    void whenLoaded(std::function<void()> work);
    void prepareRules();
    void dropHeldOfStopped();
    void followClusters();
    void takeEvent(const kit::AlertEvent& event);
    std::vector<const kit::Story*> clusterOf(const kit::Story& story);
    Candidate candidateOf(kit::AlertMatch match, const kit::AlertEvent& event) const;
    void take(Candidate candidate);
    void tell(const std::vector<kit::AlertTelling>& told, const Candidate* candidate);
    void beReady();
    void tellWhatIsDue();
    void store();
    Notification summaryOf(const kit::AlertTelling& telling) const;
    std::string nameOf(const std::string& rule) const;

    Stores stores_;
    Post post_;
    kit::AlertPipeline pipeline_;
    PriceRules prices_;
    std::unique_ptr<kit::AlertRuleSet> rules_;
    std::map<std::string, kit::AlertRule, std::less<>> known_;    ///< the rules, by id
    std::map<std::string, kit::Instant, std::less<>> changedAt_;  ///< of rules, in this run
    std::map<std::string, std::string, std::less<>> askers_;      ///< names, by id
    std::deque<kit::AlertEvent> recent_;  ///< stories that may still join a cluster
    std::deque<kit::Story> members_;      ///< of the cluster that is being looked at
    AlertStore::Outcome outcome_;         ///< not stored yet
    std::string storedPrices_;
    std::vector<std::function<void()>> waiting_;  ///< for the store
    QTimer due_;
};

}  // namespace app
