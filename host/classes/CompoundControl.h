#pragma once

#include "host/object/Control.h"

namespace host {

// A controller whose value is made from sub-controllers (the tracks of an XYZ
// controller, the position, rotation and scale of a PRS). Its keys are the union of the
// sub-controllers' key times, which is what the track view and the key-stepping tools
// show for it.
class CompoundControl : public Control {
public:
    bool IsLeaf() override { return false; }
    int NumKeys() override;
    TimeValue GetKeyTime(int i) override;
    void GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t flags) override;
    Interval GetTimeRange() override;

protected:
    // Puts controller c in reference slot i when it is a controller of superclass
    // wanted, undoably, and tells dependents that the tree changed.
    bool AssignTrack(Animatable* c, int i, SClass_ID wanted);
    // The sub-controllers whose keys count; a null track has none.
    virtual int NumTracks() = 0;
    virtual Control* Track(int i) = 0;

private:
    Tab<TimeValue> MergedKeyTimes();
};

}  // namespace host
