#pragma once

#include "host/object/ClassId.h"
#include "host/object/ClassRegistry.h"

// The frame's fixed numbers: the class ids of the catalogue, which scene files store,
// the string ids of the string table, and the ids of the start-up key filters. They
// never change.
namespace zorvanta {

using host::Class_ID;
using host::SClass_ID;

// Class ids, in catalogue order. Some word pairs are shared by two classes of different
// superclasses, which tells them apart.
inline constexpr Class_ID STATIC_FLOAT_CLASS_ID(0x45596d56, 0x1e847b36);
inline constexpr Class_ID STEP_FLOAT_CLASS_ID(0x45596d56, 0x1e847b37);
inline constexpr Class_ID MSG_CHECKER_CLASS_ID(0x8443dfa5, 0x3f434885);
inline constexpr Class_ID STRETCH_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b40);
inline constexpr Class_ID AIM_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b39);
inline constexpr Class_ID FLOAT_EXPOSE_TM_CLASS_ID(0x45596d56, 0x1e847b41);
inline constexpr Class_ID FLOAT_CONNECTION_CLASS_ID(0x45596d56, 0x1e847b43);
inline constexpr Class_ID SCALE_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b44);
inline constexpr Class_ID TRANSFORM_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b45);
inline constexpr Class_ID STATIC_POSITION_CLASS_ID(0x45596d56, 0x1e847b50);
inline constexpr Class_ID STATIC_ROTATION_CLASS_ID(0x45596d56, 0x1e847b47);
inline constexpr Class_ID STATIC_SCALE_CLASS_ID(0x45596d56, 0x1e847b48);
inline constexpr Class_ID STATIC_TRANSFORM_CLASS_ID(0x45596d56, 0x1e847b49);
inline constexpr Class_ID CURVE_IK_CONTROL_CLASS_ID(0x45596d56, 0x1e847b51);
inline constexpr Class_ID CURVE_IK_CHAIN_CLASS_ID(0x45596d56, 0x1e847b52);
inline constexpr Class_ID CONTROL_HELPER_CLASS_ID(0x45596d57, 0x1e847b30);
inline constexpr Class_ID UI_PANEL_CLASS_ID(0x45596d56, 0x1e847f00);
inline constexpr Class_ID UI_GROUP_CLASS_ID(0x45596d56, 0x1e847f01);
inline constexpr Class_ID UI_IMAGE_CLASS_ID(0x45596d56, 0x1e847f03);
inline constexpr Class_ID UI_PICKER_CLASS_ID(0x45596d56, 0x1e847f04);
inline constexpr Class_ID UI_VISIBILITY_CLASS_ID(0x45596d56, 0x1e847f0b);
inline constexpr Class_ID UI_TOGGLE_CLASS_ID(0x45596d56, 0x1e847f05);
inline constexpr Class_ID UI_ACTION_CLASS_ID(0x45596d56, 0x1e847f06);
inline constexpr Class_ID UI_SLIDER_CLASS_ID(0x45596d56, 0x1e847f07);
inline constexpr Class_ID UI2_D_SLIDER_CLASS_ID(0x45596d56, 0x1e847f08);
inline constexpr Class_ID UI_SPINNER_CLASS_ID(0x45596d56, 0x1e847f09);
inline constexpr Class_ID UI2_D_SPINNER_CLASS_ID(0x45596d56, 0x1e847f0a);
inline constexpr Class_ID UI_PANEL_HOLDER_CLASS_ID(0x45596d56, 0x1e847f99);
inline constexpr Class_ID RIG_CLASS_ID(0x45596d57, 0x1e847b40);
inline constexpr Class_ID RIG_SYSTEM_CLASS_ID(0x45596d57, 0x1e847b41);
inline constexpr Class_ID IKFK_CHAIN_CLASS_ID(0x45596d56, 0x1e847b60);
inline constexpr Class_ID IKFK_CONTROL_CLASS_ID(0x45596d56, 0x1e847b62);
inline constexpr Class_ID IKFK_LINK_CLASS_ID(0x45596d56, 0x1e847b63);
inline constexpr Class_ID PARENT_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b54);
inline constexpr Class_ID ROTATION_SPACE_CLASS_ID(0x45596d56, 0x1e847b55);
inline constexpr Class_ID POSE_KIT_CLASS_ID(0x45596d56, 0x1e847000);
inline constexpr Class_ID POSE_KIT_HOLDER_CLASS_ID(0x45596d56, 0x1e847f0a);
inline constexpr Class_ID LIMB_ATTRIB_CLASS_ID(0x45596d56, 0x1e848001);
inline constexpr Class_ID CURVE_ATTRIB_CLASS_ID(0x45596d56, 0x1e848002);
inline constexpr Class_ID HEAD_ATTRIB_CLASS_ID(0x45596d56, 0x1e848003);
inline constexpr Class_ID FOOT_ATTRIB_CLASS_ID(0x45596d56, 0x1e848004);
inline constexpr Class_ID LINK_ATTRIB_CLASS_ID(0x45596d56, 0x1e848005);
inline constexpr Class_ID FLOAT_OPERATION_CLASS_ID(0x45596d56, 0x1e847b56);
inline constexpr Class_ID FLOAT_WAVE_CLASS_ID(0x45596d56, 0x1e847b57);
inline constexpr Class_ID RIG_CONTROL_CLASS_ID(0x45596d56, 0x1e847b58);
inline constexpr Class_ID POSITION_CONNECTION_CLASS_ID(0x45596d56, 0x1e847b59);
inline constexpr Class_ID ROTATION_CONNECTION_CLASS_ID(0x45596d56, 0x1e847b60);
inline constexpr Class_ID SCALE_CONNECTION_CLASS_ID(0x45596d56, 0x1e847b61);
inline constexpr Class_ID MIRROR_MORPH_CLASS_ID(0x45596d58, 0x1e847b01);
inline constexpr Class_ID CORRECTIVE_MORPH_CLASS_ID(0x45596d58, 0x1e847b02);
inline constexpr Class_ID DYNAMICS_CLASS_ID(0x45596d56, 0x1e847001);
inline constexpr Class_ID ANIMATION_MANAGER_MOD_CLASS_ID(0x45596d58, 0x1e847b03);
inline constexpr Class_ID ROOT_ATTRIB_CLASS_ID(0x45596d56, 0x1e848006);
inline constexpr Class_ID ROOT_CONSTRAINT_CLASS_ID(0x45596d56, 0x1e847b64);
inline constexpr Class_ID TWIST_POSES_FLOAT_CLASS_ID(0x45596d56, 0x1e847b65);
inline constexpr Class_ID TWIST_POSES_ROTATION_CLASS_ID(0x45596d56, 0x1e847b66);
inline constexpr Class_ID UI_LABEL_CLASS_ID(0x45596d56, 0x1e847f0c);
inline constexpr Class_ID DUMMY_FLOAT_CLASS_ID(0x45596d56, 0x1e847b67);
inline constexpr Class_ID DUMMY_ROTATION_CLASS_ID(0x45596d56, 0x1e847b68);
inline constexpr Class_ID ANIMATION_LAYERS_CLASS_ID(0x45596d56, 0x1e847b69);
inline constexpr Class_ID FLOAT_LAYERS_CLASS_ID(0x45596d56, 0x1e847b70);
inline constexpr Class_ID POSITION_LAYERS_CLASS_ID(0x45596d56, 0x1e847b71);
inline constexpr Class_ID ROTATION_LAYERS_CLASS_ID(0x45596d56, 0x1e847b72);
inline constexpr Class_ID SCALE_LAYERS_CLASS_ID(0x45596d56, 0x1e847b73);
inline constexpr Class_ID CONTROL_SHAPE_CLASS_ID(0x45596d57, 0xed40c435);
inline constexpr Class_ID IKFK_DISPLAY_MOD_CLASS_ID(0x45596d58, 0x3397fdc);
inline constexpr Class_ID ANIM_LAYERS_LOCAL_WEIGHTS_CLASS_ID(0x45596d56, 0x1e847b68);
inline constexpr Class_ID ROTATION_XYZ_CLASS_ID(0x45596d56, 0x1e847b74);

