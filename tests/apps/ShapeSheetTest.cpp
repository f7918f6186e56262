// The sheet of every control shape: examples/shape_sheet.trx lays the catalogue out in
// a grid of seven columns, and zorvanta render draws it from the top. Each of the 43
// cells must hold a drawing, in a fresh render and in the committed picture. The same
// sheet of control shape objects (splines) draws every cell but the IKFK glyph's.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

constexpr int kShapes = 43, kColumns = 7, kRows = 7;
// The layout of the script, in world units: the pitch of the cells and how far the
// outermost outlines reach past the outermost cell centres (half the shapes' size).
constexpr float kPitch = 40.0f, kReach = 12.0f;

// Which of the 43 cells have a pixel unlike the background in their middle, as a mask.
uint64_t CellsDrawnMask(const QImage& image) {
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
    uint64_t drawn = 0;
    for (int i = 0; i < kShapes; ++i) {
        const float cx = float(left) + (kReach + kPitch * float(i % kColumns)) * sx;
        const float cy = float(top) + (kReach + kPitch * float(i / kColumns)) * sy;
        const int hx = int(0.4f * kPitch * sx), hy = int(0.4f * kPitch * sy);
        bool found = false;
        for (int y = int(cy) - hy; y <= int(cy) + hy && !found; ++y)
            for (int x = int(cx) - hx; x <= int(cx) + hx && !found; ++x)
                found = image.valid(x, y) && image.pixel(x, y) != background;
        if (found) drawn |= uint64_t(1) << i;
    }
    return drawn;
}

int CellsDrawn(const QImage& image) {
    return std::popcount(CellsDrawnMask(image));
}

// The picture of the scene that script makes, rendered from the top by the tool.
QImage RenderScript(const std::string& script) {
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("zv-sheet-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string scene = (dir / "shapes.tnx").string(), png = (dir / "shapes.png").string();
    const std::string cli = std::string("\"") + ZV_CLI + "\" ";
    const std::string run = cli + "run \"" + script + "\" --save \"" + scene + "\" >/dev/null";
    const std::string render = cli + "render \"" + scene + "\" --view top --size 700x700 --out \"" +
                               png + "\" 2>/dev/null";
    EXPECT_EQ(std::system(run.c_str()), 0) << run;
    EXPECT_EQ(std::system(render.c_str()), 0) << render;
    QImage image(QString::fromStdString(png));
    std::filesystem::remove_all(dir);
    return image;
}

TEST(ShapeSheet, EveryCellOfTheCatalogueIsDrawn) {
    static_assert(kRows * kColumns >= kShapes);
    const QImage fresh = RenderScript(ZV_SHAPE_SCRIPT);
    ASSERT_FALSE(fresh.isNull());
    EXPECT_EQ(CellsDrawn(fresh), kShapes);

    const QImage committed(ZV_SHAPE_SHEET);
    ASSERT_FALSE(committed.isNull()) << ZV_SHAPE_SHEET;
    EXPECT_EQ(committed.size(), fresh.size());
    EXPECT_EQ(CellsDrawn(committed), kShapes);
}

TEST(ShapeSheet, ControlShapesDrawEveryCellButIKFK) {
    const QImage sheet = RenderScript(ZV_CONTROL_SHAPE_SCRIPT);
    ASSERT_FALSE(sheet.isNull());
    constexpr int kIKFK = 37;
    const uint64_t all = (uint64_t(1) << kShapes) - 1;
    EXPECT_EQ(CellsDrawnMask(sheet), all & ~(uint64_t(1) << kIKFK));
}

}  // namespace
