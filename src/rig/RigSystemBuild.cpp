// CreateRig and ResetRig: the start and the end of a build around the type's sequence
// of builders, as one undo step.
#include <algorithm>

#include "animationmanager/ManagerIds.h"
#include "controllers/RigControl.h"
#include "controllers/RigWalkers.h"
#include "frame/StringTable.h"
#include "helpers/HelperIds.h"
#include "host/object/Hold.h"
#include "host/object/IDerivedObject.h"
#include "host/object/INode.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/object/SubObject.h"
#include "rig/RigBuild.h"
#include "rig/RigBuilders.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

// The main control's look: catalogue shape 12 drawn flat, around the Z axis.
constexpr int kMainFirstShape = 5;
constexpr int kMainShape = 12;

// The panel's buttons that run a script on the panel's selected controls.
struct PanelAction {
    const wchar_t* label;
    Point2 position;
    const wchar_t* script;
};
const PanelAction kPanelActions[] = {
    {L"Add Key", {432, 35}, L"Zorvanta.activeUIPanel.AddControlsKey selected:true"},
    {L"Del Key", {432, 61}, L"Zorvanta.activeUIPanel.DeleteControlsKey selected:true"},
    {L"Reset", {432, 87}, L"Zorvanta.activeUIPanel.ResetControls selected:true"},
};
constexpr Point2 kPanelActionSize{59, 22};

void StartBuild(RigSystem& rig, RigBuild& b) {
    b.controlsLayer = b.GetOrCreateLayer(L"Controls");
    b.helpersLayer = b.GetOrCreateLayer(L"Helpers");
    b.bonesLayer = b.GetOrCreateLayer(L"Bones");
    rig.UpdateBounds(GetCOREInterface()->GetTime());
    // A template without points takes its helper size as its extent.
    const Box3& box = rig.PointsBox();
    b.size = box.IsEmpty() ? rig.HelperSize() : Length(box.Width());

    b.mainNode = b.NewControlShapeNode(Matrix3(), nullptr, kMainFirstShape, b.size * 0.5f, false,
                                       L"main", kSideCenter, -1, -1, 0, Point3(), 0, 2, 2);
    if (IParamBlock2* pb = RigBuild::ShapeBlock(b.mainNode)) {
        pb->SetValue(CH_UNIFORM, 0, 1);
        pb->SetValue(CH_WIDTH, 0, 0.0f);
        pb->SetValue(CH_HEIGHT, 0, 0.0f);
        pb->SetValue(CH_AXIS, 0, 2);
        pb->SetValue(CH_TYPE, 0, kMainShape);
    }
    b.bodyPanel = b.NewUIPanel(b.mainNode);
    b.posePanelKit = b.NewPoseKit(b.mainNode);
    b.rootNode = b.mainNode;
    if (b.pblock->GetInt(RIG_ROOT_BONE)) {
        const float width = b.size * 0.02f;
        INode* root = b.NewBone(Matrix3(), b.mainNode, width, width, false, L"root", kSideCenter,
                                -1, -1, true);
        if (root) b.rootNode = root;
    }
    if (!b.bodyPanel) return;
    for (const PanelAction& action : kPanelActions)
        PanelAddAction(b, action.position, kPanelActionSize, WStr(action.label),
                       WStr(action.script));
}

// The body panel's frame: pickers of the main and root controls, the group of all
// controls, visibility toggles and selection buttons of the three node lists.
void AddPanelFrame(RigBuild& b) {
    if (!b.bodyPanel) return;
    const Point3 centre = b.SideColor(kSideCenter, false);
    PanelAddPicker(b, b.mainNode, {300, 565}, {80, 20}, WStr(L"Main"));
    PanelAddPicker(b, b.rootControl, {415, 565}, {30, 20}, WStr(L"RB"));
    PanelAddGroup(b, b.controlNodes, {333, 605}, {0, 0}, WStr(), centre);
    PanelAddGroup(b, b.controlNodes, {211, 56}, {23, 21}, WStr(L"All"), centre);
    struct NodeList {
        const wchar_t* label;
        const INodeTab& nodes;
        float y;
        Point3 color;
    };
    const NodeList lists[] = {
        {L"Controls", b.controlNodes, 400, Point3(1.0f, 0.5f, 0.0f)},
        {L"Bones", b.boneNodes, 430, Point3(0.5f, 0.5f, 0.5f)},
        {L"Helpers", b.helperNodes, 460, Point3(0.33f, 0.85f, 0.1f)},
    };
    for (const NodeList& list : lists) PanelAddVisibility(b, list.nodes, WStr(list.label));
    for (const NodeList& list : lists)
        PanelAddGroup(b, list.nodes, {668, list.y}, {81, 23}, WStr(list.label), list.color);
}

