#pragma once

#include "host/classes/ListControl.h"
#include "host/classes/ListTraits.h"

namespace host {

// A list controller of one value type (float, Point3, Quat or ScaleValue; ListTraits
// says how each combines and weighs its entries). Entries combine in list order: a
// relative read applies each entry to the caller's value in turn, a whole entry through
// its own relative read and a weighted one through its weighted absolute value; an
// absolute read composes the entries' weighted values the same way from the identity.
//
// Writes go to the active entry (an empty list first makes one). An absolute write
// gives the entry the value that makes the whole list worth the written value, the
// other entries as they are; a relative write is the same increment for the whole
// list, passed on to the entry relatively where the type allows it. An entry of weight
// 0 has no say in the value, and writes to it are ignored.
template <class Value>
class ValueList : public ListControl {
public:
    using Traits = ListTraits<Value>;
    using Increment = typename Traits::Increment;

    // A new list is empty, whether made or loaded.
    explicit ValueList(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return Traits::kClassID; }
    SClass_ID SuperClassID() override { return Traits::kSuperClass; }
    WStr GetClassName() override { return WStr(Traits::kName); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        if (method == CTRL_RELATIVE)
            ReadRelative(t, val, valid);
        else
            *static_cast<Value*>(val) = Combined(t, 0, GetCount(), valid);
    }
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    Control* NewEntryController() override { return Traits::NewDefault(); }

private:
    void ReadRelative(TimeValue t, void* val, Interval& valid);
    // The composition of entries [from, to) at t.
    Value Combined(TimeValue t, int from, int to, Interval& valid);
    // Makes the list worth `wanted` through entry i.
    void WriteAbsolute(TimeValue t, int i, const Value& wanted, int commit);
};

template <class Value>
void ValueList<Value>::ReadRelative(TimeValue t, void* val, Interval& valid) {
    for (int i = 0; i < GetCount(); ++i) {
        Control* entry = GetSubCtrl(i);
        const float w = GetWeight(i);
        if (!entry) continue;
        if (w == 1.0f) {
            entry->GetValue(t, val, valid, CTRL_RELATIVE);
            continue;
        }
        Value v{};
        entry->GetValue(t, &v, valid, CTRL_ABSOLUTE);
        Traits::ApplyRelative(val, Traits::Weighted(v, w));
    }
}

template <class Value>
Value ValueList<Value>::Combined(TimeValue t, int from, int to, Interval& valid) {
    Value acc{};
    for (int i = from; i < to; ++i) {
        Control* entry = GetSubCtrl(i);
        if (!entry) continue;
        Value v{};
        entry->GetValue(t, &v, valid, CTRL_ABSOLUTE);
        const float w = GetWeight(i);
        acc = Traits::Compose(acc, w == 1.0f ? v : Traits::Weighted(v, w));
    }
    return acc;
}

template <class Value>
void ValueList<Value>::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    const int i = ActiveForWrite();
    Control* entry = GetSubCtrl(i);
    const float w = GetWeight(i);
    if (!entry || w == 0.0f) return;
    if (method == CTRL_ABSOLUTE) return WriteAbsolute(t, i, *static_cast<Value*>(val), commit);
    Interval ignored = FOREVER;
    Increment inc = *static_cast<Increment*>(val);
    if (Traits::EntryIncrement(Combined(t, 0, i, ignored), w, inc))
        return entry->SetValue(t, &inc, commit, CTRL_RELATIVE);
    WriteAbsolute(t, i, Traits::Incremented(Combined(t, 0, GetCount(), ignored), inc), commit);
}

template <class Value>
void ValueList<Value>::WriteAbsolute(TimeValue t, int i, const Value& wanted, int commit) {
    Interval ignored = FOREVER;
    const Value before = Combined(t, 0, i, ignored);
    const Value after = Combined(t, i + 1, GetCount(), ignored);
    Value own = Traits::Share(before, after, wanted);
    const float w = GetWeight(i);
    if (w != 1.0f) own = Traits::Weighted(own, 1.0f / w);
    GetSubCtrl(i)->SetValue(t, &own, commit, CTRL_ABSOLUTE);
}

using FloatList = ValueList<float>;
using PositionList = ValueList<Point3>;
using RotationList = ValueList<Quat>;
using ScaleList = ValueList<ScaleValue>;

extern template class ValueList<float>;
extern template class ValueList<Point3>;
extern template class ValueList<Quat>;
extern template class ValueList<ScaleValue>;

}  // namespace host
