#pragma once

#include <QQuickImageProvider>
#include <QString>

namespace app {

/// Draws the shadow of a box for "image://shadow/WIDTHxHEIGHT"; the picture reaches
/// `kExtent` beyond the box on each side.
class ShadowImages : public QQuickImageProvider {
public:
    static constexpr int kExtent = 64;

    ShadowImages();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}  // namespace app