// Each right control and its left partner (in the order they were made) share the
// right one's shape object; the right node's mirrored object offset draws it mirrored.
// Their animation manager modifiers name each other as mirror nodes.
void PairMirroredControls(RigBuild& b) {
    const int pairs = std::min(b.rightControls.Count(), b.leftControls.Count());
    for (int i = 0; i < pairs; ++i) {
        Object* shape = b.rightControls[i]->GetObjectRef()->FindBaseObject();
        INode* left = b.leftControls[i];
        if (auto* derived = dynamic_cast<IDerivedObject*>(left->GetObjectRef()))
            derived->ReferenceObject(shape);
        else
            left->SetObjectRef(shape);
    }
    for (int i = 0; i < pairs; ++i) {
        INode* right = b.rightControls[i];
        INode* left = b.leftControls[i];
        if (IParamBlock2* pb = FindManagerBlock(right))
            pb->SetValue(AM_MIRROR_NODE, 0, static_cast<ReferenceTarget*>(left));
        if (IParamBlock2* pb = FindManagerBlock(left))
            pb->SetValue(AM_MIRROR_NODE, 0, static_cast<ReferenceTarget*>(right));
    }
}

void EndBuild(RigSystem& rig, RigBuild& b) {
    if (b.pblock->GetInt(RIG_ROOT_BONE)) b.rootControl = BuildRootBone(b);
    AddPanelFrame(b);
    PairMirroredControls(b);
    if (!b.mainNode) return;
    // The rig was built at the origin; it moves to where the rig object stands.
    INode* own = FindObjectNode(&rig);
    b.mainNode->SetNodeTM(0, own ? own->GetNodeTM(0) : Matrix3());
    // Controls were built in figure mode; leaving it on main leaves it on the whole rig.
    if (RigControl* rc = FindRigControl(b.mainNode->GetTMController())) rc->SetFigureMode(false);
}

}  // namespace

void RigSystem::CreateRig() {
    if (!pblock_ || !Active()) return;
    Interface* ip = GetCOREInterface();
    ip->DisableSceneRedraw();
    const int task = ip->GetCommandPanelTaskMode();
    if (task == TASK_MODE_UTILITY) ip->SetCommandPanelTaskMode(TASK_MODE_MODIFY);
    // Every edit of the build is recorded, so that undo takes the rig away and redo
    // puts back the same nodes with their links, controllers and shared shapes.
    theHold.Begin();
    {
        RigBuild b(*this);
        StartBuild(*this, b);
        BuildTypeSequence(b, GetType());
        BuildExtras(b);
        EndBuild(*this, b);
    }
    pblock_->SetValue(RIG_ACTIVE, 0, 0);
    theHold.Accept(WStr(GetString(IDS_CREATE_RIG)));
    if (task == TASK_MODE_UTILITY) ip->SetCommandPanelTaskMode(task);
    ip->EnableSceneRedraw();
    // The guide points are gone from the display: the point level is left.
    if (SubObjectLevel() != 0) {
        XFormModes modes;
        ActivateSubobjSel(0, modes);
    }
    ip->RedrawViews(ip->GetTime());
}

void RigSystem::ResetRig() {
    if (!pblock_ || Active()) return;
    theHold.Begin();
    INodeTab nodes;
    for (int i = 0; i < pblock_->Count(RIG_NODES); ++i) {
        auto* node = dynamic_cast<INode*>(pblock_->GetReferenceTarget(RIG_NODES, 0, i));
        if (node && std::find(nodes.begin(), nodes.end(), node) == nodes.end())
            nodes.Append(1, &node);
    }
    GetCOREInterface()->DeleteNodes(nodes, true, true, false);
    pblock_->ZeroCount(RIG_NODES);
    pblock_->SetValue(RIG_ACTIVE, 0, 1);
    theHold.Accept(WStr(GetString(IDS_CREATE_RIG)));
}

}  // namespace zorvanta
