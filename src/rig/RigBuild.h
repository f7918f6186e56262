#pragma once

#include "host/core/WStr.h"
#include "host/math/Matrix3.h"
#include "host/math/Point2.h"
#include "host/math/Point3.h"
#include "host/object/INode.h"

namespace host {
class ILayer;
class IParamBlock2;
class Object;
}  // namespace host

namespace zorvanta {

class RigSystem;

// A colour (components 0..1) as a wire colour: each component (int)(c * 255 + 0.5),
// masked to a byte.
host::COLORREF ToColorRef(const host::Point3& color);

// The state of one CreateRig: what the builders share while they turn the guide points
// into nodes. It lives for one build and holds no state before or after it.
//
// The node factories below make every node of a rig: each wraps its object in a new
// node, records the node in the rig's node table (so that ResetRig finds it), names it
// by the rig's naming rules and puts it on its layer. A class that cannot be made (the
// class factory answers null) skips its node: the factory returns null, and builders
// check every node before they use it.
class RigBuild {
public:
    // Starts the state of a build of rig: reads the rig's name and colours (through the
    // host's display gamma when it is on) and sets the panel cursors to their starts.
    explicit RigBuild(RigSystem& rig);

    // The shape block of a control node (below its modifiers), or null.
    static host::IParamBlock2* ShapeBlock(host::INode* node);
    // The wire colour of a control of side (0 right, 1 left, other centre), main or
    // alternate.
    host::Point3 SideColor(int side, bool alternate) const;
    // The layer named rig name + " " + word, made (with the parent layer named as the
    // rig) when missing; null without a layer manager.
    host::ILayer* GetOrCreateLayer(const wchar_t* word);
    // The node name of a part: rig name, group word ("bone", "helper" or none), short
    // name.
    host::WStr NodeName(const wchar_t* group, const host::WStr& shortName) const;

    // A rig control: a ControlShape node named by the rules with a RigControl in figure
    // mode, its shape set up from shape (catalogue number), size, axis and offset (the
    // shape's gizmo translation), coloured by side, mirrored drawing for side 0, with
    // the animation manager's tag, attached to parent and placed at tm (world space).
    host::INode* NewControlShapeNode(const host::Matrix3& tm, host::INode* parent, int shape,
                                     float size, bool alternate, const wchar_t* name, int side,
                                     int index, int sub, int eulerOrder, const host::Point3& offset,
                                     int axis, int mirrorPosAxis, int mirrorRotAxis);
    // A bone of the host's bone object (taper 0 when flat), on a StaticTransform, at tm,
    // in bone mode; all transforms locked with lock.
    host::INode* NewBone(const host::Matrix3& tm, host::INode* parent, float width, float length,
                         bool flat, const wchar_t* name, int side, int index, int sub, bool lock);
    // A cross-shaped point helper of size on a StaticTransform at tm.
    host::INode* NewPointHelper(const host::Matrix3& tm, host::INode* parent, float size,
                                const wchar_t* name, int side, int index, int sub, bool lock);
    // A bone at target's world transform that takes the average rotation of parent and
    // target (an orientation constraint on both, in equal shares).
    host::INode* NewHelperBone(host::INode* parent, host::INode* target, const wchar_t* name,
                               float width, int side, int index, int sub);
    // The panel and the pose kit of the body (or of the face while buildingFace),
    // attached to attachTo. Their classes come from the class factory; null without them.
    host::INode* NewUIPanel(host::INode* attachTo);
    host::INode* NewPoseKit(host::INode* attachTo);

    RigSystem& rig;
    host::IParamBlock2* pblock;
    host::WStr rigName;
    // The six rig colours, color_1 to color_6, as the build uses them.
    host::Point3 colors[6];

    host::ILayer* controlsLayer = nullptr;
    host::ILayer* helpersLayer = nullptr;
    host::ILayer* bonesLayer = nullptr;
    host::INode* mainNode = nullptr;
    // What top-level bones hang on: the root bone when root_bone is on, else mainNode.
    host::INode* rootNode = nullptr;
    // The "root" control of the root bone's end step, for the panel's root picker.
    host::INode* rootControl = nullptr;
    host::INode* spineBaseNode = nullptr;
    host::INode* headBone = nullptr;
    host::INode* bodyPanel = nullptr;
    host::INode* facePanel = nullptr;
    host::INode* posePanelKit = nullptr;
    host::INode* facePoseKit = nullptr;
    host::INodeTab rightControls, leftControls, controlNodes, boneNodes, helperNodes;
    // The next free slot of the body panel [0] and of the face panel [1], panel pixels.
    host::Point2 panelCursor[2];
    // The offset of the body drawing in the panel, panel pixels.
    host::Point2 panelOffset;
    bool buildingFace = false;
    int panelSide = 2;
    bool quadMode = false;
    // The rig's extent: the diagonal of the guide points' box, object units.
    float size = 0.0f;

private:
    // Wraps obj in a node named name and records it in the rig's node table; null (and
    // obj deleted) when obj is null.
    host::INode* NewNode(host::Object* obj, const host::WStr& name);
    // Parent, transform and layer of a new node, in that order.
    void Place(host::INode* node, host::INode* parent, const host::Matrix3& tm,
               host::ILayer* layer);
    // A panel or pose kit node of class id, named after base (with "Face_" while
    // buildingFace), placed from attachTo by the placement for the body or the face.
    struct Placement {
        host::Point3 offset;  // in units of the main shape's size
        float scale;
        float rotateX, rotateZ;  // radians
    };
    host::INode* NewPanelNode(const host::Class_ID& id, const wchar_t* base, host::INode* attachTo,
                              const Placement& body, const Placement& face);
};

}  // namespace zorvanta
