#pragma once

#include <string>

#include "host/math/Matrix3.h"
#include "host/object/ClassId.h"
#include "host/object/ILoad.h"
#include "host/object/ISave.h"

// Building blocks of the object model's Save and Load. They live in a namespace of
// their own, beside the host classes' helpers of the same kind.
namespace host::chunkio {

// Reads the chunks of the present level in turn: readChunk(id) sees each one open and
// answers IO_OK to go on. What it leaves unread, and chunks it does not know, are
// skipped. IO_ERROR from it or from the reader ends the loop with IO_ERROR.
template <class F>
IOResult ReadChunks(ILoad* iload, F&& readChunk) {
    IOResult res;
    while ((res = iload->OpenChunk()) == IO_OK) {
        if (readChunk(iload->CurChunkID()) != IO_OK || iload->CloseChunk() != IO_OK)
            return IO_ERROR;
    }
    return res == IO_END ? IO_OK : IO_ERROR;
}

// Reports what is wrong with the data; the load fails.
inline IOResult LoadError(ILoad* iload, const std::string& what) {
    iload->SetError(what);
    return IO_ERROR;
}

// Plain values in turn; IO_ERROR from the first that fails.
template <class... T>
IOResult WriteValues(ISave* isave, const T&... values) {
    return ((isave->WriteValue(values) == IO_OK) && ...) ? IO_OK : IO_ERROR;
}

template <class... T>
IOResult ReadValues(ILoad* iload, T&... values) {
    return ((iload->ReadValue(values) == IO_OK) && ...) ? IO_OK : IO_ERROR;
}

// A matrix is its four rows; its identity flags are worked out again on load.
inline constexpr size_t kMatrixBytes = 4 * sizeof(Point3);

inline IOResult WriteMatrix(ISave* isave, const Matrix3& m) {
    for (int i = 0; i < 4; ++i)
        if (isave->WriteValue(m.GetRow(i)) != IO_OK) return IO_ERROR;
    return IO_OK;
}

inline IOResult ReadMatrix(ILoad* iload, Matrix3& m) {
    Point3 rows[4];
    for (Point3& row : rows)
        if (iload->ReadValue(row) != IO_OK) return IO_ERROR;
    m = Matrix3(rows[0], rows[1], rows[2], rows[3]);
    return IO_OK;
}

inline IOResult WriteClassID(ISave* isave, Class_ID id) {
    return WriteValues(isave, id.PartA(), id.PartB());
}

inline IOResult ReadClassID(ILoad* iload, Class_ID& id) {
    uint32_t a = 0, b = 0;
    if (ReadValues(iload, a, b) != IO_OK) return IO_ERROR;
    id = Class_ID(a, b);
    return IO_OK;
}

}  // namespace host::chunkio
