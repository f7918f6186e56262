#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/classes/ICurve.h"
#include "host/object/ReferenceTarget.h"

namespace host {

// The curve control: a set of curves over an x range and a y range, as the curve
// editor shows them. A new control has one curve from (0, 0) to (1, 1) with straight
// segments, over 0..1 in both ranges. Every edit (points, curve count, ranges) is one
// undo record, and tells the dependents.
class ICurveCtl : public ReferenceTarget {
public:
    explicit ICurveCtl(bool loading = false);
    Class_ID ClassID() override;
    SClass_ID SuperClassID() override;
    WStr GetClassName() override { return WStr(L"CurveControl"); }

    int GetNumCurves() const { return int(curves_.size()); }
    void SetNumCurves(int n);
    ICurve* GetControlCurve(int i) {
        return i >= 0 && i < GetNumCurves() ? curves_[size_t(i)].get() : nullptr;
    }
    void SetXRange(float lo, float hi);
    void SetYRange(float lo, float hi);
    void GetXRange(float& lo, float& hi) const;
    void GetYRange(float& lo, float& hi) const;
    // Called after either range changes.
    void SetRangeChangedCallback(std::function<void(ICurveCtl*)> callback) {
        rangeChanged_ = std::move(callback);
    }

    // The ranges and the curves with their points. A loaded control has as many curves
    // as were saved, none included.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The ranges and the curves with their points; the range callback stays with this
    // control's panel.
    ReferenceTarget* Clone(RemapDir& remap) override;

    // Records the whole state once, runs the change, and tells the dependents.
    template <typename Change>
    void Edit(Change change) {
        Record();
        change();
        NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }

private:
    struct State {
        std::vector<std::vector<CurvePoint>> curves;
        float range[4];  // x lo, x hi, y lo, y hi
    };
    void Record();
    // The whole state, as undo takes it and puts it back.
    State GetState() const;
    void SetState(const State& s);

    std::vector<std::unique_ptr<ICurve>> curves_;
    float range_[4] = {0.0f, 1.0f, 0.0f, 1.0f};
    std::function<void(ICurveCtl*)> rangeChanged_;
};

}  // namespace host
