#include "Tarnwick_Brell/Interface/Controls/SymbolImages.h"

#include <gtest/gtest.h>

#include <QImage>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace {

QImage drawn(const QString& id, int extent) {
    QSize size;
    return app::SymbolImages().requestImage(id, &size, QSize(extent, extent));
}

QString named(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

TEST(SymbolImages, HaveADrawingForEverySymbolOfPanelKindsAndNewsrooms) {
    const auto fallback = drawn("square.grid.2x2/000000", 32);
    for (const auto& row : kit::enumTable<kit::PanelKind>) {
        EXPECT_TRUE(app::SymbolImages::has(named(row.symbol))) << row.symbol;
        EXPECT_NE(drawn(named(row.symbol) + "/000000", 32), fallback) << row.symbol;
    }
    for (const auto symbol : kit::NewsroomSymbols::all) {
        EXPECT_TRUE(app::SymbolImages::has(named(symbol))) << symbol;
    }
}

TEST(SymbolImages, DrawInTheColourAndSizeAskedForWithItsTransparency) {
    const auto plus = drawn("plus/5044C2", 33);
    EXPECT_EQ(plus.size(), QSize(33, 33));
    EXPECT_EQ(plus.pixelColor(16, 16), QColor("#5044C2"));
    EXPECT_EQ(plus.pixelColor(1, 1).alpha(), 0);
    EXPECT_NEAR(drawn("plus/80FF0000", 33).pixelColor(16, 16).alpha(), 0x80, 1);
}

TEST(SymbolImages, ShowTheFallbackForNamesWithoutADrawing) {
    const auto fallback = drawn("square.grid.2x2/000000", 16);
    for (const auto* id : {"star/000000", "../plus/000000", "/000000", "star", ""}) {
        EXPECT_EQ(drawn(id, 16), fallback) << id;
    }
}

}  // namespace
