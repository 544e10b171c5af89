#pragma once

#include <QQuickImageProvider>
#include <QString>

namespace app {

/// Draws icons for "image://symbol/NAME/COLOUR" (RRGGBB or AARRGGBB) at the requested size, which
/// Qt Quick gives in device pixels and caches by address and size.
class SymbolImages : public QQuickImageProvider {
public:
    static constexpr const char* kFallback = "square.grid.2x2";

    SymbolImages();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    static bool has(const QString& name);
};

}  // namespace app
