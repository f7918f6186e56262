#include "host/object/Interface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "host/object/ILayerManager.h"
#include "host/object/Notifications.h"
#include "host/object/Object.h"
#include "host/object/PickMode.h"
#include "host/object/ViewExp.h"

namespace host {

Interface* GetCOREInterface() {
    static Interface core;
    return &core;
}

INode* Interface::CreateObjectNode(Object* obj, const wchar_t* name) {
    if (name) return scene_.CreateNode(obj, WStr(name));
    const WStr base = obj ? obj->GetClassName() : WStr(L"Node");
    return scene_.CreateNode(obj, scene_.UniqueName(base.Length() ? base : WStr(L"Node")));
}

void Interface::DeleteNode(INode* node, bool redraw, bool overrideSlaves) {
    INodeTab nodes;
    nodes.Append(1, &node);
    DeleteNodes(nodes, true, redraw, overrideSlaves);
}

int Interface::DeleteNodes(INodeTab& nodes, bool keepChildTM, bool redraw, bool) {
    const int deleted =
        scene_.DeleteNodes(std::vector<INode*>(nodes.begin(), nodes.end()), keepChildTM);
    Redraw(redraw && deleted > 0);
    return deleted;
}

INode* Interface::GetSelNode(int i) const {
    const auto& selection = scene_.Selection();
    return i >= 0 && i < int(selection.size()) ? selection[size_t(i)] : nullptr;
}

void Interface::SelectNode(INode* node, bool clearSel) {
    std::vector<INode*> next = clearSel ? std::vector<INode*>() : scene_.Selection();
    next.push_back(node);
    scene_.Select(std::move(next));
}

void Interface::SelectNodeTab(INodeTab& nodes, bool sel, bool redraw) {
    std::vector<INode*> next = scene_.Selection();
    for (INode* node : nodes)
        if (sel)
            next.push_back(node);
        else
            std::erase(next, node);
    scene_.Select(std::move(next));
    Redraw(redraw);
}

void Interface::ClearNodeSelection(bool redraw) {
    scene_.Select({});
    Redraw(redraw);
}

void Interface::SetTime(TimeValue t, bool redraw) {
    if (t == time_) return;
    time_ = t;
    // A copy: a callback may unregister itself or others; removed ones are skipped.
    const std::vector<TimeChangeCallback*> callbacks = timeCallbacks_;
    for (TimeChangeCallback* tc : callbacks)
        if (std::find(timeCallbacks_.begin(), timeCallbacks_.end(), tc) != timeCallbacks_.end())
            tc->TimeChanged(t);
    if (redraw) RedrawViews(t);
}

bool Interface::SetAnimRange(Interval range) {
    if (range.Empty() || range.End() < range.Start()) return false;
    range_ = range;
    return true;
}

bool Interface::SetFrameRate(int framesPerSecond) {
    if (framesPerSecond <= 0 || framesPerSecond > TIME_TICKSPERSEC ||
        TIME_TICKSPERSEC % framesPerSecond != 0)
        return false;
    frameRate_ = framesPerSecond;
    return true;
}

void Interface::RegisterTimeChangeCallback(TimeChangeCallback* tc) {
    if (tc && std::find(timeCallbacks_.begin(), timeCallbacks_.end(), tc) == timeCallbacks_.end())
        timeCallbacks_.push_back(tc);
}

void Interface::UnRegisterTimeChangeCallback(TimeChangeCallback* tc) {
    std::erase(timeCallbacks_, tc);
}

Matrix3 Interface::GetTransformAxis(INode* node, TimeValue t) {
    if (!node) return Matrix3();
    Matrix3 frame;
    switch (refCoordSys_) {
        case COORDS_LOCAL:
        case COORDS_GIMBAL:
            frame = node->GetNodeTM(t);
            break;
        case COORDS_PARENT:
            frame = node->GetParentTM(t);
            break;
        default:
            return Matrix3();
    }
    Matrix3 axes = RotationOf(frame);
    axes.SetTrans(frame.GetTrans());
    return axes;
}

void Interface::SetRefCoordSys(int coords) {
    if (coords >= COORDS_VIEW && coords <= COORDS_GIMBAL) refCoordSys_ = coords;
}

void Interface::SetCommandPanelTaskMode(int mode) {
    if (mode >= TASK_MODE_CREATE && mode <= TASK_MODE_UTILITY) taskMode_ = mode;
}

void Interface::EnableSceneRedraw() {
    if (redrawDisabled_ > 0) --redrawDisabled_;
}

bool Interface::SetGamma(bool on, float gamma) {
    if (!(gamma >= 0.1f && gamma <= 10.0f)) return false;
    gammaOn_ = on;
    gamma_ = gamma;
    return true;
}

Point3 Interface::GammaCorrect(const Point3& color) const {
    if (!gammaOn_) return color;
    Point3 out;
    for (int i = 0; i < 3; ++i) out[i] = std::pow(std::clamp(color[i], 0.0f, 1.0f), gamma_);
    return out;
}

void Interface::RedrawViews(TimeValue) {
    if (!IsSceneRedrawDisabled()) ++redraws_;
}

namespace {

// The view that stands in when the application has made none active.
class DeadView : public ViewExp {
public:
    bool IsAlive() override { return false; }
    GraphicsWindow* getGW() override { return nullptr; }
    void GetAffineTM(Matrix3& tm) override { tm.IdentityMatrix(); }
    int GetViewType() override { return VIEW_PERSP_USER; }
    bool IsPerspView() override { return false; }
    float GetFOV() override { return 0.0f; }
    int GetViewportWidth() override { return 0; }
    int GetViewportHeight() override { return 0; }
    float GetVPWorldWidth(const Point3&) override { return 0.0f; }
    Point3 GetPointOnCP(const IPoint2&) override { return {}; }
};

}  // namespace

ViewExp& Interface::GetActiveViewExp() {
    static DeadView dead;
    return activeView_ ? *activeView_ : dead;
}

void Interface::Print(const WStr& text) {
    listener_ += text;
}

void Interface::Reset() {
    BroadcastNotification(NOTIFY_SYSTEM_PRE_RESET);
    ClearPickMode();
    theHold.ClearUndo();
    scene_.Clear();
    if (layers_) layers_->Reset();
    AnimateOff();
    frameRate_ = 30;
    range_ = Interval(0, 100 * GetTicksPerFrame());
    SetTime(0, false);
    refCoordSys_ = COORDS_VIEW;
    taskMode_ = TASK_MODE_CREATE;
    quiet_ = false;
    redrawDisabled_ = 0;
    gammaOn_ = false;
    gamma_ = kDefaultGamma;
    status_ = StatusLine();
    ClearListener();
    BroadcastNotification(NOTIFY_SYSTEM_POST_RESET);
}

void Interface::SetPickMode(PickModeCallback* mode) {
    if (mode == pickMode_) return;
    if (PickModeCallback* old = std::exchange(pickMode_, nullptr)) old->ExitMode(this);
    pickMode_ = mode;
    if (mode) mode->EnterMode(this);
}

namespace {

// Hit-tests every node under parent that is shown, unfrozen and accepted, logging hits.
void HitTestNodes(INode* parent, TimeValue t, ViewExp& vpt, IPoint2& m, PickNodeCallback* filter) {
    for (int i = 0; i < parent->NumberOfChildren(); ++i) {
        INode* node = parent->GetChildNode(i);
        Object* object =
            node->IsHidden() || node->IsFrozen() ? nullptr : node->EvalWorldState(t).obj;
        if (object && (!filter || filter->Filter(node)) &&
            object->HitTest(t, node, HITTYPE_POINT, 0, 0, &m, &vpt))
            vpt.LogHit(node, nullptr, vpt.getGW()->getHitDistance(), 0, vpt.getGW()->getHitDepth());
        HitTestNodes(node, t, vpt, m, filter);
    }
}

}  // namespace

INode* Interface::PickNode(ViewExp& vpt, IPoint2 m, PickNodeCallback* filter) {
    vpt.ClearHitList();
    if (!vpt.IsAlive() || !vpt.getGW()) return nullptr;
    HitTestNodes(GetRootNode(), time_, vpt, m, filter);
    const HitRecord* closest = vpt.GetClosestHit();
    return closest ? closest->nodeRef : nullptr;
}

bool Interface::ClickInPickMode(ViewExp& vpt, IPoint2 m) {
    PickModeCallback* mode = pickMode_;
    if (!mode || !mode->HitTest(this, &vpt, m, 0)) return false;
    if (mode->Pick(this, &vpt) && pickMode_ == mode) ClearPickMode();
    return true;
}

}  // namespace host
