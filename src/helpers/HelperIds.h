#pragma once

#include "host/object/ClassId.h"
#include "host/object/PBAccessor.h"

// The control helpers' fixed numbers: parameter ids of the control helper's block,
// interface ids and chunk ids. Scene files and rig templates store them; they never
// change.
namespace zorvanta {

// The control helper's block "params" (id 0).
enum ControlHelperParam : host::ParamID {
    CH_TYPE = 0,
    CH_GIZMO = 1,
    CH_UNIFORM = 2,
    CH_SIZE = 3,
    CH_LENGTH = 4,
    CH_WIDTH = 5,
    CH_HEIGHT = 6,
    CH_AXIS = 7,
    CH_THICKNESS = 8,
    CH_CORNER = 9,
    CH_STEPS = 10,
    CH_WARP_AMOUNT = 11,
    CH_WARP_AXIS = 12,
    CH_OFFSET_LINE = 13,
    CH_FACE_CAMERA = 14,
    CH_CONSTANT_SCREEN_SIZE = 15,
    CH_DRAW_ON_TOP = 16,
    CH_SELECTOR_ACTIVE = 17,
    CH_SELECTOR_NODE = 18,
    CH_SELECTOR_IGNORE_BACKFACING = 19,
    CH_SELECTOR_USE_WIRE_COLOR = 20,
    CH_SELECTOR_COLOR = 21,
    CH_SELECTOR_SEL_OPACITY = 22,
    CH_SELECTOR_UNSEL_OPACITY = 23,
    CH_SELECTOR_PUSH_VALUE = 24,
};

// The control shape's block "params" (id 0) is the control helper's with one more
// parameter: the outline's uniform scale, a fraction, animatable.
inline constexpr host::ParamID CS_SCALE = 25;

// The published interfaces of the control helper and the control shape: each is its
// class's id.
inline constexpr host::Interface_ID CONTROL_HELPER_INTERFACE_ID(0x45596d57, 0x1e847b30);
inline constexpr host::Interface_ID CONTROL_SHAPE_INTERFACE_ID(0x45596d57, 0xed40c435);

// The control helper's own chunk: the selector's face selection. The control shape
// writes the same chunk beside its shape's chunks.
inline constexpr uint16_t CONTROL_HELPER_FACE_SEL_CHUNK = 0;

}  // namespace zorvanta
