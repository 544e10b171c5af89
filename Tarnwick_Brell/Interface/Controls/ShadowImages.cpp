#include "Tarnwick_Brell/Interface/Controls/ShadowImages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <QImage>

namespace app {

namespace {

struct Layer {
    double down;   ///< vertical offset of the shadow
    double blur;   ///< twice the standard deviation
    double black;  ///< greatest opacity
};
constexpr std::array<Layer, 2> kLayers{{{16, 48, 0.18}, {2, 8, 0.10}}};

constexpr int kLargestBox = 4096;

/// The darkness of a blurred bar from `from` to `to` at each pixel. The corners of the box are much
/// smaller than the blur, so the shadow is the product of two of these.
std::vector<double> blurredBar(int pixels, double from, double to, double blur) {
    const double scale = 1.0 / (blur / 2 * std::sqrt(2.0));
    std::vector<double> bar;
    for (int i = 0; i < pixels; ++i) {
        const double at = i + 0.5;
        bar.push_back((std::erf((at - from) * scale) - std::erf((at - to) * scale)) / 2);
    }
    return bar;
}

QImage shadowOf(int width, int height) {
    constexpr int extent = ShadowImages::kExtent;
    QImage image(width + 2 * extent, height + 2 * extent, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (const auto& layer : kLayers) {
        const auto across = blurredBar(image.width(), extent, extent + width, layer.blur);
        const auto down = blurredBar(image.height(), extent + layer.down,
                                     extent + layer.down + height, layer.blur);
        for (int y = 0; y < image.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const double black = layer.black * across[std::size_t(x)] * down[std::size_t(y)];
                const double below = qAlpha(line[x]) / 255.0;
                const double both = black + below * (1 - black);
                line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(both * 255)));
            }
        }
    }
    return image;
}

}  // namespace

ShadowImages::ShadowImages() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage ShadowImages::requestImage(const QString& id, QSize* size, const QSize&) {
    const auto by = id.indexOf('x');
    const auto extent = [](const QString& text) {
        return std::clamp(text.toInt(), 1, kLargestBox);
    };
    const auto image = shadowOf(extent(id.left(by)), extent(id.mid(by + 1)));
    *size = image.size();
    return image;
}

}  // namespace app
