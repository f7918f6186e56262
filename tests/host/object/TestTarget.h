#pragma once

#include <set>
#include <vector>

#include "host/object/Hold.h"
#include "host/object/ReferenceTarget.h"

namespace host::test {

// Reference slots, an undoable value, a log of messages heard, and the set of live instances.
class TestTarget : public ReferenceTarget {
public:
    static constexpr int kSlots = 3;
    static inline std::set<TestTarget*> live;

    TestTarget() { live.insert(this); }
    ~TestTarget() override { live.erase(this); }

    int NumRefs() override { return kSlots; }
    ReferenceTarget* GetReference(int i) override { return refs_[i]; }
    void SetReference(int i, ReferenceTarget* t) override { refs_[i] = t; }
    TestTarget* Ref(int i) { return static_cast<TestTarget*>(refs_[i]); }

    int Value() const { return value_; }
    void SetValue(int v) {
        if (theHold.Holding()) theHold.Put(new ValueRestore(this));
        value_ = v;
        NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }

    RefResult NotifyRefChanged(const Interval&, ReferenceTarget* from, PartID&, RefMessage message,
                               bool) override {
        heard.push_back({from, message});
        if (message == REFMSG_CHANGE && dropOnChange)
            for (int i = 0; i < kSlots; ++i)
                if (refs_[i] == from) ReplaceReference(i, nullptr, false);
        return stopMessages ? REF_STOP : REF_SUCCEED;
    }

    struct Heard {
        ReferenceTarget* from;
        RefMessage message;
    };
    std::vector<Heard> heard;
    bool stopMessages = false;
    bool dropOnChange = false;  // lets go of the sender while hearing its change

private:
    class ValueRestore : public RestoreObj {
    public:
        explicit ValueRestore(TestTarget* t)
            : pin_(t), target_(t), undo_(t->value_), redo_(t->value_) {}
        void Restore(bool isUndo) override {
            if (isUndo) redo_ = target_->value_;
            target_->value_ = undo_;
        }
        void Redo() override { target_->value_ = redo_; }

    private:
        TargetPin pin_;
        TestTarget* target_;
        int undo_, redo_;
    };

    ReferenceTarget* refs_[kSlots] = {};
    int value_ = 0;
};

}  // namespace host::test
