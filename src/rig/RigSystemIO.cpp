// The rig object in scene files and clones: its guide points and extras, beside the
// block that the scene file keeps as the object's reference.
#include <string>

#include "host/classes/ChunkIO.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "host/object/RemapDir.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

// The least bytes a saved point and a saved extra take (empty strings).
constexpr size_t kPointBytes = 56;
constexpr size_t kExtraBytes = 32;

// The two directions of one field list: a point and an extra are written and read by
// the same function over a writer or a reader.
struct FieldWriter {
    ISave* isave;
    template <class... T>
    IOResult Values(const T&... values) {
        return WriteValues(isave, values...);
    }
    IOResult Text(const WStr& text) { return isave->WriteWString(text); }
};
struct FieldReader {
    ILoad* iload;
    template <class... T>
    IOResult Values(T&... values) {
        return ReadValues(iload, values...);
    }
    IOResult Text(WStr& text) { return iload->ReadWString(text); }
};

template <class IO, class Point>
IOResult PointFields(IO io, Point& p) {
    if (io.Values(p.component) != IO_OK || io.Text(p.name) != IO_OK) return IO_ERROR;
    if (io.Values(p.flags, p.pos, p.drawType, p.selected, p.parent, p.firstChild, p.mirror,
                  p.extra) != IO_OK)
        return IO_ERROR;
    return io.Text(p.displayName) == IO_OK ? io.Text(p.tag) : IO_ERROR;
}

template <class IO, class Extra>
IOResult ExtraFields(IO io, Extra& e) {
    if (io.Text(e.name) != IO_OK || io.Text(e.parent) != IO_OK || io.Text(e.displayName) != IO_OK)
        return IO_ERROR;
    return io.Values(e.side, e.numControls, e.numBones, e.reserved, e.flags);
}

// A link of a point: -1 or another point's index.
bool ValidLink(int link, size_t count) {
    return link >= -1 && link < int(count);
}

IOResult CheckPoints(ILoad* iload, const std::vector<RigPoint>& points) {
    for (size_t i = 0; i < points.size(); ++i) {
        const RigPoint& p = points[i];
        if (!ValidLink(p.parent, points.size()) || !ValidLink(p.firstChild, points.size()) ||
            !ValidLink(p.mirror, points.size()))
            return LoadError(iload, "rig guide point " + std::to_string(i) +
                                        " links to a point the rig does not have");
    }
    return IO_OK;
}

IOResult CheckExtras(ILoad* iload, const std::vector<RigExtra>& extras) {
    for (size_t i = 0; i < extras.size(); ++i) {
        const RigExtra& e = extras[i];
        if (!ValidRigSide(e.side) || e.numControls < 1 || e.numBones < 1)
            return LoadError(
                iload, "rig extra " + std::to_string(i) + " has a side or a count out of range");
    }
    return IO_OK;
}

}  // namespace

// After the scene is read: the values the loaded points were made from are the block's,
// so the next edit carries the loaded positions over.
class RigSystem::LoadedCallback : public PostLoadCallback {
public:
    explicit LoadedCallback(RigSystem* rig) : pin_(rig), rig_(rig) {}
    void proc(ILoad*) override {
        rig_->lastParams = GuideParams::Read(rig_->pblock_);
        if (rig_->pblock_) rig_->selectedComponent = rig_->pblock_->GetInt(RIG_SELECTED_COMPONENT);
        rig_->PointsChanged();
    }

private:
    TargetPin pin_;  // a damaged file's orphans are dropped before the callbacks run
    RigSystem* rig_;
};

IOResult RigSystem::Save(ISave* isave) {
    isave->BeginChunk(RIG_POINTS_CHUNK);
    WriteRecords(isave, points, [&](const RigPoint& p) { PointFields(FieldWriter{isave}, p); });
    isave->EndChunk();
    isave->BeginChunk(RIG_EXTRAS_CHUNK);
    WriteRecords(isave, extras, [&](const RigExtra& e) { ExtraFields(FieldWriter{isave}, e); });
    isave->EndChunk();
    return IO_OK;
}

IOResult RigSystem::Load(ILoad* iload) {
    // Read apart, applied only when both chunks are sound.
    std::vector<RigPoint> loadedPoints;
    std::vector<RigExtra> loadedExtras;
    const IOResult res = ReadChunks(iload, [&](uint16_t id) {
        if (id == RIG_POINTS_CHUNK) {
            if (ReadRecords(iload, kPointBytes, loadedPoints, [&](RigPoint& p) {
                    return PointFields(FieldReader{iload}, p);
                }) != IO_OK)
                return LoadError(iload, "the rig's guide points are malformed");
            return CheckPoints(iload, loadedPoints);
        }
        if (id == RIG_EXTRAS_CHUNK) {
            if (ReadRecords(iload, kExtraBytes, loadedExtras, [&](RigExtra& e) {
                    return ExtraFields(FieldReader{iload}, e);
                }) != IO_OK)
                return LoadError(iload, "the rig's extras are malformed");
            return CheckExtras(iload, loadedExtras);
        }
        return IO_OK;
    });
    if (res != IO_OK) return res;
    points = std::move(loadedPoints);
    extras = std::move(loadedExtras);
    iload->RegisterPostLoadCallback(new LoadedCallback(this));
    return IO_OK;
}

ReferenceTarget* RigSystem::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](RigSystem& to) {
        to.points = points;
        to.extras = extras;
        to.lastParams = lastParams;
        to.selectedComponent = selectedComponent;
        to.PointsChanged();
    });
}

bool RigSystem::Load(const WStr& fileName) {
    GetCOREInterface()->Print(WStr(L"Rig templates cannot be read yet: " + fileName.str() + L"\n"));
    return false;
}

bool RigSystem::Save(const WStr& fileName) {
    GetCOREInterface()->Print(
        WStr(L"Rig templates cannot be written yet: " + fileName.str() + L"\n"));
    return false;
}

void RigSystem::LoadDlg() {
    GetCOREInterface()->Print(WStr(L"Rig templates cannot be read yet\n"));
}

void RigSystem::SaveDlg() {
    GetCOREInterface()->Print(WStr(L"Rig templates cannot be written yet\n"));
}

}  // namespace zorvanta
