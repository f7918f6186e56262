#include "helpers/ControlGizmo.h"

#include <array>
#include <memory>
#include <string>

#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/ObjectDisplay.h"

namespace zorvanta {

using namespace host;

namespace {

// One command mode of the control levels: the host tells the tool by its class.
class ControlMode : public CommandMode {
public:
    explicit ControlMode(int modeClass) : class_(modeClass) {}
    int Class() override { return class_; }

private:
    int class_;
};

enum ModeSlot { kMoveMode, kRotateMode, kScaleMode, kUScaleMode, kSquashMode, kSelectMode };
constexpr int kModeClasses[] = {MOVE_COMMAND,   ROTATE_COMMAND, SCALE_COMMAND,
                                USCALE_COMMAND, SQUASH_COMMAND, SELECT_COMMAND};
std::array<std::unique_ptr<ControlMode>, std::size(kModeClasses)> gModes;

}  // namespace

ISubObjType* ControlSubObjType(int i) {
    // The names are kept: the string table's buffer is overwritten by the next lookup.
    static std::wstring gizmo = GetString(IDS_GIZMO);
    static std::wstring selector = GetString(IDS_SELECTOR_POLYGON);
    static GenSubObjType gizmoType(gizmo.c_str());
    static GenSubObjType selectorType(selector.c_str());
    if (i == 0) return &gizmoType;
    return i == 1 ? &selectorType : nullptr;
}

void MakeControlModes() {
    for (size_t i = 0; i < gModes.size(); ++i)
        if (!gModes[i]) gModes[i] = std::make_unique<ControlMode>(kModeClasses[i]);
}

void DropControlModes() {
    for (auto& mode : gModes) mode.reset();
}

XFormModes ControlLevelModes(int level) {
    if (level == kGizmoLevel)
        return {gModes[kMoveMode].get(),   gModes[kRotateMode].get(), gModes[kScaleMode].get(),
                gModes[kUScaleMode].get(), gModes[kSquashMode].get(), nullptr};
    if (level == kSelectorLevel)
        return {nullptr, nullptr, nullptr, nullptr, nullptr, gModes[kSelectMode].get()};
    return {};
}

void DrawGizmoMarker(GraphicsWindow* gw, const Matrix3& objectTM) {
    gw->setTransform(objectTM);
    gw->setColor(LINE_COLOR, GetUIColor(COLOR_GIZMOS));
    gw->setColor(MARKER_COLOR, GetUIColor(COLOR_GIZMOS));
    gw->marker(&Point3::Origin, SM_HOLLOW_BOX_MRKR);
}

Matrix3 MovedGizmo(const Matrix3& gizmo, const Matrix3& partm, const Matrix3& tmAxis,
                   const Point3& val) {
    const Matrix3 axes = partm * Inverse(tmAxis);
    Matrix3 g = gizmo * axes;
    g.Translate(val);
    return g * Inverse(axes);
}

Matrix3 RotatedGizmo(const Matrix3& gizmo, const Matrix3& partm, const Matrix3& tmAxis,
                     const Quat& val, bool faceCamera) {
    Matrix3 turn;
    val.MakeMatrix(turn);
    if (faceCamera) return gizmo * turn;
    const Matrix3 axes = partm * Inverse(tmAxis);
    return gizmo * axes * turn * Inverse(axes);
}

Matrix3 ScaledGizmo(const Matrix3& gizmo, const Matrix3& partm, const Matrix3& tmAxis,
                    const Point3& val, bool faceCamera) {
    Matrix3 g = gizmo;
    if (faceCamera) {
        g.PreScale(val);
        return g;
    }
    const Matrix3 axes = partm * Inverse(tmAxis);
    g = g * axes;
    g.Scale(val, true);
    return g * Inverse(axes);
}

}  // namespace zorvanta
