#include "Tarnwick_Brell/Models/Stories/ArticleModel.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include <QStringList>

#include "NewsroomKit/Pages/PageDiff.h"
#include "Tarnwick_Brell/Desk/ArticleFetch.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// A text that is younger is shown without fetching the page again.
constexpr std::chrono::minutes kFreshArticle{10};
/// What the reader shows at most; the whole page is a key away.
constexpr std::size_t kMostArticleBytes = 60'000;
constexpr std::size_t kMostArticleLinks = 40;
constexpr int kLongestBlock = 20'000;
constexpr int kLongestSentence = 600;

QString articleText(const kit::Article& article) {
    using BlockKind = kit::PageBlock::Kind;
    QString text;
    std::size_t bytes = 0;
    auto last = BlockKind::row;
    for (const auto& block : article.blocks) {
        const bool isList = block.kind == BlockKind::item || block.kind == BlockKind::row;
        if (!text.isEmpty()) text += isList && last == block.kind ? u"\n" : u"\n\n";
        if (block.kind == BlockKind::item) text += QStringLiteral("• ");
        if (block.kind == BlockKind::quote) text += QStringLiteral("“");
        text += block.kind == BlockKind::code ? bodyText(block.text, kLongestBlock)
                                              : titleText(block.text, kLongestBlock);
        if (block.kind == BlockKind::quote) text += QStringLiteral("”");
        last = block.kind;
        bytes += block.text.size();
        if (bytes > kMostArticleBytes) return text + QStringLiteral("…");
    }
    return text;
}

QString changeSentences(const StoredArticle& stored) {
    QStringList sentences;
    for (const auto& change : kit::comparePages(stored.earlier, stored.article.blocks).changes) {
        sentences << titleText(change.sentence, kLongestSentence);
    }
    return sentences.join(u'\n');
}

/// Of the story's source; empty when the user has removed it.
std::string siteOf(const NewsDesk& desk, const std::string& sourceID) {
    const auto& sources = desk.sources();
    const auto source = std::ranges::find(sources, sourceID, &kit::NewsSource::id);
    return source == sources.end() ? std::string() : source->siteURL;
}

}  // namespace

ArticleModel::ArticleModel(NewsDesk& desk, kit::Clock clock, QObject* parent)
    : QObject(parent),
      desk_(desk),
      clock_(std::move(clock)),
      queue_(std::make_shared<MainThreadQueue>()) {}

// A job in flight continues; its result is dropped.
ArticleModel::~ArticleModel() { queue_->close(); }

void ArticleModel::toggle(const kit::Story& story) {
    if (story_.id == story.id && state_ == Ready) return clear();
    if (story_.id == story.id && state_ == Running) return;
    story_ = story;
    start();
}

void ArticleModel::retry() {
    if (state_ == Failed || !failure_.isEmpty()) start();
}

void ArticleModel::clear() {
    if (state_ == Idle) return;
    cancel();
    links_.setRows({});
    title_ = notice_ = text_ = changes_ = failure_ = QString();
    state_ = Idle;
    emit stateChanged();
}

void ArticleModel::cancel() {
    ++turn_;
    if (job_) desk_.worker().cancel(*std::exchange(job_, std::nullopt));
}

void ArticleModel::start() {
    cancel();
    state_ = Running;
    emit stateChanged();
    const auto send = [this, turn = turn_, queue = queue_](std::optional<StoredArticle> stored,
                                                           std::string failure) {
        queue->send([this, turn, stored = std::move(stored), failure = std::move(failure)] {
            if (turn == turn_) show(stored, failure);
        });
    };
    auto job = [story = story_, site = siteOf(desk_, story_.sourceID), clock = clock_,
                desk = &desk_,
                send](DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        auto stored = context.store.articles().find(story.id);
        if (stored && clock() - stored->fetchedAt < kFreshArticle && stored->fetchedAt <= clock()) {
            send(std::move(stored), {});
            co_return;
        }
        auto fetched =
            co_await fetchArticle(context.stack.http(), story.articleLink.value_or(story.link));
        if (fetched.article) {
            auto revised = storeArticle(context.store, story, site, *fetched.article, clock());
            if (revised) desk->deliver(std::move(*revised));
            stored = context.store.articles().find(story.id);
        }
        send(std::move(stored), fetched.failure);
    };
    job_ = desk_.worker().spawn(
        std::move(job), [send](const std::exception& error) { send(std::nullopt, error.what()); });
}

void ArticleModel::show(const std::optional<StoredArticle>& stored, const std::string& failure) {
    job_.reset();
    failure_ = bodyText(failure);
    state_ = stored ? Ready : Failed;
    title_ = notice_ = text_ = changes_ = QString();
    std::vector<ArticleLinkRow> links;
    if (stored) {
        title_ = tr("Article text, fetched %1").arg(momentText(stored->fetchedAt, clock_()));
        if (stored->article.isPaywalled) {
            notice_ =
                tr("The publisher keeps this article for subscribers; the text may end early.");
        }
        text_ = articleText(stored->article);
        if (stored->earlierAt) {
            changes_ = tr("Changed since %1").arg(momentText(*stored->earlierAt, clock_())) +
                       u'\n' + changeSentences(*stored);
        }
        for (const auto& link : stored->article.links) {
            auto target = openableLink(link.url);
            if (target.isEmpty() || links.size() == kMostArticleLinks) continue;
            links.push_back({titleText(link.text, 80), std::move(target)});
        }
    }
    links_.setRows(std::move(links));
    emit stateChanged();
}

QString ArticleModel::message() const {
    return state_ == Running ? tr("Fetching the page…") : failure_;
}

}  // namespace app
