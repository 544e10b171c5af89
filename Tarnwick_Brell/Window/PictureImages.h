#pragma once

#include <QQuickAsyncImageProvider>
#include <QString>

namespace app {

class PictureLoader;

/// Pictures for "image://picture/CORNER/ID" at the requested size, which Qt Quick gives in device
/// pixels: ID is a pictureID, CORNER the radius of the corners as a share of the width.
///
/// A picture that can't be had is a single transparent pixel and no error, which Qt would print.
class PictureImages : public QQuickAsyncImageProvider {
public:
    /// The loader must outlive the engine that owns this object.
    explicit PictureImages(PictureLoader& loader) : loader_(loader) {}

    QQuickImageResponse* requestImageResponse(const QString& id,
                                              const QSize& requestedSize) override;

private:
    PictureLoader& loader_;
};

}  // namespace app