// The script global Zorvanta, a core interface of the host.
inline constexpr host::Interface_ID ZORVANTA_INTERFACE_ID(0x45596d56, 0x1e847c00);

// Strings of the string table.
inline constexpr int IDS_SELECT_OBJECT = 99;
inline constexpr int IDS_PARAMETER_CHANGE = 101;
inline constexpr int IDS_NONE = 156;
inline constexpr int IDS_VERTICAL_OFFSET = 256;
inline constexpr int IDS_RIG_SYSTEM_CHANGE = 342;
inline constexpr int IDS_HEAD = 362;
inline constexpr int IDS_HAND = 548;
inline constexpr int IDS_CREATE_RIG = 609;
inline constexpr int IDS_LIMB_ATTRIB_CLASS = 610;
inline constexpr int IDS_CURVE_ATTRIB_CLASS = 613;
inline constexpr int IDS_HEAD_ATTRIB_CLASS = 614;
inline constexpr int IDS_FOOT_ATTRIB_CLASS = 615;
inline constexpr int IDS_LINK_ATTRIB_CLASS = 782;
inline constexpr int IDS_MAIN = 784;
inline constexpr int IDS_PELVIS = 785;
inline constexpr int IDS_CHEST = 786;
inline constexpr int IDS_LOAD_ANIMATION = 855;
inline constexpr int IDS_LOAD_POSE = 856;
inline constexpr int IDS_ANIMATION_MANAGER_CHANGE = 862;
inline constexpr int IDS_ROOT_ATTRIB_CLASS = 878;
inline constexpr int IDS_ANIMATION_LAYERS_CHANGE = 959;
inline constexpr int IDS_ANIMATION_LAYERS_ACTIVE_FILTER = 962;
inline constexpr int IDS_BASE_LAYER = 970;
inline constexpr int IDS_ANIM_LAYER = 971;
inline constexpr int IDS_MULTIPLE_ANIM_LAYER_SETS = 972;
inline constexpr int IDS_LOAD_RIG_TEMPLATE = 985;
inline constexpr int IDS_RIG_TEMPLATE_FILES = 986;
inline constexpr int IDS_LOAD_RIG_TEMPLATE_FILE = 989;
inline constexpr int IDS_ALL_FILES = 990;
inline constexpr int IDS_TRANSFERING_ANIMATION = 1025;
// The control helper's labels, rollup titles, levels and undo names.
inline constexpr int IDS_HELPER_TYPE = 1200;
inline constexpr int IDS_GIZMO = 1201;
inline constexpr int IDS_UNIFORM = 1202;
inline constexpr int IDS_SIZE = 1203;
inline constexpr int IDS_LENGTH = 1204;
inline constexpr int IDS_WIDTH = 1205;
inline constexpr int IDS_HEIGHT = 1206;
inline constexpr int IDS_AXIS = 1207;
inline constexpr int IDS_THICKNESS = 1208;
inline constexpr int IDS_CORNER = 1209;
inline constexpr int IDS_STEPS = 1210;
inline constexpr int IDS_WARP_AMOUNT = 1211;
inline constexpr int IDS_WARP_AXIS = 1212;
inline constexpr int IDS_OFFSET_LINE = 1213;
inline constexpr int IDS_FACE_CAMERA = 1214;
inline constexpr int IDS_CONSTANT_SCREEN_SIZE = 1215;
inline constexpr int IDS_DRAW_ON_TOP = 1216;
inline constexpr int IDS_SELECTOR_ACTIVE = 1217;
inline constexpr int IDS_SELECTOR_NODE = 1218;
inline constexpr int IDS_SELECTOR_IGNORE_BACKFACING = 1219;
inline constexpr int IDS_SELECTOR_USE_WIRE_COLOR = 1220;
inline constexpr int IDS_SELECTOR_COLOR = 1221;
inline constexpr int IDS_SELECTOR_SEL_OPACITY = 1222;
inline constexpr int IDS_USE_POSITION = 1223;
inline constexpr int IDS_SELECTOR_PUSH_VALUE = 1224;
inline constexpr int IDS_PARAMETERS = 1225;
inline constexpr int IDS_SELECTOR = 1226;
inline constexpr int IDS_SELECTOR_POLYGON = 1227;
inline constexpr int IDS_SELECTOR_FACE_SELECTION = 1228;
inline constexpr int IDS_CONTROL_HELPER_CHANGE = 1229;
inline constexpr int IDS_RESET_GIZMO = 1230;
inline constexpr int IDS_STATIC_FLOAT_CLASS = 2000;
inline constexpr int IDS_STEP_FLOAT_CLASS = 2001;
inline constexpr int IDS_MSG_CHECKER_CLASS = 2002;
inline constexpr int IDS_STRETCH_CONSTRAINT_CLASS = 2003;
inline constexpr int IDS_AIM_CONSTRAINT_CLASS = 2004;
inline constexpr int IDS_FLOAT_EXPOSE_TM_CLASS = 2005;
inline constexpr int IDS_FLOAT_CONNECTION_CLASS = 2006;
inline constexpr int IDS_SCALE_CONSTRAINT_CLASS = 2007;
inline constexpr int IDS_TRANSFORM_CONSTRAINT_CLASS = 2008;
inline constexpr int IDS_STATIC_POSITION_CLASS = 2009;
inline constexpr int IDS_STATIC_ROTATION_CLASS = 2010;
inline constexpr int IDS_STATIC_SCALE_CLASS = 2011;
inline constexpr int IDS_STATIC_TRANSFORM_CLASS = 2012;
inline constexpr int IDS_CURVE_IK_CONTROL_CLASS = 2013;
inline constexpr int IDS_CURVE_IK_CHAIN_CLASS = 2014;
inline constexpr int IDS_CONTROL_HELPER_CLASS = 2015;
inline constexpr int IDS_UI_PANEL_CLASS = 2016;
inline constexpr int IDS_UI_GROUP_CLASS = 2017;
inline constexpr int IDS_UI_IMAGE_CLASS = 2018;
inline constexpr int IDS_UI_PICKER_CLASS = 2019;
inline constexpr int IDS_UI_VISIBILITY_CLASS = 2020;
inline constexpr int IDS_UI_TOGGLE_CLASS = 2021;
inline constexpr int IDS_UI_SLIDER_CLASS = 2023;
inline constexpr int IDS_UI2_D_SLIDER_CLASS = 2024;
inline constexpr int IDS_UI_SPINNER_CLASS = 2025;
inline constexpr int IDS_UI2_D_SPINNER_CLASS = 2026;
inline constexpr int IDS_UI_PANEL_HOLDER_CLASS = 2027;
inline constexpr int IDS_RIG_CLASS = 2028;
inline constexpr int IDS_RIG_SYSTEM_CLASS = 2029;
inline constexpr int IDS_IKFK_CHAIN_CLASS = 2030;
inline constexpr int IDS_IKFK_CONTROL_CLASS = 2031;
inline constexpr int IDS_IKFK_LINK_CLASS = 2032;
inline constexpr int IDS_PARENT_CONSTRAINT_CLASS = 2033;
inline constexpr int IDS_ROTATION_SPACE_CLASS = 2034;
inline constexpr int IDS_POSE_KIT_CLASS = 2035;
inline constexpr int IDS_POSE_KIT_HOLDER_CLASS = 2036;
inline constexpr int IDS_FLOAT_OPERATION_CLASS = 2042;
inline constexpr int IDS_FLOAT_WAVE_CLASS = 2043;
inline constexpr int IDS_RIG_CONTROL_CLASS = 2044;
inline constexpr int IDS_POSITION_CONNECTION_CLASS = 2045;
inline constexpr int IDS_ROTATION_CONNECTION_CLASS = 2046;
inline constexpr int IDS_SCALE_CONNECTION_CLASS = 2047;
inline constexpr int IDS_MIRROR_MORPH_CLASS = 2048;
inline constexpr int IDS_CORRECTIVE_MORPH_CLASS = 2049;
inline constexpr int IDS_DYNAMICS_CLASS = 2050;
inline constexpr int IDS_ANIMATION_MANAGER_MOD_CLASS = 2051;
inline constexpr int IDS_ROOT_CONSTRAINT_CLASS = 2053;
inline constexpr int IDS_TWIST_POSES_FLOAT_CLASS = 2054;
inline constexpr int IDS_TWIST_POSES_ROTATION_CLASS = 2055;
inline constexpr int IDS_UI_LABEL_CLASS = 2056;
inline constexpr int IDS_DUMMY_FLOAT_CLASS = 2057;
inline constexpr int IDS_DUMMY_ROTATION_CLASS = 2058;
inline constexpr int IDS_ANIMATION_LAYERS_CLASS = 2059;
inline constexpr int IDS_FLOAT_LAYERS_CLASS = 2060;
inline constexpr int IDS_POSITION_LAYERS_CLASS = 2061;
inline constexpr int IDS_ROTATION_LAYERS_CLASS = 2062;
inline constexpr int IDS_SCALE_LAYERS_CLASS = 2063;
inline constexpr int IDS_CONTROL_SHAPE_CLASS = 2064;
inline constexpr int IDS_IKFK_DISPLAY_MOD_CLASS = 2065;
inline constexpr int IDS_ANIM_LAYERS_LOCAL_WEIGHTS_CLASS = 2066;
inline constexpr int IDS_ROTATION_XYZ_CLASS = 2067;
inline constexpr int IDS_CHANGE_EULER_ORDER = 2300;
inline constexpr int IDS_TARGET = 2301;
inline constexpr int IDS_WEIGHT = 2302;
inline constexpr int IDS_KEEP_INITIAL_OFFSET = 2303;
inline constexpr int IDS_INITIAL_OFFSET = 2304;

// The rig control's labels and texts.
inline constexpr int IDS_OFFSET_TM = 3100;
inline constexpr int IDS_INDEPENDENT_OFFSET = 3101;
inline constexpr int IDS_STRAIGHT_SCALE = 3102;
inline constexpr int IDS_CONNECT_MIRROR_OFFSET = 3103;
inline constexpr int IDS_FIGURE_MODE_ON = 3104;
inline constexpr int IDS_TRANSFORM = 3105;
inline constexpr int IDS_OFFSET_TRANSFORM = 3106;
inline constexpr int IDS_PARENT_ROT = 3107;
inline constexpr int IDS_EULER_ROT = 3108;

// The track-bar key filters registered at start-up.
inline constexpr Class_ID LAYER_KEY_FILTER_ID(0x683a39cc, 0x8b57c48e);
inline constexpr Class_ID ROTATION_KEY_FILTER_ID(0x333e373f, 0x2f4c4168);

}  // namespace zorvanta
