#pragma once

#include <QList>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Interface/Panels/PaintedLine.h"

namespace app {

/// Ranks over days, one level a day: 0 at the top, 1 at the bottom. A negative level is a day
/// without a rank, where the line ends; a day alone is a dot.
class RankCurve : public app::PaintedLine {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<double> levels READ levels WRITE setLevels NOTIFY changed)

public:
    using PaintedLine::PaintedLine;

    const QList<double>& levels() const { return levels_; }
    void setLevels(const QList<double>& levels) { set(levels_, levels); }

    void paint(QPainter* painter) override;

private:
    QList<double> levels_;
};

}  // namespace app
