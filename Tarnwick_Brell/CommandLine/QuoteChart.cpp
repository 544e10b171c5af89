#include "Tarnwick_Brell/CommandLine/QuoteChart.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Trackers/Market/QuotePlaces.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::Instant;
using kit::StockQuote;

constexpr std::size_t kRows = 8;
constexpr std::size_t kWidest = 100;
constexpr std::size_t kNarrowest = 16;
constexpr std::size_t kDotsAcross = 2;  // of a character
constexpr std::size_t kDotsDown = 4;

/// Dots in a grid of Braille characters, counted from the upper left.
class Canvas {
public:
    explicit Canvas(std::size_t columns) : columns_(columns), cells_(columns * kRows) {}

    std::size_t width() const { return columns_ * kDotsAcross; }
    static constexpr std::size_t height() { return kRows * kDotsDown; }

    void set(std::size_t x, std::size_t y) {
        // The order of the dots in U+2800 to U+28FF.
        constexpr unsigned dots[kDotsDown][kDotsAcross] = {
            {0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
        cells_[y / kDotsDown * columns_ + x / kDotsAcross] |= dots[y % kDotsDown][x % kDotsAcross];
    }

    std::string row(std::size_t number) const {
        std::string text;
        for (std::size_t i = 0; i < columns_; ++i) {
            const auto dots = cells_[number * columns_ + i];
            // U+2800 + dots, in UTF-8.
            if (dots == 0) {
                text += ' ';
            } else {
                text += {'\xE2', static_cast<char>(0xA0 | dots >> 6U),
                         static_cast<char>(0x80 | (dots & 0x3FU))};
            }
        }
        return text;
    }

private:
    std::size_t columns_;
    std::vector<unsigned> cells_;
};

struct Scale {
    double low;
    double high;

    std::size_t dot(double price) const {
        const double share = (high - price) / (high - low);
        // A flat line, and numbers beyond what can be divided, stand in the middle.
        if (!(share >= 0 && share <= 1)) return Canvas::height() / 2;
        return static_cast<std::size_t>(std::lround(share * (Canvas::height() - 1)));
    }
};

bool isOneDay(const StockQuote& quote) { return quote.range == rawValue(kit::QuoteRange::day); }

void drawReference(Canvas& canvas, const Scale& scale, double price) {
    for (std::size_t x = 0; x < canvas.width(); x += 4) canvas.set(x, scale.dot(price));
}

/// Straight from point to point. Each column of dots shows all that happens in it, so that no
/// peak is lost and steep pieces have no gaps.
void drawCurve(Canvas& canvas, const Scale& scale, const StockQuote& quote) {
    const auto lastX = static_cast<double>(canvas.width() - 1);
    const auto at = kit::pointPlaces(quote);
    for (std::size_t i = 1; i < at.size(); ++i) {
        const double fromX = at[i - 1] * lastX, toX = at[i] * lastX;
        const double from = quote.points[i - 1].close, to = quote.points[i].close;
        auto previous = scale.dot(from);
        const auto end = static_cast<std::size_t>(std::lround(toX));
        for (auto x = static_cast<std::size_t>(std::lround(fromX)); x <= end; ++x) {
            const double share =
                toX > fromX ? std::clamp((static_cast<double>(x) - fromX) / (toX - fromX), 0.0, 1.0)
                            : 1;
            const auto y = x == end ? scale.dot(to) : scale.dot(from + (to - from) * share);
            for (auto dot = std::min(previous, y); dot <= std::max(previous, y); ++dot) {
                canvas.set(x, dot);
            }
            previous = y;
        }
    }
}

/// The left and the right end of the axis, as far apart as the curve is wide.
std::string axis(const StockQuote& quote, std::size_t columns) {
    const auto& first = quote.points.front().time;
    const auto& last = quote.points.back().time;
    const auto left = isOneDay(quote) ? momentText(first) : dayText(first);
    const auto right = !isOneDay(quote)
                           ? dayText(last)
                           : clockText(kit::isWithinSession(quote) ? *quote.sessionClose : last);
    const auto used = left.size() + right.size();
    if (used + 1 > columns) return cutTo(left, columns);
    return left + std::string(columns - used, ' ') + right;
}

}  // namespace

std::vector<std::string> quoteChart(StockQuote quote, std::size_t width) {
    const auto reference = kit::referenceOf(quote);
    quote.points = kit::pricedPoints(std::move(quote.points));
    if (quote.points.size() < 2) return {};
    const auto [lowest, highest] = std::ranges::minmax(quote.points, {}, &StockQuote::Point::close);
    Scale scale{lowest.close, highest.close};
    if (reference) {
        scale.low = std::min(scale.low, *reference);
        scale.high = std::max(scale.high, *reference);
    }
    const auto top = priceText(scale.high), bottom = priceText(scale.low);
    const auto labels = std::max(top.size(), bottom.size());
    const auto left = labels + 3;
    width = std::min(width, kWidest);
    if (width < left + kNarrowest) return {};

    Canvas canvas(width - left);
    if (reference) drawReference(canvas, scale, *reference);
    drawCurve(canvas, scale, quote);
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < kRows; ++row) {
        const std::string label = row == 0 ? top : row + 1 == kRows ? bottom : std::string();
        auto line = fmt::format("{:>{}} {} ", label, labels, label.empty() ? "│" : "┤");
        line += canvas.row(row);
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
    }
    lines.push_back(std::string(left, ' ') + axis(quote, canvas.width() / kDotsAcross));
    return lines;
}

}  // namespace cli
