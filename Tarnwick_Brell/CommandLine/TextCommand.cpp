#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Pages/PageDiff.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/StoryRow.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/ArticleFetch.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleTable.h"

namespace cli {

namespace {

using app::StoredArticle;
using kit::PageBlock;

constexpr std::size_t kWidestArticle = 88;

struct TextOptions {
    std::optional<std::string> id;
    bool isStored = false;
    std::vector<std::string> words;
};

/// The article of a page, fetched now. Throws WorkFailed.
kit::Article fetchedArticle(kit::CurlTransport::Options network, const std::string& address) {
    BlockingFetcher fetcher(std::move(network), kit::Conditional::no);
    auto fetched = fetcher.await(app::fetchArticle(fetcher.http(), address));
    if (!fetched.article) throw WorkFailed(fetched.failure);
    return std::move(*fetched.article);
}

std::string siteOf(Session& session, const kit::Story& story) {
    const app::SourceRegistry registry(session.storeForReading().sources());
    const auto* source = registry.find(story.sourceID);
    return source ? source->siteURL : std::string();
}

std::vector<kit::SourceCredit> creditsIn(Session& session, const kit::Story& story,
                                         const kit::Article& article) {
    return app::creditsIn(article, story, siteOf(session, story));
}

void printBlock(Output& out, const PageBlock& block) {
    const auto width = std::min(out.width(), kWidestArticle);
    const auto text = printable(block.text);
    switch (block.kind) {
        case PageBlock::Kind::heading: out.line(out.bold(wrapped(text, width, ""))); return;
        case PageBlock::Kind::item: out.line("• " + wrapped(text, width, "  ").substr(2)); return;
        case PageBlock::Kind::quote: out.line(wrapped(text, width, "> ")); return;
        case PageBlock::Kind::row: out.line(text); return;
        case PageBlock::Kind::code:
            for (std::size_t at = 0; at <= block.text.size();) {
                const auto end = std::min(block.text.find('\n', at), block.text.size());
                out.line("    " + printable(block.text.substr(at, end - at)));
                at = end + 1;
            }
            return;
        default: out.line(wrapped(text, width, ""));
    }
}

void printChanges(Output& out, const StoredArticle& stored) {
    if (!stored.earlierAt) return;
    out.line();
    out.line(out.bold("Changed since " + momentText(*stored.earlierAt)));
    for (const auto& change : kit::comparePages(stored.earlier, stored.article.blocks).changes) {
        out.line(wrapped(printable(change.sentence), std::min(out.width(), kWidestArticle), ""));
    }
}

void printArticle(Session& session, const StoredArticle& stored, const kit::Story& story) {
    auto& out = session.out();
    const auto width = std::min(out.width(), kWidestArticle);
    out.line(out.bold(out.link(stored.url, wrapped(printable(story.title), width, ""))));
    out.line(out.dim("Fetched " + momentText(stored.fetchedAt)));
    if (stored.article.isPaywalled) {
        out.line("The publisher keeps this article for subscribers; the text may end early.");
    }
    auto last = PageBlock::Kind::row;
    for (const auto& block : stored.article.blocks) {
        const bool isList =
            block.kind == PageBlock::Kind::item || block.kind == PageBlock::Kind::row;
        if (!isList || block.kind != last) out.line();
        printBlock(out, block);
        last = block.kind;
    }
    printChanges(out, stored);
    if (!stored.article.links.empty()) {
        out.line();
        out.line(out.bold("Links"));
    }
    for (const auto& link : stored.article.links) {
        out.line(printable(link.text) + "  " + linkText(link.url));
    }
    for (const auto& credit : creditsIn(session, story, stored.article)) {
        out.line("Credits " + printable(credit.name));
    }
}

void printArticleJSON(Session& session, const StoredArticle& stored, const kit::Story& story) {
    auto object = kit::encode(stored.article).get_object();
    object["story"] = stored.storyID;
    object["url"] = kit::maskedLogins(stored.url);
    object["fetchedAt"] = kit::encode(stored.fetchedAt);
    object["credits"] = kit::encode(creditsIn(session, story, stored.article));
    if (stored.earlierAt) {
        object["earlierAt"] = kit::encode(*stored.earlierAt);
        auto& changes = object["changes"].emplace_array();
        for (const auto& change :
             kit::comparePages(stored.earlier, stored.article.blocks).changes) {
            changes.push_back({{"kind", kit::rawValue(change.kind)},
                               {"words", change.words},
                               {"sentence", change.sentence}});
        }
    }
    session.out().line(boost::json::serialize(object));
}

StoredArticle articleOf(Session& session, const TextOptions& options, const kit::Story& story,
                        std::optional<kit::CurlTransport::Options> network) {
    if (!network) {
        auto stored = session.storeForReading().articles().find(story.id);
        if (!stored) {
            throw WorkFailed("No text of this story is stored. brell text " + *options.id +
                             " fetches it.");
        }
        return std::move(*stored);
    }
    const auto address = story.articleLink.value_or(story.link);
    const auto article = fetchedArticle(std::move(*network), address);
    const auto site = siteOf(session, story);
    return session.storing([&](app::LocalStore& store) {
        app::storeArticle(store, story, site, article, session.now());
        return store.articles().find(story.id).value();
    });
}

/// Lists the stories whose stored text has the words.
int runTextSearch(Session& session, const std::vector<std::string>& words) {
    auto& store = session.storeForReading();
    boost::json::array list;
    for (const auto& id : store.articles().search(words)) {
        for (const auto& stored : store.stories().findByID(id, 1)) {
            if (session.options().json) {
                list.push_back(storyRecord(stored));
            } else {
                session.out().line(wireLine(session.out(), stored, session.now()));
            }
        }
    }
    if (session.options().json) session.out().line(boost::json::serialize(list));
    return kDone;
}

int runText(Session& session, const TextOptions& options) {
    if (options.id.has_value() != options.words.empty()) {
        throw WrongUsage("Give either the id of a story or --search with words.");
    }
    if (!options.words.empty()) return runTextSearch(session, options.words);
    std::optional<kit::CurlTransport::Options> network;
    if (!options.isStored) network = session.network();
    if (network) session.store();
    const auto story = storyNamed(session.storeForReading(), *options.id).story;
    const auto stored = articleOf(session, options, story, std::move(network));
    session.options().json ? printArticleJSON(session, stored, story)
                           : printArticle(session, stored, story);
    return kDone;
}

}  // namespace

void addTextCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<TextOptions>();
    auto command = app.subcommand("text", "Fetch a story's page and show the text of the article");
    command.option("ID", options->id, "The story's id or its beginning, as brell wire shows it");
    command.flag("--stored", options->isStored, "Show the text as it was last fetched");
    command.option("--search", options->words, "List stories whose stored text has these words");
    command.footer(
        "Texts are kept for 30 days. When a page has changed since it was fetched before, the "
        "changes follow the text.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runText(session, *options); };
    });
}

}  // namespace cli
