#pragma once

#include <cstdint>

// Chunk ids of the host classes' saved state. They are data of the scene file format:
// never renumber one. Ids are the class's own, so different classes may reuse numbers.
namespace host::chunks {

// --- controllers ---

// KeyframeControl (every bezier and TCB track)
inline constexpr uint16_t CTRL_KEYS = 0x1000;        // uint32 count, then the key structs
inline constexpr uint16_t CTRL_VALUE = 0x1010;       // the value held without keys
inline constexpr uint16_t CTRL_ORT_BEFORE = 0x1020;  // int32 out-of-range type
inline constexpr uint16_t CTRL_ORT_AFTER = 0x1030;   // int32 out-of-range type
// EulerXYZ
inline constexpr uint16_t CTRL_EULER_ORDER = 0x1100;  // int32
// ListControl (float, position, rotation and scale lists)
inline constexpr uint16_t CTRL_LIST_ENTRIES = 0x1200;  // count; per entry: name, float weight
inline constexpr uint16_t CTRL_LIST_ACTIVE = 0x1210;   // int32 index, -1 for an empty list
// OrientationConstraint
inline constexpr uint16_t CTRL_TARGET_WEIGHTS = 0x1300;  // count, then a float per target
// LinkControl
inline constexpr uint16_t CTRL_LINK_TIMES = 0x1400;  // count, then increasing int32 start times

// --- objects, shapes, meshes, modifiers, curves, layers ---

// MNMesh
inline constexpr uint16_t MESH_VERTS = 0x2000;  // the vertices' table
inline constexpr uint16_t MESH_FACES = 0x2010;  // face count; per face: flags, vertex table
// MeshObject (PolyObject, EditableMesh)
inline constexpr uint16_t MESHOBJ_MESH = 0x2080;  // the mesh's chunks

// Spline3D
inline constexpr uint16_t SPLINE_KNOTS = 0x2100;   // knot count; per knot: types, positions
inline constexpr uint16_t SPLINE_CLOSED = 0x2110;  // byte
// BezierShape
inline constexpr uint16_t SHAPE_STEPS = 0x2200;     // int32
inline constexpr uint16_t SHAPE_OPTIMIZE = 0x2210;  // byte
inline constexpr uint16_t SHAPE_SPLINE = 0x2220;    // one spline with its selections
inline constexpr uint16_t SHAPE_POLY_SEL = 0x2230;  // bit array
// Inside SHAPE_SPLINE: the spline's chunks, then its vertex and segment selections.
inline constexpr uint16_t SHAPE_SPLINE_CURVE = 0x2240;
inline constexpr uint16_t SHAPE_SPLINE_VERT_SEL = 0x2250;  // bit array
inline constexpr uint16_t SHAPE_SPLINE_SEG_SEL = 0x2260;   // bit array

// MorphModifier
inline constexpr uint16_t MORPH_CHANNEL = 0x2400;  // int32 index, name, target table

// ICurveCtl
inline constexpr uint16_t CURVECTL_RANGE = 0x2500;  // float x lo, x hi, y lo, y hi
inline constexpr uint16_t CURVECTL_CURVE = 0x2510;  // one curve's chunks
// ICurve
inline constexpr uint16_t CURVE_POINTS = 0x2580;  // point count; per point: p, in, out, flags

// LayerManager
inline constexpr uint16_t LAYERS_LAYER = 0x2600;  // one layer but the default: the chunks below
inline constexpr uint16_t LAYER_NAME = 0x2610;    // string
inline constexpr uint16_t LAYER_PARENT = 0x2620;  // int32 index in the manager, -1 for none

}  // namespace host::chunks
