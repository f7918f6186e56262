#include "host/object/JointParams.h"

#include "host/object/ObjectChunkIO.h"

namespace host {

IOResult JointParams::Save(ISave* isave) const {
    for (int axis = 0; axis < kAxes; ++axis)
        if (chunkio::WriteValues(isave, flags[axis], min[axis], max[axis], damping[axis]) != IO_OK)
            return IO_ERROR;
    return IO_OK;
}

// Nothing changes unless every value reads.
IOResult JointParams::Load(ILoad* iload) {
    JointParams read;
    for (int axis = 0; axis < kAxes; ++axis)
        if (chunkio::ReadValues(iload, read.flags[axis], read.min[axis], read.max[axis],
                                read.damping[axis]) != IO_OK)
            return IO_ERROR;
    *this = read;
    return IO_OK;
}

IOResult JointParamsEuler::Save(ISave* isave) const {
    if (JointParams::Save(isave) != IO_OK) return IO_ERROR;
    for (float f : extra)
        if (isave->WriteValue(f) != IO_OK) return IO_ERROR;
    return IO_OK;
}

IOResult JointParamsEuler::Load(ILoad* iload) {
    JointParamsEuler read;
    if (read.JointParams::Load(iload) != IO_OK) return IO_ERROR;
    for (float& f : read.extra)
        if (iload->ReadValue(f) != IO_OK) return IO_ERROR;
    *this = read;
    return IO_OK;
}

}  // namespace host
