#pragma once

#include <vector>

#include "host/core/Tab.h"
#include "host/core/TimeValue.h"
#include "host/core/WStr.h"
#include "host/object/ClassId.h"
#include "host/object/FPInterface.h"

namespace host {

class Animatable;
class INode;

// The interface id of the filter manager among the core interfaces.
inline constexpr Interface_ID TRACKBAR_FILTER_MANAGER_INTERFACE(0xc85046, 0x2def7c7d);

// Whether the keys of track anim (sub-anim subNum of parent, itself under grandParent,
// all of node) show on the track bar.
using TrackBarFilterFunc = bool (*)(Animatable* anim, Animatable* parent, int subNum,
                                    Animatable* grandParent, INode* node);
// What a filter adds to the track bar beside the keys of its tracks; may be null.
using TrackBarAddFunc = void (*)(INode* node, Tab<TimeValue>& times);

// The track bar's key filters: libraries register them at start-up, the track bar runs
// the active ones over the tracks of the selected nodes. A track shows when every
// active filter keeps it; a filter with stopTraversal that drops a track drops the
// tracks below it too.
class TrackBarFilterManager : public FPStaticInterface {
public:
    struct Filter {
        TrackBarFilterFunc filter = nullptr;
        TrackBarAddFunc add = nullptr;
        WStr name;
        Class_ID id;
        bool active = false;
        bool stopTraversal = true;
    };

    // The manager the scene model publishes as a core interface.
    static TrackBarFilterManager& Instance();

    const FPInterfaceDesc* GetDesc() override;
    FPStatus _dispatch_fn(FunctionID, TimeValue, FPValue&, FPParams*) override {
        return FPS_NO_SUCH_FUNCTION;
    }

    // The index of the new filter; -1, and nothing changes, without a filter function or
    // for an id that is registered already.
    int RegisterFilter(TrackBarFilterFunc filter, TrackBarAddFunc add, const WStr& name,
                       Class_ID id, bool active = false, bool stopTraversal = true);
    void UnRegisterFilter(int index);
    int NumFilters() const { return int(filters_.size()); }
    const Filter& GetFilter(int index) const { return filters_[size_t(index)]; }
    // The index of the filter with that id, or -1.
    int FindFilter(Class_ID id) const;
    void SetFilterActive(int index, bool active);

    // The tracks of node whose keys the track bar shows: the sub-anim tree of its
    // transform controller, depth first, each track the active filters keep.
    std::vector<Animatable*> FilteredTracks(INode* node) const;

private:
    // What the active filters say about one track: whether it shows, and whether its
    // children are looked at.
    void Visit(Animatable* anim, Animatable* parent, int subNum, Animatable* grandParent,
               INode* node, std::vector<Animatable*>& kept) const;

    std::vector<Filter> filters_;
};

}  // namespace host
