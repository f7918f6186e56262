#include "helpers/ControlShape.h"

#include <cassert>
#include <cmath>
#include <limits>

#include "frame/StringTable.h"
#include "helpers/ControlDisplayTransform.h"
#include "helpers/ControlParamDefs.h"
#include "helpers/ShapeCatalogue.h"
#include "host/classes/ChunkIO.h"
#include "host/object/ClassDesc2.h"
#include "host/object/INode.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/RemapDir.h"
#include "host/object/ViewExp.h"

namespace zorvanta {

using namespace host;

namespace {

// The control helper's parameters and the outline's uniform scale.
std::vector<ParamDef> ShapeParamDefs() {
    std::vector<ParamDef> defs = ControlParamDefs();
    defs.push_back({CS_SCALE,
                    L"scale",
                    TYPE_PCNT_FRAC,
                    P_ANIMATABLE,
                    IDS_SHAPE_SCALE,
                    {.f = 1.0f},
                    {{0.0f, std::numeric_limits<float>::infinity()}}});
    return defs;
}

// The class's own block, defined for the descriptor that the first call passes.
ParamBlockDesc2& ControlShapeBlock(ClassDesc2* desc = nullptr) {
    static ParamBlockDesc2 block(0, L"params", P_AUTO_CONSTRUCT, SimpleSpline::PBLOCK_REF, desc,
                                 ShapeParamDefs());
    return block;
}

// The descriptor DescribeBlocks defined the block for: it runs before any instance.
ClassDesc2* DescribedClass() {
    ClassDesc2* desc = ControlShapeBlock().GetClassDesc();
    assert(desc && "ControlShape::DescribeBlocks runs before any instance is made");
    return desc;
}

// Below this |determinant| G' flattens the shape: nothing maps back through it.
constexpr float kFlatDeterminant = 1e-12f;

}  // namespace

void ControlShape::DescribeBlocks(ClassDesc2* desc) {
    desc->AddParamBlockDesc(GetInterpBlockDesc());
    ControlShapeBlock(desc);
    desc->AddInterface(IControlShape::Desc());
}

ControlShape::ControlShape(bool loading) : ControlObject(DescribedClass(), loading) {}

WStr ControlShape::GetClassName() {
    return WStr(GetString(IDS_CONTROL_SHAPE_CLASS));
}

Matrix3 ControlShape::ShapeTM(TimeValue t) {
    if (!pblock2) return Matrix3();
    const float scale = pblock2->GetFloat(CS_SCALE, t);
    Matrix3 tm = ControlAxisFrame(pblock2->GetInt(CH_AXIS, t)) * pblock2->GetMatrix3(CH_GIZMO, t);
    tm.PreScale(Point3(scale, scale, scale));
    return tm;
}

void ControlShape::NarrowByBlock(TimeValue t) {
    PB2Value v;
    for (int i = 0; i < pblock2->NumParams(); ++i)
        pblock2->GetValue(pblock2->IndexToID(i), t, v, ivalid);
}

Point3 ControlShape::OffsetLineEnd(TimeValue t, const Matrix3& shapeTM) {
    INode* node = FindObjectNode(this);
    if (!node || std::fabs(shapeTM.Determinant()) < kFlatDeterminant) return Point3::Origin;
    const Point3 pivot = node->GetNodeTM(t).GetTrans() * Inverse(node->GetObjectTM(t));
    return pivot * Inverse(shapeTM);
}

// UpdateShape opens ivalid before the build and applies the interpolation, the
// selections and the cache reset after it.
void ControlShape::BuildShape(TimeValue t, BezierShape& out) {
    out.NewShape();
    if (!pblock2) return;
    NarrowByBlock(t);
    gizmoTM = ShapeTM(t);
    ShapeInputs in = ReadShapeInputs(pblock2, t);
    if (in.offsetLine) {
        in.nodePosition = OffsetLineEnd(t, gizmoTM);
        // The pivot's place in object space is the node's object offset, which changes
        // without telling the object: the line is rebuilt at every query instead.
        ivalid.SetEmpty();
    }
    // The IKFK glyph has no building form, so an IKFK shape stays empty.
    BuildShapeSplines(in, out);
    out.Transform(gizmoTM);
}

bool ControlShape::SetType(int type, TimeValue t) {
    if (!IControlShape::SetType(type, t)) return false;
    ivalid.SetEmpty();
    shape.InvalidateGeomCache();
    return true;
}

IOResult ControlShape::Save(ISave* isave) {
    if (SimpleSpline::Save(isave) != IO_OK) return IO_ERROR;
    WriteBitsChunk(isave, CONTROL_HELPER_FACE_SEL_CHUNK, faceSel);
    return IO_OK;
}

IOResult ControlShape::Load(ILoad* iload) {
    return ReadChunks(iload, [&](uint16_t id) {
        return id == CONTROL_HELPER_FACE_SEL_CHUNK ? ReadBits(iload, faceSel)
                                                   : LoadChunk(iload, id);
    });
}

ReferenceTarget* ControlShape::Clone(RemapDir& remap) {
    auto* copy = new ControlShape(true);
    copy->ReplaceReference(INTERP_BLOCK_REF, remap.CloneRef(ipblock));
    copy->ReplaceReference(PBLOCK_REF, remap.CloneRef(pblock2));
    CloneWeakRefs(*copy, remap);
    copy->faceSel = faceSel;
    copy->SetRenderable(GetRenderable());
    copy->SetDispRenderMesh(GetDispRenderMesh());
    BaseClone(this, copy, remap);
    return copy;
}

int ControlShape::Display(TimeValue t, INode* node, ViewExp* vpt, int flags) {
    if (!SimpleSpline::Display(t, node, vpt, flags)) return 0;
    // The selector overlay would draw here when selector_active is on; it is not built.
    if (subObjLevel == kGizmoLevel) DrawGizmoMarker(vpt->getGW(), node->GetObjectTM(t));
    return 1;
}

void ControlShape::GetSubObjectTMs(SubObjAxisCallback* cb, TimeValue t, INode* node, ModContext*) {
    if (!pblock2 || !node || subObjLevel != kGizmoLevel) return;
    cb->TM(ShapeTM(t) * node->GetObjectTM(t), 0);
}

}  // namespace zorvanta
