#pragma once

#include <cstdint>

namespace host {

// The numbers of the drawing interface: colour slots, markers, render limits, edge
// states, hit regions, hit-test types and flags, view types and UI colours. Objects
// pass them to GraphicsWindow and ViewExp; scripts and files may hold them, so each
// value is fixed.

// The colour slots of a graphics window.
enum ColorType : int {
    LINE_COLOR = 0,    // lines, polylines and segments
    FILL_COLOR = 1,    // filled triangles and polygons
    TEXT_COLOR = 2,    // text
    CLEAR_COLOR = 3,   // the background a clear fills with
    MARKER_COLOR = 4,  // markers
    NUM_COLOR_TYPES = 5,
};

// Marker shapes: a few pixels drawn around a point, whatever the zoom.
enum MarkerType : int {
    POINT_MRKR = 0,
    HOLLOW_BOX_MRKR = 1,
    PLUS_SIGN_MRKR = 2,
    ASTERISK_MRKR = 3,
    X_MRKR = 4,
    BIG_BOX_MRKR = 5,
    CIRCLE_MRKR = 6,
    TRIANGLE_MRKR = 7,
    DIAMOND_MRKR = 8,
    SM_HOLLOW_BOX_MRKR = 9,
    SM_CIRCLE_MRKR = 10,
    SM_TRIANGLE_MRKR = 11,
    SM_DIAMOND_MRKR = 12,
    DOT_MRKR = 13,
    SM_DOT_MRKR = 14,
};

// Render limits: bits of what a graphics window may do while drawing.
inline constexpr uint32_t GW_WIREFRAME = 0x1;
inline constexpr uint32_t GW_ILLUM = 0x2;
inline constexpr uint32_t GW_FLAT = 0x4;
inline constexpr uint32_t GW_SPECULAR = 0x8;
inline constexpr uint32_t GW_TEXTURE = 0x10;
inline constexpr uint32_t GW_Z_BUFFER = 0x20;
inline constexpr uint32_t GW_PERSP_CORRECT = 0x40;
inline constexpr uint32_t GW_POLY_EDGES = 0x80;
inline constexpr uint32_t GW_BACKCULL = 0x100;
inline constexpr uint32_t GW_TWO_SIDED = 0x200;
// Primitives are tested against the hit region instead of drawn.
inline constexpr uint32_t GW_PICK = 0x1000;
inline constexpr uint32_t GW_BOX_MODE = 0x2000;
// Edges marked invisible are drawn too.
inline constexpr uint32_t GW_ALL_EDGES = 0x4000;

// Edge states of polylines: one per segment, from point i to point i + 1.
inline constexpr int GW_EDGE_SKIP = 0;   // never drawn
inline constexpr int GW_EDGE_VIS = 1;    // drawn
inline constexpr int GW_EDGE_INVIS = 2;  // drawn only under GW_ALL_EDGES

// The most points one polyline call takes; longer outlines go in pieces.
inline constexpr int GW_MAX_POLYLINE_POINTS = 32;

// Hit region shapes, in window pixels.
inline constexpr int POINT_RGN = 0x1;
inline constexpr int RECT_RGN = 0x2;
inline constexpr int CIRCLE_RGN = 0x4;
inline constexpr int FENCE_RGN = 0x8;

// The kinds of hit test a viewport asks objects for.
inline constexpr int HITTYPE_POINT = 1;
inline constexpr int HITTYPE_BOX = 2;
inline constexpr int HITTYPE_CIRCLE = 3;
inline constexpr int HITTYPE_SOLID = 4;
inline constexpr int HITTYPE_FENCE = 5;

// Hit-test flags.
inline constexpr int HIT_SELONLY = 1 << 0;
inline constexpr int HIT_UNSELONLY = 1 << 2;
inline constexpr int HIT_ABORTONHIT = 1 << 3;

// View types.
enum ViewType : int {
    VIEW_LEFT = 0,
    VIEW_RIGHT = 1,
    VIEW_TOP = 2,
    VIEW_BOTTOM = 3,
    VIEW_FRONT = 4,
    VIEW_BACK = 5,
    VIEW_ISO_USER = 6,
    VIEW_PERSP_USER = 7,
};

// The host's UI colours that objects draw with (GetUIColor).
inline constexpr int COLOR_SELECTION = 0;
inline constexpr int COLOR_SUBSELECTION = 1;
inline constexpr int COLOR_FREEZE = 2;
inline constexpr int COLOR_GRID = 3;
inline constexpr int COLOR_GRID_INTENS = 4;
inline constexpr int COLOR_VP_LABELS = 8;
inline constexpr int COLOR_LINK_LINES = 14;
inline constexpr int COLOR_POINT_OBJ = 20;
inline constexpr int COLOR_POINT_AXES = 21;
inline constexpr int COLOR_BONES = 23;
inline constexpr int COLOR_GIZMOS = 24;
inline constexpr int COLOR_SEL_GIZMOS = 25;
inline constexpr int COLOR_VIEWPORT_BKG = 26;

}  // namespace host
