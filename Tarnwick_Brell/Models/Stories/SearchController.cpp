#include "Tarnwick_Brell/Models/Stories/SearchController.h"

#include "Tarnwick_Brell/Desk/NewsDesk.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMostFound = 2000;
constexpr auto kTypingPause = 60ms;

}  // namespace

SearchController::SearchController(NewsDesk& desk, QObject* parent) : QObject(parent), desk_(desk) {
    typing_.setSingleShot(true);
    typing_.setInterval(kTypingPause);
    connect(&typing_, &QTimer::timeout, this, &SearchController::search);
    connect(&desk, &NewsDesk::passEnded, this, &SearchController::search);
}

void SearchController::setText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    if (isActive()) {
        typing_.start();
    } else {
        typing_.stop();
        answeredText_.clear();
        emit ended();
    }
    emit textChanged();
}

void SearchController::clear() {
    typing_.stop();
    text_.clear();
    answeredText_.clear();
    emit textChanged();
}

void SearchController::search() {
    if (!isActive()) return;
    desk_.search(text_.toStdString(), kMostFound,
                 [this, asked = text_](const std::vector<std::int64_t>& found) {
                     if (asked != text_) return;
                     const bool isRepeated = isAnswered();
                     answeredText_ = text_;
                     found_ = found;
                     emit answered(isRepeated);
                 });
}

}  // namespace app
