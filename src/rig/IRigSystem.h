#pragma once

#include "host/core/WStr.h"
#include "host/math/Point3.h"
#include "host/object/FPInterface.h"
#include "rig/RigIds.h"

namespace zorvanta {

// The rig object's published interface ("interface" in scripts): building and resetting
// the rig, guide point positions by name, rig templates and the extras. Indices of
// extras are zero-based here and one-based in scripts; a bad index reads as 0 or an
// empty string and a setter with one returns false, changing nothing. Point names are
// completed from side, index and sub_index as the builders name their nodes.
class IRigSystem : public host::FPMixinInterface {
public:
    enum FunctionId : host::FunctionID {
        kCreateRig = 0,
        kResetRig = 1,
        kGetPointPos = 2,
        kSetPointPos = 3,
        kGetType = 4,
        kSetType = 5,
        kLoad = 6,
        kLoadDlg = 7,
        kSave = 8,
        kSaveDlg = 9,
        kGetNumExtras = 10,
        kAddExtra = 11,
        kRemoveExtra = 12,
        kGetExtraName = 13,
        kSetExtraName = 14,
        kGetExtraParent = 15,
        kSetExtraParent = 16,
        kGetExtraSide = 17,
        kSetExtraSide = 18,
        kGetExtraNumControls = 19,
        kSetExtraNumControls = 20,
        kGetExtraNumBones = 21,
        kSetExtraNumBones = 22,
    };

    static const host::FPInterfaceDesc* Desc();
    const host::FPInterfaceDesc* GetDesc() override { return Desc(); }
    host::FPStatus _dispatch_fn(host::FunctionID fid, host::TimeValue t, host::FPValue& result,
                                host::FPParams* p) override;

    virtual void CreateRig() = 0;
    virtual void ResetRig() = 0;
    // Object space; a null vector when no point has the name.
    virtual host::Point3 GetPointPos(const host::WStr& name, int side = -1, int index = -1,
                                     int subIndex = -1) = 0;
    virtual void SetPointPos(const host::WStr& name, const host::Point3& pos, int side = -1,
                             int index = -1, int subIndex = -1) = 0;
    virtual int GetType() = 0;
    virtual void SetType(int type) = 0;
    // Rig templates: false when the file cannot be read or written.
    virtual bool Load(const host::WStr& fileName) = 0;
    virtual bool Save(const host::WStr& fileName) = 0;
    virtual void LoadDlg() = 0;
    virtual void SaveDlg() = 0;

    virtual int GetNumExtras() = 0;
    // The new extra's index, or -1.
    virtual int AddExtra(const host::WStr& name = {}, const host::WStr& parent = {},
                         int side = kSideNone, int numControls = 1, int numBones = 2,
                         bool useBones = false) = 0;
    virtual bool RemoveExtra(int index) = 0;
    virtual host::WStr GetExtraName(int index) = 0;
    virtual bool SetExtraName(int index, const host::WStr& name) = 0;
    virtual host::WStr GetExtraParent(int index) = 0;
    virtual bool SetExtraParent(int index, const host::WStr& parent) = 0;
    virtual int GetExtraSide(int index) = 0;
    virtual bool SetExtraSide(int index, int side) = 0;
    virtual int GetExtraNumControls(int index) = 0;
    virtual bool SetExtraNumControls(int index, int numControls) = 0;
    virtual int GetExtraNumBones(int index) = 0;
    virtual bool SetExtraNumBones(int index, int numBones) = 0;
    // The panel's own pair, not published.
    virtual bool GetExtraUseBones(int index) = 0;
    virtual bool SetExtraUseBones(int index, bool useBones) = 0;
};

}  // namespace zorvanta
