#pragma once

#include "host/object/ClassId.h"

namespace host {

// The class ids of the host's own classes. Scene files store them, and the default
// controllers are chosen among them, so they live here, as data, for every layer.
inline constexpr Class_ID BEZIER_FLOAT_CLASS_ID(0x2007, 0);
inline constexpr Class_ID BEZIER_POSITION_CLASS_ID(0x2008, 0);
inline constexpr Class_ID POSITION_XYZ_CLASS_ID(0x118F7E02, 0xFFEE238A);
inline constexpr Class_ID EULER_XYZ_CLASS_ID(0x2012, 0);
inline constexpr Class_ID SCALE_XYZ_CLASS_ID(0x118F7C01, 0xFEEE238B);
inline constexpr Class_ID BEZIER_SCALE_CLASS_ID(0x2010, 0);
inline constexpr Class_ID PRS_CLASS_ID(0x2005, 0);
inline constexpr Class_ID TCB_FLOAT_CLASS_ID(0x442311, 0);
inline constexpr Class_ID TCB_POSITION_CLASS_ID(0x442312, 0);
inline constexpr Class_ID TCB_ROTATION_CLASS_ID(0x442313, 0);
inline constexpr Class_ID TCB_SCALE_CLASS_ID(0x442315, 0);
inline constexpr Class_ID POINT_HELPER_CLASS_ID(0x2013, 0);
inline constexpr Class_ID BONE_OBJECT_CLASS_ID(0x28bf6e8d, 0x2ecca840);
inline constexpr Class_ID CURVE_CONTROL_CLASS_ID(0x14585773, 0x483A7DCF);
inline constexpr Class_ID TEXT_SHAPE_CLASS_ID(0x5E7A0C31, 0x1D24B96F);
inline constexpr Class_ID DERIVED_OBJECT_CLASS_ID(0x1, 0);
inline constexpr Class_ID POLY_OBJECT_CLASS_ID(0x5D21369A, 0);
inline constexpr Class_ID EDITABLE_MESH_CLASS_ID(0x3E5A1C47, 0x1B2D9F06);
inline constexpr Class_ID MORPH_MODIFIER_CLASS_ID(0x6A2C1F07, 0x3B9D4E21);
inline constexpr Class_ID FLOAT_LIST_CLASS_ID(0x4B4B1001, 0);
inline constexpr Class_ID POSITION_LIST_CLASS_ID(0x4B4B1002, 0);
inline constexpr Class_ID ROTATION_LIST_CLASS_ID(0x4B4B1003, 0);
inline constexpr Class_ID SCALE_LIST_CLASS_ID(0x4B4B1004, 0);
inline constexpr Class_ID ORIENTATION_CONSTRAINT_CLASS_ID(0x2020, 0);
inline constexpr Class_ID LINK_CONTROL_CLASS_ID(0x4B4B1010, 0);
// Object-model classes the scene reader makes for loading.
inline constexpr Class_ID PARAM_BLOCK2_CLASS_ID(0x7C1E5A02, 0x2B90D3F4);
inline constexpr Class_ID CUST_ATTRIB_CONTAINER_CLASS_ID(0x5D0C7E13, 0x61A4F289);
inline constexpr Class_ID TRACK_VIEW_NODE_CLASS_ID(0x3A9F24C6, 0x0E57B1D8);

}  // namespace host
