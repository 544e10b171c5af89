#include "PressRoom/Pictures/Drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

namespace pressroom {
namespace {

struct Point {
    double x;
    double y;
};

struct Size {
    double width;
    double height;
};

/// A bitmap and the colours of what is drawn on it. Lengths are in pixels.
class Canvas {
public:
    Canvas(int width, int height)
        : bitmap_{width, height, std::vector<Colour>(static_cast<std::size_t>(width * height))} {}

    using Distance = std::function<double(Point)>;  ///< from the outline, negative inside
    using Ink = std::function<Colour(Point)>;

    void fill(const Distance& distance, const Ink& ink) {
        for (int y = 0; y < bitmap_.height; ++y) {
            for (int x = 0; x < bitmap_.width; ++x) {
                const Point at{x + 0.5, y + 0.5};
                const double cover = std::clamp(0.5 - distance(at), 0.0, 1.0);
                if (cover > 0) blend(x, y, ink(at), cover);
            }
        }
    }
    void fillAll(const Ink& ink) {
        fill([](Point) { return -1.0; }, ink);
    }

    Bitmap take() { return std::move(bitmap_); }

private:
    void blend(int x, int y, const Colour& ink, double cover) {
        auto& pixel = bitmap_.pixels[static_cast<std::size_t>(y * bitmap_.width + x)];
        for (std::size_t i = 0; i < 3; ++i) pixel[i] += (ink[i] - pixel[i]) * cover;
    }

    Bitmap bitmap_;
};

Canvas::Distance roundedBox(Point middle, Size size, double radius) {
    return [=](Point at) {
        const double x = std::abs(at.x - middle.x) - size.width / 2 + radius;
        const double y = std::abs(at.y - middle.y) - size.height / 2 + radius;
        return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) -
               radius;
    };
}

Canvas::Ink inked(Colour colour) {
    return [colour](Point) { return colour; };
}

Colour mixed(const Colour& a, const Colour& b, double share) {
    Colour result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = a[i] + (b[i] - a[i]) * std::clamp(share, 0.0, 1.0);
    return result;
}

/// A hue from 0 to 1, more or less bright and strong.
Colour coloured(double hue, double strength, double light) {
    Colour result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double wave = std::cos(6.2832 * (hue - static_cast<double>(i) / 3));
        result[i] = light + strength * wave / 2;
    }
    return result;
}

/// Numbers from 0 to 1 that depend on a name only.
class Dice {
public:
    explicit Dice(std::string_view name) {
        for (const char letter : name)
            state_ = (state_ ^ static_cast<unsigned char>(letter)) * 16'777'619;
    }
    double next() {
        state_ += 0x9e3779b9;
        auto mixed = (state_ ^ state_ >> 16) * 0x85ebca6b;
        mixed = (mixed ^ mixed >> 13) * 0xc2b2ae35;
        return static_cast<double>((mixed ^ mixed >> 16) >> 8) / (1 << 24);
    }

private:
    std::uint32_t state_ = 2'166'136'261;
};

/// The wallpaper of a screen: two colours and a wave between them.
Canvas::Ink wallpaper(Dice& dice, Point middle, Size size) {
    const double hue = dice.next();
    const double phase = dice.next() * 6;
    return [=](Point at) {
        const double x = (at.x - middle.x) / size.width;
        const double y = (at.y - middle.y) / size.height;
        const double wave = 0.13 * std::sin(x * 5 + phase) - 0.25 * x;
        const auto sky = coloured(hue, 0.3, 0.42 + 0.15 * y);
        return y > wave
                   ? mixed(coloured(hue + 0.1, 0.22, 0.66), coloured(hue + 0.35, 0.35, 0.78), y + x)
                   : sky;
    };
}

void drawScreen(Canvas& canvas, Dice& dice, Point middle, Size size, double radius, double frame) {
    canvas.fill(roundedBox(middle, size, radius), inked({0.12, 0.13, 0.15}));
    const Size screen{size.width - 2 * frame, size.height - 2 * frame};
    canvas.fill(roundedBox(middle, screen, std::max(radius - frame, 3.0)),
                wallpaper(dice, middle, screen));
}

void drawPhones(Canvas& canvas, Dice& dice) {
    for (const double x : {250.0, 390.0}) drawScreen(canvas, dice, {x, 182}, {126, 262}, 24, 7);
}

void drawLaptop(Canvas& canvas, Dice& dice) {
    drawScreen(canvas, dice, {320, 158}, {392, 250}, 14, 11);
    canvas.fill(roundedBox({320, 292}, {470, 18}, 7), inked({0.82, 0.83, 0.86}));
    canvas.fill(roundedBox({320, 286}, {74, 8}, 4), inked({0.66, 0.67, 0.71}));
}

void drawDisplay(Canvas& canvas, Dice& dice) {
    canvas.fill(roundedBox({320, 282}, {58, 70}, 4), inked({0.74, 0.75, 0.78}));
    canvas.fill(roundedBox({320, 316}, {150, 12}, 6), inked({0.82, 0.83, 0.86}));
    drawScreen(canvas, dice, {320, 152}, {320, 224}, 18, 10);
}

}  // namespace

Bitmap drawnDevice(std::string_view name) {
    Dice dice(name);
    Canvas canvas(640, 360);
    const double hue = dice.next();
    canvas.fillAll([=](Point at) {
        return at.y > 300 ? coloured(hue, 0.1, 0.52) : coloured(hue, 0.08, 0.8 - at.y / 2'000);
    });
    const auto file = name.substr(name.rfind('/') + 1);
    const auto names = [file](std::string_view word) { return file.find(word) != file.npos; };
    if (names("mbp") || names("mac")) {
        drawLaptop(canvas, dice);
    } else if (names("ios") || names("iphone")) {
        drawPhones(canvas, dice);
    } else {
        drawDisplay(canvas, dice);
    }
    return canvas.take();
}

Bitmap drawnIcon(std::string_view name) {
    Dice dice(name);
    Canvas canvas(100, 100);
    const double hue = dice.next();
    canvas.fillAll([=](Point at) { return coloured(hue, 0.55, 0.62 - at.y / 500); });
    const double size = 40 + 20 * dice.next();
    const double shape = dice.next();
    const auto outline = roundedBox({50, 50}, {size, size * (0.6 + 0.4 * dice.next())},
                                    shape < 0.5 ? size * 0.3 : 6);
    if (dice.next() < 0.5) {
        canvas.fill(outline, inked({1, 1, 1}));
    } else {
        canvas.fill([&](Point at) { return std::abs(outline(at)) - 5; }, inked({1, 1, 1}));
    }
    return canvas.take();
}

}  // namespace pressroom
