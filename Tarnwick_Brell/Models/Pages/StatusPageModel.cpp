#include "Tarnwick_Brell/Models/Pages/StatusPageModel.h"

#include <algorithm>
#include <exception>
#include <string>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Presentation/CalendarDays.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Trackers/StatusWatch.h"

namespace app {

namespace {

using kit::StatusFeed;
using Page = kit::StatusPageContent;

// The file names the services' pages nowhere.
constexpr const char* kConsumerPage = "https://www.apple.com/support/systemstatus/";
constexpr const char* kDeveloperPage = "https://developer.apple.com/system-status/";

std::size_t servicesOf(const kit::CachedValue<TrackerStore::Services>& file) {
    return file.value ? file.value->size() : 0;
}

}  // namespace

StatusPageModel::StatusPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Service status")), queue_(std::make_shared<MainThreadQueue>()) {
    connect(&trackers(), &TrackerStore::statusChanged, this, &StatusPageModel::load);
    update();
    load();
}

StatusPageModel::~StatusPageModel() { queue_->close(); }

void StatusPageModel::load() {
    const auto show = [this](const kit::StatusHistory& history) {
        history_ = history;
        update();
    };
    news().worker().post(
        [queue = queue_, show](DeskWorker::WorkerContext& context) {
            queue->send([show, history = loadStatusHistory(context.store)] { show(history); });
        },
        [queue = queue_, this](const std::exception& error) {
            queue->send([this, text = std::string(error.what())] { emit noticed(bodyText(text)); });
        });
}

void StatusPageModel::update() {
    const auto moment = now();
    days_ = lastDays(moment, static_cast<int>(kit::kHistoryDays));
    content_ = kit::statusPageContent(trackers().consumerStatus(), trackers().developerStatus(),
                                      history_, filter_, days_, moment);
    dayNames_ = {shortDayText(days_[0], moment), shortDayText(days_[30], moment),
                 shortDayText(days_[60], moment)};
    std::vector<StatusPageRow> rows;
    if (!content_.problems.empty()) {
        const auto count = static_cast<int>(content_.problems.size());
        rows.push_back({.kind = StatusRowKind::Heading,
                        .title = tr("Ongoing"),
                        .detail = tr("%n problems", nullptr, count)});
    }
    for (const auto& problem : content_.problems) rows.push_back(problemRow(problem, moment));
    for (const auto& table : content_.tables) addTable(rows, table);
    for (auto& row : rows) {
        if (row.spokenText.isEmpty()) row.spokenText = (row.title + u' ' + row.detail).trimmed();
    }
    rows_.setRows(std::move(rows));
    log_.setRows(logRows(content_.log, moment));
    auto condition = conditionOf(content_.condition);
    const auto& fetchedAt = content_.condition.fetchedAt;
    condition.fact = fetchedAt ? tr("Checked %1").arg(momentText(*fetchedAt, moment)) : QString();
    setCondition(std::move(condition));
}

void StatusPageModel::addTable(std::vector<StatusPageRow>& rows, const Page::Table& table) {
    const auto& tally = table.tally;
    const bool isConsumer = table.audience == StatusFeed::consumer;
    StatusPageRow head{.kind = StatusRowKind::Table,
                       .title = isConsumer ? tr("Consumer") : tr("Developer"),
                       .isOld = !tally || !tally->isCurrent,
                       .audience = table.audience};
    if (tally) head.detail = tr("%1 of %2 up").arg(tally->up).arg(tally->all);
    if (tally && !tally->isCurrent && tally->fetchedAt) {
        head.detail = tr("%1 at %2").arg(head.detail, momentText(*tally->fetchedAt, now()));
        head.warning = agoText(*tally->fetchedAt, now());
    }
    if (table.error) {
        const auto error = bodyText(*table.error);
        head.warning = head.warning.isEmpty() ? error : head.warning + QStringLiteral(". ") + error;
    }
    if (!tally && head.warning.isEmpty()) head.detail = tr("not known yet");
    rows.push_back(head);
    if (table.services.empty()) {
        if (tally && !filter_.words.empty())
            rows.push_back({.kind = StatusRowKind::Heading,
                            .detail = tr("No service has “%1” in its name.").arg(words()),
                            .isOld = head.isOld});
        return;
    }
    const auto watched = static_cast<int>(table.watchedDays);
    rows.push_back({.kind = StatusRowKind::Columns,
                    .share = tr("%n days", nullptr, watched),
                    .isOld = head.isOld,
                    .audience = table.audience});
    addServices(rows, table, head.isOld);
}

