#include "Tarnwick_Brell/Window/PictureImages.h"

#include <memory>
#include <mutex>

#include <QImage>
#include <QQuickTextureFactory>

#include "Tarnwick_Brell/Pictures/PictureID.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"

namespace app {

namespace {

QImage nothing() {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// Lives on the engine's thread for images. The engine may delete it while the loader works.
class PictureResponse : public QQuickImageResponse {
public:
    PictureResponse(PictureLoader& loader, std::string address, PictureShape shape)
        : loader_(loader), link_(std::make_shared<Link>()) {
        link_->response = this;
        ticket_ = loader.load(std::move(address), shape, [link = link_](const QImage& image) {
            const std::lock_guard lock(link->mutex);
            link->image = image;
            // Not before the engine listens, which it does once this object has been returned.
            if (link->response) {
                QMetaObject::invokeMethod(link->response, &QQuickImageResponse::finished,
                                          Qt::QueuedConnection);
            }
        });
    }
    ~PictureResponse() override {
        const std::lock_guard lock(link_->mutex);
        link_->response = nullptr;
    }

    QQuickTextureFactory* textureFactory() const override {
        const std::lock_guard lock(link_->mutex);
        return QQuickTextureFactory::textureFactoryForImage(link_->image.isNull() ? nothing()
                                                                                  : link_->image);
    }
    void cancel() override { loader_.cancel(ticket_); }

private:
    /// Shared with the loader, which may outlive the response.
    struct Link {
        std::mutex mutex;
        PictureResponse* response = nullptr;
        QImage image{};
    };

    PictureLoader& loader_;
    std::shared_ptr<Link> link_;
    PictureLoader::Ticket ticket_ = 0;
};

}  // namespace

QQuickImageResponse* PictureImages::requestImageResponse(const QString& id,
                                                         const QSize& requestedSize) {
    const auto slash = id.indexOf(u'/');
    const PictureShape shape{.size = requestedSize, .corner = id.left(slash).toDouble()};
    return new PictureResponse(loader_, pictureAddressOf(id.mid(slash + 1)), shape);
}

}  // namespace app
