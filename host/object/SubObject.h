#pragma once

#include "host/core/TimeValue.h"
#include "host/math/Matrix3.h"
#include "host/math/Point3.h"

namespace host {

// What objects and modifiers with sub-object levels hand to the host: the names of
// their levels, the tools each level offers, and the centres and axes the transform
// tools turn about.

// One sub-object level as the modify panel lists it.
class ISubObjType {
public:
    virtual ~ISubObjType() = default;
    virtual const wchar_t* GetName() = 0;
};

// A level named by a fixed text.
class GenSubObjType : public ISubObjType {
public:
    explicit GenSubObjType(const wchar_t* name) : name_(name) {}
    const wchar_t* GetName() override { return name_; }

private:
    const wchar_t* name_;
};

// The kinds of viewport tool a level may offer.
enum CommandModeClass : int {
    SELECT_COMMAND = 1,
    MOVE_COMMAND = 2,
    ROTATE_COMMAND = 3,
    SCALE_COMMAND = 4,
    USCALE_COMMAND = 5,
    SQUASH_COMMAND = 6,
};

// A viewport tool that an object lends the host while one of its levels is active.
class CommandMode {
public:
    virtual ~CommandMode() = default;
    virtual int Class() = 0;
};

// The tools a level offers, null where it offers none. ActivateSubobjSel fills it.
struct XFormModes {
    CommandMode* move = nullptr;
    CommandMode* rotate = nullptr;
    CommandMode* scale = nullptr;
    CommandMode* uscale = nullptr;
    CommandMode* squash = nullptr;
    CommandMode* select = nullptr;
};

// Receives the centres (world space) and axis systems (to world) of the current
// sub-object selection, one call per cluster id.
class SubObjAxisCallback {
public:
    virtual ~SubObjAxisCallback() = default;
    virtual void Center(const Point3& c, int id) = 0;
    virtual void TM(const Matrix3& tm, int id) = 0;
};

}  // namespace host
