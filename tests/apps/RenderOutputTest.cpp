// zorvanta render, run as users run it, checked against the outlines that the scene's
// objects draw: the picture must show each line in its node's colour where the view
// puts it, and the background everywhere else.
#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

#include "host/classes/HostClasses.h"
#include "host/io/SceneFile.h"
#include "host/object/Interface.h"
#include "host/object/ObjectDisplay.h"
#include "host/viewport/RecordingGraphicsWindow.h"
#include "host/viewport/SceneView.h"
#include "host/viewport/Viewport.h"

namespace host {
namespace {

constexpr int kWidth = 320, kHeight = 240;

QRgb ToRgb(const Point3& c) {
    return qRgb(int(std::lround(c.x * 255)), int(std::lround(c.y * 255)),
                int(std::lround(c.z * 255)));
}

// Whether the colour is on a pixel within one of (x, y).
bool ColourNear(const QImage& image, float x, float y, QRgb colour) {
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            const int px = int(std::floor(x)) + dx, py = int(std::floor(y)) + dy;
            if (image.valid(px, py) && (image.pixel(px, py) & 0xFFFFFF) == (colour & 0xFFFFFF))
                return true;
        }
    return false;
}

float DistanceToLine(float x, float y, const GWLine& line) {
    const Point3 a = line.window[0], b = line.window[1];
    const float dx = b.x - a.x, dy = b.y - a.y, len2 = dx * dx + dy * dy;
    const float u = len2 > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / len2, 0.0f, 1.0f) : 0;
    return std::hypot(a.x + dx * u - x, a.y + dy * u - y);
}

TEST(RenderCommand, SampleSceneShowsItsOutlines) {
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("zv-render-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string png = (dir / "front.png").string();
    const std::string command = std::string("\"") + ZV_CLI + "\" render \"" + ZV_SAMPLE_SCENE +
                                "\" --view front --size 320x240 --out \"" + png + "\" 2>/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    const QImage image(QString::fromStdString(png));
    std::filesystem::remove_all(dir);
    ASSERT_FALSE(image.isNull()) << "the PNG decodes";
    ASSERT_EQ(image.width(), kWidth);
    ASSERT_EQ(image.height(), kHeight);

    // The outlines as the objects draw them at the scene's time, in the same view.
    StartHost();
    Interface* ip = GetCOREInterface();
    std::string error;
    ASSERT_TRUE(LoadSceneFile(ZV_SAMPLE_SCENE, *ip, error)) << error;
    RecordingGraphicsWindow outlines(kWidth, kHeight);
    Viewport view(outlines, VIEW_FRONT);
    view.ZoomExtents(SceneBounds(*ip, ip->GetTime()));
    DrawScene(*ip, view, ip->GetTime());
    ip->Reset();
    ASSERT_GT(outlines.Lines().size(), 20u);

    // Every colour of the scene shows on its lines: selected nodes white, the tail in
    // its wire colour, the spine in the default grey. Lines drawn over by later ones
    // may lose their middle, but hardly any.
    std::set<QRgb> coloursSeen;
    size_t missing = 0;
    for (const GWLine& line : outlines.Lines()) {
        const Point3 mid = (line.window[0] + line.window[1]) * 0.5f;
        if (ColourNear(image, mid.x, mid.y, ToRgb(line.color)))
            coloursSeen.insert(ToRgb(line.color));
        else
            ++missing;
    }
    EXPECT_LE(missing, outlines.Lines().size() / 10);
    EXPECT_EQ(coloursSeen, (std::set<QRgb>{ToRgb(GetUIColor(COLOR_SELECTION)),
                                           ToRgb(ColorRefToPoint3(RGB(200, 40, 10))),
                                           ToRgb(ColorRefToPoint3(RGB(0x80, 0x80, 0x80)))}));

    // Away from every line, the background.
    const QRgb background = ToRgb(GetUIColor(COLOR_VIEWPORT_BKG));
    int checked = 0;
    for (int y = 2; y < kHeight; y += 6)
        for (int x = 2; x < kWidth; x += 6) {
            bool nearLine = false;
            for (const GWLine& line : outlines.Lines())
                nearLine = nearLine || DistanceToLine(float(x), float(y), line) < 3.0f;
            if (nearLine) continue;
            ++checked;
            ASSERT_EQ(image.pixel(x, y) & 0xFFFFFF, background & 0xFFFFFF) << x << ", " << y;
        }
    EXPECT_GT(checked, 1000);
}

}  // namespace
}  // namespace host
