#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

namespace app {

/// A piece of a line; matches stand out.
struct MarkedPart {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isMatch MEMBER isMatch)

public:
    QString text{};
    bool isMatch = false;

    bool operator==(const MarkedPart&) const = default;
};

}  // namespace app
