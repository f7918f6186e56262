#pragma once

#include "host/core/Interval.h"
#include "host/core/WStr.h"
#include "host/math/Matrix3.h"
#include "host/math/Point2.h"

namespace host {

class ReferenceMaker;
class ReferenceTarget;
using ParamID = int16_t;

// One parameter value. The field its type uses is the one that counts: f for float,
// angle, percent and world; i for int, bool, index and time; p for point3 and colour;
// p2, m, s; r for node and reference-target parameters.
struct PB2Value {
    float f = 0.0f;
    int i = 0;
    Point3 p = {};
    Point2 p2 = {};
    Matrix3 m = {};
    WStr s = {};
    ReferenceTarget* r = nullptr;
};

// What happened to a table parameter.
enum tab_changes : int { tab_insert, tab_append, tab_delete, tab_ref_deleted, tab_setcount };

// Runs on every read and every write of its parameter, during undo and redo too, but
// never while a scene loads. Set may change the value before it is stored. TabChanged
// hears the table edits: count elements inserted, appended or deleted at tabIndex, a
// referenced element deleted, or the count set.
class PBAccessor {
public:
    virtual ~PBAccessor() = default;
    virtual void Get(PB2Value&, ReferenceMaker*, ParamID, int, TimeValue, Interval&) {}
    virtual void Set(PB2Value&, ReferenceMaker*, ParamID, int, TimeValue) {}
    virtual void TabChanged(tab_changes, ReferenceMaker*, ParamID, int, int) {}
};

// Refuses values a parameter must not take (a write of a refused value changes nothing).
class PBValidator {
public:
    virtual ~PBValidator() = default;
    virtual bool Validate(PB2Value& v) = 0;
};

// The scene reader's state: accessors do not run while it is on.
bool IsLoading();
void SetLoading(bool loading);

}  // namespace host
