// The builders and panel helpers that later parts of the toolkit write. Until each
// lands, it builds nothing and answers false (or null): the type sequences then skip
// the part, and the rest of the rig still builds.
#include "rig/RigBuild.h"
#include "rig/RigBuilders.h"

namespace zorvanta {

using host::INode;
using host::INodeTab;
using host::Point2;
using host::Point3;
using host::WStr;

bool BuildSpine(RigBuild&, INode*, INode*, SpineOutputs&, int, int) {
    return false;
}
bool BuildHead(RigBuild&, INode*, INode*, bool) {
    return false;
}
bool BuildTails(RigBuild&, INode*, INode*, INode*) {
    return false;
}
bool BuildPonytails(RigBuild&, INode*, INode*, INode*) {
    return false;
}
bool BuildFang(RigBuild&, int, INode*, INode*) {
    return false;
}
bool BuildFace(RigBuild&, INode*, INode*) {
    return false;
}
bool BuildExtras(RigBuild&) {
    return false;
}
INode* BuildRootBone(RigBuild&) {
    return nullptr;
}
bool BuildArmPairs(RigBuild&, int, INode*, INode*, INode*) {
    return false;
}
bool BuildArmPairsQuad(RigBuild&, int, INode*, INode*, INode*) {
    return false;
}
bool BuildArm(RigBuild&, int, int, INode*, INode*) {
    return false;
}
bool BuildLeg(RigBuild&, int, int, INode*, INode*, int) {
    return false;
}
bool BuildHand(RigBuild&, int, int, INode*) {
    return false;
}
bool BuildFeetType(RigBuild&, int) {
    return false;
}
bool BuildInsectLeg(RigBuild&, int, INode*, INode*, int) {
    return false;
}
bool BuildInsectLegPair(RigBuild&, int, int, INode*, INode*) {
    return false;
}
bool PanelAddAction(RigBuild&, Point2, Point2, const WStr&, const WStr&) {
    return false;
}
bool PanelAddPicker(RigBuild&, INode*, Point2, Point2, const WStr&) {
    return false;
}
bool PanelAddGroup(RigBuild&, const INodeTab&, Point2, Point2, const WStr&, const Point3&) {
    return false;
}
bool PanelAddVisibility(RigBuild&, const INodeTab&, const WStr&) {
    return false;
}

}  // namespace zorvanta
