#pragma once

#include "host/classes/BezierShape.h"
#include "host/object/IParamBlock2.h"
#include "host/object/ShapeObject.h"

namespace host {

class ClassDesc2;

// The base of procedural shapes: a subclass says how to build its splines from its
// parameters (BuildShape), and SimpleSpline keeps the result as a cache, valid over
// ivalid, rebuilt when asked for a time outside it. Any change of a parameter empties
// ivalid, so the next query rebuilds, undo included.
//
// References: 0 the interpolation block that every such shape shares (its definition
// is GetInterpBlockDesc), 1 reserved, 2 the subclass's own block. Both blocks come from
// the class descriptor, which must list the interpolation block too (SimpleSplineDesc
// does that).
//
// Scene files: the blocks save themselves and the shape is only a cache of what they
// build, so a procedural shape has no state of its own to save. One made for loading
// has ivalid empty and builds its shape on first use.
class SimpleSpline : public ShapeObject {
public:
    // The interpolation block: its id, slot and parameters.
    static constexpr BlockID INTERP_BLOCK_ID = 1;
    static constexpr int INTERP_BLOCK_REF = 0;
    static constexpr int PBLOCK_REF = 2;
    enum InterpParam : ParamID {
        STEPS = 0,     // int, steps per segment, default 6
        OPTIMIZE = 1,  // bool, default on
        ADAPTIVE = 2,  // bool, default off; on gives the shape steps -1
    };
    static ParamBlockDesc2* GetInterpBlockDesc();

    // Fills shape with the splines of the object at t, narrowing ivalid by everything
    // it reads (UpdateShape sets ivalid to FOREVER before calling it).
    virtual void BuildShape(TimeValue t, BezierShape& shape) = 0;
    // Rebuilds the shape unless t lies in ivalid.
    void UpdateShape(TimeValue t);
    // The shape as built for t.
    const BezierShape& GetShape(TimeValue t) {
        UpdateShape(t);
        return shape;
    }
    // The interval over which the shape last built holds; empty once it is stale.
    const Interval& ShapeValidity() const { return ivalid; }

    int NumRefs() override { return 3; }
    ReferenceTarget* GetReference(int i) override;
    int NumSubs() override { return 2; }
    Animatable* SubAnim(int i) override;
    WStr SubAnimName(int i) override;
    // Block 0 is the subclass's own, block 1 the interpolation block.
    int NumParamBlocks() override { return 2; }
    IParamBlock2* GetParamBlock(int i) override;
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;

    // The same class with clones of both blocks; the clone builds its shape on first use.
    ReferenceTarget* Clone(RemapDir& remap) override;
    ObjectState Eval(TimeValue t) override;
    Interval ObjectValidity(TimeValue t) override;
    // The shape's splines at t as lines in the node's wire colour.
    int Display(TimeValue t, INode* node, ViewExp* vpt, int flags) override;
    int HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                ViewExp* vpt) override;
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;
    void GetDeformBBox(TimeValue t, Box3& box, Matrix3* tm = nullptr, bool useSel = false) override;

    // The vertices of the shape as last built, three per knot (in vector, knot, out
    // vector), so that a deformer moves the handles with the knots. Edits last until
    // the next rebuild.
    int NumPoints() override { return shape.NumPoints(); }
    Point3 GetPoint(int i) override { return shape.GetPoint(i); }
    void SetPoint(int i, const Point3& p) override { shape.SetPoint(i, p); }
    void PointsWereChanged() override { shape.InvalidateGeomCache(); }

protected:
    // Unless loading, makes the blocks that desc lists (the scene reader sets them
    // otherwise).
    SimpleSpline(ClassDesc2* desc, bool loading);
    void SetReference(int i, ReferenceTarget* target) override;

    // Hands the interpolation settings at t to target, narrowing ivalid by them.
    void ApplyInterpolation(TimeValue t, BezierShape& target);

    BezierShape shape;
    Interval ivalid;                  // NEVER until the first build
    IParamBlock2* ipblock = nullptr;  // reference 0
    IParamBlock2* pblock2 = nullptr;  // reference 2
};

}  // namespace host
