#pragma once

#include "controllers/ControllerIds.h"
#include "frame/StringTable.h"
#include "host/object/Hold.h"
#include "host/object/ILoad.h"
#include "host/object/ILockedTrack.h"
#include "host/object/ISave.h"
#include "host/object/Interface.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/PanelService.h"
#include "host/object/RemapDir.h"
#include "host/object/RestoreObj.h"
#include "host/object/StdControl.h"

namespace zorvanta {

using host::GetSetMethod;
using host::Interval;
using host::TimeValue;

// What the static controllers share: one value of type Value that no time changes, the
// locked flag, the one-restore-object-per-hold rule, the two save chunks, Copy, Clone
// and the rollup. Derived (the concrete class, made with Derived(bool loading)) gives its
// identity in kClassId, kSuperClassId and kNameId (its display name's string), and says
// how its value reads and writes relatively and how temp values add and scale:
//   static Value Initial();                                  a new controller's value
//   static Value Zero();                                     the temp value's start
//   static void ApplyRelative(const Value& v, void* val);    a relative read
//   static Value AddRelative(const Value& v, void* val);     a relative write's result
//   static void Apply(Value& a, const Value& b);             a temp value's sum
//   static void Multiply(Value& v, float f);                 a temp value scaled
template <class Derived, class Value>
class StaticControl : public host::StdControl, public host::ILockedTrackImp {
public:
    using host::StdControl::GetInterface;
    void* GetInterface(uint32_t id) override {
        if (id == host::I_LOCKED) return static_cast<host::ILockedTrackImp*>(this);
        return host::StdControl::GetInterface(id);
    }

    host::Class_ID ClassID() override { return Derived::kClassId; }
    host::SClass_ID SuperClassID() override { return Derived::kSuperClassId; }
    host::WStr GetClassName() override { return host::WStr(GetString(Derived::kNameId)); }

    const Value& GetStaticValue() const { return value_; }

    // t is ignored and valid never narrows: the value holds forever.
    void GetValueLocalTime(TimeValue, void* val, Interval&,
                           GetSetMethod method = host::CTRL_ABSOLUTE) override {
        if (method == host::CTRL_ABSOLUTE)
            *static_cast<Value*>(val) = value_;
        else
            Derived::ApplyRelative(value_, val);
    }
    // A locked track ignores the write.
    void SetValueLocalTime(TimeValue, void* val, int = 1,
                           GetSetMethod method = host::CTRL_ABSOLUTE) override {
        if (GetLocked()) return;
        SetStaticValue(method == host::CTRL_ABSOLUTE ? *static_cast<Value*>(val)
                                                     : Derived::AddRelative(value_, val));
    }
    // The one way the value changes by an edit: the first change within a hold records
    // the value from before it, then dependents hear of the change.
    void SetStaticValue(const Value& v) {
        HoldValue();
        Store(v);
    }

    void* CreateTempValue() override { return new Value(Derived::Zero()); }
    void DeleteTempValue(void* val) override { delete static_cast<Value*>(val); }
    void ApplyValue(void* val, void* delta) override {
        Derived::Apply(*static_cast<Value*>(val), *static_cast<Value*>(delta));
    }
    void MultiplyValue(void* val, float m) override {
        Derived::Multiply(*static_cast<Value*>(val), m);
    }
    // A static track has no range, so every time is inside it: the value itself.
    void Extrapolate(Interval, TimeValue t, void* val, Interval& valid, int) override {
        GetValueLocalTime(t, val, valid, host::CTRL_ABSOLUTE);
    }

    // Takes from's value at the current time and its locked state, without undo or
    // notification.
    void Copy(host::Control* from) override {
        if (!from || from->SuperClassID() != SuperClassID()) return;
        Interval valid = host::FOREVER;
        from->GetValue(host::GetCOREInterface()->GetTime(), &value_, valid, host::CTRL_ABSOLUTE);
        if (host::ILockedTrackImp* lock = host::GetLockedTrackInterface(from))
            SetLocked(lock->GetLocked());
    }
    host::ReferenceTarget* Clone(host::RemapDir& remap) override {
        auto* copy = new Derived(true);
        copy->value_ = value_;
        copy->SetLocked(GetLocked());
        CloneControl(copy, remap);
        BaseClone(this, copy, remap);
        return copy;
    }

    host::IOResult Save(host::ISave* isave) override {
        isave->BeginChunk(STATIC_VALUE_CHUNK);
        isave->WriteValue(value_);
        isave->EndChunk();
        isave->WriteChunk(STATIC_LOCKED_CHUNK, uint8_t(GetLocked() ? 1 : 0));
        return host::IO_OK;
    }
    host::IOResult Load(host::ILoad* iload) override {
        return host::chunkio::ReadChunks(iload, [&](uint16_t id) {
            if (id == STATIC_VALUE_CHUNK) return Derived::ReadValue(iload, value_);
            if (id != STATIC_LOCKED_CHUNK) return host::IO_OK;
            uint8_t locked = 0;
            if (iload->ReadValue(locked) != host::IO_OK) return host::IO_ERROR;
            SetLocked(locked != 0);
            return host::IO_OK;
        });
    }
    // The value as the file holds it, byte for byte.
    static host::IOResult ReadValue(host::ILoad* iload, Value& v) { return iload->ReadValue(v); }

    void BeginEditParams(host::IObjParam*, uint32_t, host::Animatable*) override {
        rollup_ = host::GetPanelService().AddRollup(this, ClassID(), GetClassName());
    }
    void EndEditParams(host::IObjParam*, uint32_t, host::Animatable*) override {
        if (rollup_) host::GetPanelService().DeleteRollup(rollup_);
        rollup_ = nullptr;
    }

private:
    // The value from before a hold's first change, and after it for redo.
    class ValueRestore : public host::RestoreObj {
    public:
        explicit ValueRestore(StaticControl* c) : pin_(c), ctrl_(c), undo_(c->value_) {}
        void Restore(bool isUndo) override {
            if (isUndo) redo_ = ctrl_->value_;
            ctrl_->Store(undo_);
        }
        void Redo() override { ctrl_->Store(redo_); }
        void EndHold() override { ctrl_->ClearAFlag(host::A_HELD); }
        int Size() override { return int(sizeof(*this)); }

    private:
        host::TargetPin pin_;
        StaticControl* ctrl_;
        Value undo_;
        Value redo_{};
    };

protected:
    // Puts the restore object of the hold's first change.
    void HoldValue() {
        if (!host::theHold.Holding() || TestAFlag(host::A_HELD)) return;
        host::theHold.Put(new ValueRestore(this));
        SetAFlag(host::A_HELD);
    }
    // Stores v and tells the dependents and the rollup.
    void Store(const Value& v) {
        value_ = v;
        NotifyDependents(host::FOREVER, host::PART_ALL, host::REFMSG_CHANGE);
        if (rollup_) host::GetPanelService().RefreshRollup(rollup_);
    }

    Value value_ = Derived::Initial();

private:
    void* rollup_ = nullptr;
};

}  // namespace zorvanta
