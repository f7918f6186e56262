#pragma once

#include <cstdint>

namespace host {

// The value types of parameter blocks and published functions. Scene files and
// parameter-block definitions store these numbers, so they never change.
enum ParamType2 : int {
    TYPE_FLOAT = 0,
    TYPE_INT = 1,
    TYPE_RGBA = 2,  // a colour as Point3 0..1
    TYPE_POINT3 = 3,
    TYPE_BOOL = 4,
    TYPE_ANGLE = 5,      // radians, shown in degrees
    TYPE_PCNT_FRAC = 6,  // a fraction, shown as percent
    TYPE_WORLD = 7,      // world units
    TYPE_STRING = 8,
    TYPE_FILENAME = 9,
    TYPE_TIMEVALUE = 12,
    TYPE_RADIOBTN_INDEX = 13,
    TYPE_INODE = 17,
    TYPE_REFTARG = 18,
    TYPE_INDEX = 19,  // 0-based in C++, 1-based in scripts
    TYPE_MATRIX3 = 20,
    TYPE_POINT2 = 40,
    TYPE_QUAT = 41,
    TYPE_ANGAXIS = 42,
    TYPE_BITARRAY = 43,
    TYPE_CONTROL = 44,
    TYPE_ENUM = 45,
    TYPE_VOID = 46,
    TYPE_HWND = 47,
    TYPE_COLOR = 48,
    TYPE_FPVALUE = 49,  // another value, of any type (an int or a string, say)
    TYPE_VALUE = 50,    // a script value the script layer wraps
    TYPE_TSTR = 51,

    TYPE_TAB = 0x800,      // a table of the base type
    TYPE_BY_REF = 0x2000,  // an out parameter: the function writes the caller's value
};

inline constexpr int TYPE_BASE_MASK = 0x7FF;

// The kind of value a type stores; types of one kind share their storage (an angle is
// a float, a bool an int, a colour a Point3).
enum class ValueKind { Float, Int, Point3, Point2, Matrix, String, Reference, Other };

inline constexpr ParamType2 TableOf(ParamType2 t) {
    return ParamType2(t | TYPE_TAB);
}
inline constexpr ParamType2 ByRef(ParamType2 t) {
    return ParamType2(t | TYPE_BY_REF);
}
inline constexpr ParamType2 BaseType(ParamType2 t) {
    return ParamType2(t & TYPE_BASE_MASK);
}
inline constexpr bool IsTable(ParamType2 t) {
    return (t & TYPE_TAB) != 0;
}
inline constexpr bool IsByRef(ParamType2 t) {
    return (t & TYPE_BY_REF) != 0;
}

constexpr ValueKind KindOf(ParamType2 type) {
    switch (BaseType(type)) {
        case TYPE_FLOAT:
        case TYPE_ANGLE:
        case TYPE_PCNT_FRAC:
        case TYPE_WORLD:
            return ValueKind::Float;
        case TYPE_INT:
        case TYPE_BOOL:
        case TYPE_INDEX:
        case TYPE_ENUM:
        case TYPE_TIMEVALUE:
        case TYPE_RADIOBTN_INDEX:
            return ValueKind::Int;
        case TYPE_POINT3:
        case TYPE_RGBA:
        case TYPE_COLOR:
            return ValueKind::Point3;
        case TYPE_POINT2:
            return ValueKind::Point2;
        case TYPE_MATRIX3:
            return ValueKind::Matrix;
        case TYPE_STRING:
        case TYPE_FILENAME:
        case TYPE_TSTR:
            return ValueKind::String;
        case TYPE_INODE:
        case TYPE_REFTARG:
        case TYPE_CONTROL:
            return ValueKind::Reference;
        default:
            return ValueKind::Other;
    }
}

}  // namespace host
