#include "Tarnwick_Brell/Models/Window/FindInPage.h"

#include <algorithm>
#include <chrono>

#include <QLocale>

#include "NewsroomKit/Queries/TermMarks.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

/// Between two frames, with room for the frame itself.
constexpr auto kFindBudget = 4ms;
/// The clock is asked once in so many rows.
constexpr int kRowsAtOnce = 64;
/// What changes a page often changes it several times.
constexpr auto kPageRest = 250ms;

}  // namespace

FindInPage::FindInPage(QObject* parent) : QObject(parent) {
    slices_.setSingleShot(true);
    connect(&slices_, &QTimer::timeout, this, &FindInPage::searchSlice);
    rest_.setSingleShot(true);
    rest_.setInterval(kPageRest);
    connect(&rest_, &QTimer::timeout, this, [this] {
        isStill_ = true;
        begin();
    });
}

void FindInPage::open() {
    isOpen_ = true;
    isStill_ = false;
    begin();
}

void FindInPage::close() {
    isOpen_ = false;
    rest_.stop();
    clearMatches();
    parts_.clear();
    emit changed();
}

void FindInPage::setText(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    phrase_.reset();
    finder_.reset();
    kit::PhraseMatcher phrase(text.toStdString());
    // Also inside words, which are still being typed.
    phrase.storage = kit::PhraseMatcher::Plain{phrase.phrase};
    if (!phrase.phrase.empty()) {
        phrase_ = std::make_unique<kit::PhraseMatcher>(std::move(phrase));
        finder_ = std::make_unique<kit::TermFinder>(std::span(phrase_.get(), 1),
                                                    std::span<const kit::PhraseMatcher>());
    }
    isStill_ = false;
    begin();
}

void FindInPage::clearMatches() {
    slices_.stop();
    matches_.clear();
    current_ = 0;
    hasShown_ = false;
}

void FindInPage::begin() {
    if (!isOpen_) return;
    rest_.stop();
    const auto before = hasShown_ ? matches_[current_] : Place{.part = -1};
    clearMatches();
    emit partsWanted();
    next_ = {};
    from_ = before.part >= 0 && before.part < std::ssize(parts_) ? before : Place{};
    for (int part = from_.part; part < std::ssize(parts_); ++part) {
        const int chosen = parts_[static_cast<std::size_t>(part)].chosen;
        if (chosen >= 0) from_ = {part, chosen};
        if (chosen >= 0 || before.part >= 0) break;
    }
    if (finder_) searchSlice();
    emit changed();
}

void FindInPage::searchSlice() {
    const auto end = std::chrono::steady_clock::now() + kFindBudget;
    bool goesOn = true;
    while (goesOn && std::chrono::steady_clock::now() < end) {
        for (int row = 0; goesOn && row < kRowsAtOnce; ++row) goesOn = searchRow();
    }
    if (goesOn) {
        slices_.start(0);
    } else if (!hasShown_ && hasMatches()) {
        show(0);
    }
    emit changed();
}

/// False when everything has been searched.
bool FindInPage::searchRow() {
    if (next_.part >= std::ssize(parts_)) return false;
    const auto& part = parts_[static_cast<std::size_t>(next_.part)];
    if (next_.row >= part.rows()) {
        next_ = {next_.part + 1, 0};
        return true;
    }
    if (part.mentions(*finder_, next_.row)) {
        matches_.push_back(next_);
        if (!hasShown_ && next_ >= from_) show(matches_.size() - 1);
    }
    ++next_.row;
    return true;
}

void FindInPage::show(std::size_t match) {
    current_ = match;
    hasShown_ = true;
    if (!isStill_) {
        const auto [part, row] = matches_[match];
        parts_[static_cast<std::size_t>(part)].show(row);
        emit shown();
    }
    isStill_ = false;
}

void FindInPage::step(int by) {
    if (matches_.empty()) return;
    const auto count = std::ssize(matches_);
    const auto wanted = (static_cast<std::ptrdiff_t>(current_) + by) % count;
    isStill_ = false;
    show(static_cast<std::size_t>(wanted < 0 ? wanted + count : wanted));
    emit changed();
}

QString FindInPage::summary() const {
    if (!isOpen_ || !finder_) return {};
    const QLocale locale;
    const bool goesOn = slices_.isActive();
    if (matches_.empty()) return goesOn ? tr("Searching…") : tr("No matches");
    const auto place = locale.toString(static_cast<qlonglong>(hasShown_ ? current_ + 1 : 0));
    const auto count = locale.toString(static_cast<qlonglong>(matches_.size()));
    return goesOn ? tr("%1 of %2…").arg(place, count) : tr("%1 of %2").arg(place, count);
}

std::vector<std::pair<int, int>> FindInPage::ranges(const QString& shown) const {
    std::vector<std::pair<int, int>> ranges;
    if (!isOpen_ || !finder_) return ranges;
    const auto utf8 = shown.toStdString();
    if (!finder_->admits(utf8, {})) return ranges;
    const auto place = [&](std::size_t bytes) {
        return static_cast<int>(plainText(std::string_view(utf8).substr(0, bytes)).size());
    };
    for (const auto& [begin, end] : kit::termMarks({phrase_.get(), 1}, utf8, {}).title)
        ranges.emplace_back(place(begin), place(end) - place(begin));
    return ranges;
}

void FindInPage::pageChanged() {
    if (isOpen_ && !rest_.isActive()) rest_.start();
}

}  // namespace app