void StatusPageModel::addServices(std::vector<StatusPageRow>& rows, const Page::Table& table,
                                  bool isOld) {
    const auto quiet =
        static_cast<int>(std::ranges::count_if(table.services, &Page::Service::isQuiet));
    const auto all = static_cast<int>(table.services.size());
    // A search shows all that it finds.
    const bool isOpen = opened_.contains(table.audience) || !filter_.words.empty();
    const auto add = [&](int index) {
        auto row = serviceRow(table.services[static_cast<std::size_t>(index)], now());
        row.isOld = isOld;
        row.audience = table.audience;
        row.service = index;
        rows.push_back(std::move(row));
    };
    for (int i = 0; i < all - quiet; ++i) add(i);
    if (quiet > 0 && filter_.words.empty()) {
        const auto text =
            quiet < all ? tr("%n more services without an incident that is known", nullptr, quiet)
                        : tr("%n services without an incident that is known", nullptr, quiet);
        rows.push_back({.kind = StatusRowKind::Fold,
                        .title = text,
                        .isOld = isOld,
                        .isOpen = isOpen,
                        .spokenText = text,
                        .audience = table.audience});
    }
    if (isOpen) {
        for (int i = all - quiet; i < all; ++i) add(i);
    }
}

const Page::Service* StatusPageModel::serviceAt(int row) const {
    const auto* found = rows_.row(row);
    if (!found || found->kind != StatusRowKind::Service) return nullptr;
    for (const auto& table : content_.tables) {
        if (table.audience == found->audience)
            return &table.services.at(static_cast<std::size_t>(found->service));
    }
    return nullptr;
}

bool StatusPageModel::isService(int row) const { return serviceAt(row) != nullptr; }

bool StatusPageModel::isFold(int row) const {
    const auto* found = rows_.row(row);
    return found && found->kind == StatusRowKind::Fold;
}

QString StatusPageModel::dayText(int row, int day) const {
    const auto* service = serviceAt(row);
    return service && day >= 0
               ? serviceDayText(*service, static_cast<std::size_t>(day), days_, now())
               : QString();
}

void StatusPageModel::activate(int row) {
    const auto* found = rows_.row(row);
    if (!found) return;
    if (found->kind == StatusRowKind::Table) retry();
    if (found->kind != StatusRowKind::Fold) return;
    if (!opened_.erase(found->audience)) opened_.insert(found->audience);
    update();
}

void StatusPageModel::openApplesPage() {
    const bool isDeveloper = filter_.audience == StatusFeed::developer;
    openLink(QString::fromLatin1(isDeveloper ? kDeveloperPage : kConsumerPage));
}

QString StatusPageModel::logText() const {
    return tr("%n in 90 days", nullptr, static_cast<int>(content_.log.size()));
}

QStringList StatusPageModel::audiences() const {
    const auto consumer = servicesOf(trackers().consumerStatus());
    const auto developer = servicesOf(trackers().developerStatus());
    return {tr("All %1").arg(consumer + developer), tr("Consumer %1").arg(consumer),
            tr("Developer %1").arg(developer)};
}

int StatusPageModel::audience() const {
    return filter_.audience ? 1 + static_cast<int>(*filter_.audience) : 0;
}

void StatusPageModel::setAudience(int audience) {
    filter_.audience =
        audience > 0 ? std::optional(static_cast<StatusFeed>(audience - 1)) : std::nullopt;
    update();
}

void StatusPageModel::setWords(const QString& words) {
    filter_.words = words.toStdString();
    update();
}

}  // namespace app
