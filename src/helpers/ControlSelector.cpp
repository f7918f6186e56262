#include "helpers/ControlSelector.h"

#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/HitLog.h"
#include "host/object/Hold.h"
#include "host/object/ReferenceTarget.h"
#include "host/object/RestoreObj.h"

namespace zorvanta {

using namespace host;

// The face selection from before a change, and from after it for redo.
class ControlSelector::FaceSelRestore : public RestoreObj {
public:
    explicit FaceSelRestore(ControlSelector* owner)
        : pin_(owner->SelectorOwner()), owner_(owner), undoSel_(owner->faceSel) {}
    void Restore(bool isUndo) override {
        if (isUndo) redoSel_ = owner_->faceSel;
        owner_->faceSel = undoSel_;
        owner_->RefreshSelection();
    }
    void Redo() override {
        owner_->faceSel = redoSel_;
        owner_->RefreshSelection();
    }
    int Size() override { return int(sizeof(*this)); }
    WStr Description() override { return WStr(owner_->FaceSelRestoreName()); }

private:
    TargetPin pin_;
    ControlSelector* owner_;
    BitArray undoSel_;
    BitArray redoSel_;
};

void ControlSelector::PutRestore() {
    theHold.Put(new FaceSelRestore(this));
}

void ControlSelector::PickFace(HitRecord* hitRec, bool selected, bool invert) {
    if (theHold.Holding()) PutRestore();
    if (hitRec) {
        const int face = int(hitRec->hitInfo);
        if (face >= faceSel.GetSize()) faceSel.SetSize(face + 1, 1);
        faceSel.Set(face, invert ? !faceSel[face] : selected);
    }
    RefreshSelection();
}

void ControlSelector::ClearFaces() {
    PutRestore();
    faceSel.SetSize(0);
    RefreshSelection();
}

void ControlSelector::SelectAllFaces() {
    PutRestore();
    faceSel.SetSize(pickMesh.numf());
    faceSel.SetAll();
    RefreshSelection();
}

void ControlSelector::InvertFaces() {
    PutRestore();
    faceSel.SetSize(pickMesh.numf(), 1);
    faceSel = ~faceSel;
    if (faceSel.IsEmpty()) faceSel.SetSize(0);
    RefreshSelection();
}

void ControlSelector::ReplaceFaces(const BitArray& sel) {
    theHold.Begin();
    PutRestore();
    faceSel = sel;
    RefreshSelection();
    theHold.Accept(WStr(GetString(IDS_SELECTOR_FACE_SELECTION)));
}

}  // namespace zorvanta
