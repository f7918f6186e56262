// The sheet of every control shape: examples/shape_sheet.trx lays the catalogue out in
// a grid of seven columns, and zorvanta render draws it from the top. Each of the 43
// cells must hold a drawing, in a fresh render and in the committed picture.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

constexpr int kShapes = 43, kColumns = 7, kRows = 7;
// The layout of the script, in world units: the pitch of the cells and how far the
// outermost outlines reach past the outermost cell centres (half the shapes' size).
constexpr float kPitch = 40.0f, kReach = 12.0f;

// How many of the 43 cells have a pixel unlike the background in their middle.
int CellsDrawn(const QImage& image) {
    const QRgb background = image.pixel(0, 0);
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != background) {
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
    if (right < 0) return 0;
    // Pixels a world unit, from the extent of the whole drawing.
    const float span = kPitch * (kColumns - 1) + 2 * kReach;
    const float sx = float(right - left) / span, sy = float(bottom - top) / span;
    int drawn = 0;
    for (int i = 0; i < kShapes; ++i) {
        const float cx = float(left) + (kReach + kPitch * float(i % kColumns)) * sx;
        const float cy = float(top) + (kReach + kPitch * float(i / kColumns)) * sy;
        const int hx = int(0.4f * kPitch * sx), hy = int(0.4f * kPitch * sy);
        bool found = false;
        for (int y = int(cy) - hy; y <= int(cy) + hy && !found; ++y)
            for (int x = int(cx) - hx; x <= int(cx) + hx && !found; ++x)
                found = image.valid(x, y) && image.pixel(x, y) != background;
        drawn += found ? 1 : 0;
    }
    return drawn;
}

TEST(ShapeSheet, EveryCellOfTheCatalogueIsDrawn) {
    static_assert(kRows * kColumns >= kShapes);
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("zv-sheet-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string scene = (dir / "shapes.tnx").string(), png = (dir / "shapes.png").string();
    const std::string cli = std::string("\"") + ZV_CLI + "\" ";
    const std::string run =
        cli + "run \"" + ZV_SHAPE_SCRIPT + "\" --save \"" + scene + "\" >/dev/null";
    const std::string render = cli + "render \"" + scene + "\" --view top --size 700x700 --out \"" +
                               png + "\" 2>/dev/null";
    ASSERT_EQ(std::system(run.c_str()), 0) << run;
    ASSERT_EQ(std::system(render.c_str()), 0) << render;
    const QImage fresh(QString::fromStdString(png));
    std::filesystem::remove_all(dir);
    ASSERT_FALSE(fresh.isNull());
    EXPECT_EQ(CellsDrawn(fresh), kShapes);

    const QImage committed(ZV_SHAPE_SHEET);
    ASSERT_FALSE(committed.isNull()) << ZV_SHAPE_SHEET;
    EXPECT_EQ(committed.size(), fresh.size());
    EXPECT_EQ(CellsDrawn(committed), kShapes);
}

}  // namespace
