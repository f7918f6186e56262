#include "rig/IRigSystem.h"

#include <string>

#include "host/script/ScriptError.h"

namespace zorvanta {

using namespace host;

namespace {

// The published names of the rig types, in type order.
constexpr const wchar_t* kTypeNames[kRigTypeCount] = {
    L"Biped",     L"Hands",    L"Feet",      L"Arms",     L"Legs",      L"Spine",    L"Head",
    L"Tail",      L"Ears",     L"FrontLegs", L"BackLegs", L"Quadruped", L"Minotaur", L"Centaur",
    L"FrontPaws", L"BackPaws", L"InsectLeg", L"Insect",   L"Face",      L"Ant",      L"Bird",
    L"Octopus",   L"Snake",    L"Fish",      L"Claws",    L"BirdLeg",   L"Wing",     L"Tentacle"};

std::vector<std::pair<const wchar_t*, int>> TypeEnumItems() {
    std::vector<std::pair<const wchar_t*, int>> items;
    for (int i = 0; i < kRigTypeCount; ++i) items.emplace_back(kTypeNames[i], i);
    return items;
}

FPArgDesc Keyword(const wchar_t* name, ParamType2 type, FPValue def) {
    return {name, type, std::move(def)};
}

// The arguments that name a guide point after its base name.
std::vector<FPArgDesc> PointArgs(std::vector<FPArgDesc> args) {
    args.push_back(Keyword(L"side", TYPE_ENUM, FPValue(TYPE_ENUM, int(kSideNone))));
    args.push_back(Keyword(L"index", TYPE_INDEX, FPValue(TYPE_INDEX, -1)));
    args.push_back(Keyword(L"sub_index", TYPE_INDEX, FPValue(TYPE_INDEX, -1)));
    return args;
}

int IntArg(FPParams* p, size_t i) {
    return *p->params.at(i).Get<int>();
}
const WStr& TextArg(FPParams* p, size_t i) {
    return *p->params.at(i).Get<WStr>();
}

[[noreturn]] void BadArgument(const wchar_t* name, int value, const wchar_t* allowed) {
    throw RuntimeError(WStr(std::wstring(name) + L": " + std::to_wstring(value) +
                            L" is out of range (" + allowed + L")"));
}

int SideArg(FPParams* p, size_t i, const wchar_t* name = L"side") {
    const int side = IntArg(p, i);
    if (!ValidRigSide(side)) BadArgument(name, side, L"-1 to 3");
    return side;
}

// A count of controls or bones: 1 or more.
int CountArg(FPParams* p, size_t i, const wchar_t* name) {
    const int count = IntArg(p, i);
    if (count < 1) BadArgument(name, count, L"1 or more");
    return count;
}

// A point's number: one-based in scripts, left out when not given.
int PointIndexArg(FPParams* p, size_t i, const wchar_t* name) {
    const int index = IntArg(p, i);
    if (index < -1) BadArgument(name, index + 1, L"1 or more");
    return index;
}

}  // namespace

const FPInterfaceDesc* IRigSystem::Desc() {
    static const FPInterfaceDesc desc(
        RIG_SYSTEM_INTERFACE_ID, L"interface", FP_MIXIN,
        {
            {kCreateRig, L"CreateRig", TYPE_VOID, {}},
            {kResetRig, L"ResetRig", TYPE_VOID, {}},
            {kGetPointPos, L"GetPointPos", TYPE_POINT3, PointArgs({{L"name", TYPE_STRING}})},
            {kSetPointPos, L"SetPointPos", TYPE_VOID,
             PointArgs({{L"name", TYPE_STRING}, {L"pos", TYPE_POINT3}})},
            {kLoad, L"Load", TYPE_VOID, {{L"fileName", TYPE_STRING}}},
            {kLoadDlg, L"LoadDlg", TYPE_VOID, {}},
            {kSave, L"Save", TYPE_VOID, {{L"fileName", TYPE_STRING}}},
            {kSaveDlg, L"SaveDlg", TYPE_VOID, {}},
            {kGetNumExtras, L"GetNumExtras", TYPE_INT, {}},
            {kAddExtra,
             L"AddExtra",
             TYPE_BOOL,
             {Keyword(L"name", TYPE_STRING, FPValue(TYPE_STRING, WStr())),
              Keyword(L"parent", TYPE_STRING, FPValue(TYPE_STRING, WStr())),
              Keyword(L"side", TYPE_ENUM, FPValue(TYPE_ENUM, int(kSideNone))),
              Keyword(L"num_controls", TYPE_INT, FPValue(TYPE_INT, 1)),
              Keyword(L"num_bones", TYPE_INT, FPValue(TYPE_INT, 2)),
              Keyword(L"use_bones", TYPE_BOOL, FPValue(TYPE_BOOL, 0))}},
            {kRemoveExtra, L"RemoveExtra", TYPE_BOOL, {{L"index", TYPE_INDEX}}},
            {kGetExtraName, L"GetExtraName", TYPE_STRING, {{L"index", TYPE_INDEX}}},
            {kSetExtraName,
             L"SetExtraName",
             TYPE_BOOL,
             {{L"index", TYPE_INDEX}, {L"name", TYPE_STRING}}},
            {kGetExtraParent, L"GetExtraParent", TYPE_STRING, {{L"index", TYPE_INDEX}}},
            {kSetExtraParent,
             L"SetExtraParent",
             TYPE_BOOL,
             {{L"index", TYPE_INDEX}, {L"parent", TYPE_STRING}}},
            {kGetExtraSide, L"GetExtraSide", TYPE_ENUM, {{L"index", TYPE_INDEX}}},
            {kSetExtraSide,
             L"SetExtraSide",
             TYPE_BOOL,
             {{L"index", TYPE_INDEX}, {L"side", TYPE_ENUM}}},
            {kGetExtraNumControls, L"GetExtraNumControls", TYPE_INT, {{L"index", TYPE_INDEX}}},
            // The setter's second argument is named num_bones, as published.
            {kSetExtraNumControls,
             L"SetExtraNumControls",
             TYPE_BOOL,
             {{L"index", TYPE_INDEX}, {L"num_bones", TYPE_INT}}},
            {kGetExtraNumBones, L"GetExtraNumBones", TYPE_INT, {{L"index", TYPE_INDEX}}},
            {kSetExtraNumBones,
             L"SetExtraNumBones",
             TYPE_BOOL,
             {{L"index", TYPE_INDEX}, {L"num_bones", TYPE_INT}}},
        },
        {{L"type", kGetType, kSetType, TYPE_ENUM}},
        {{kRigTypeEnum, TypeEnumItems()},
         {kRigSideEnum,
          {{L"None", kSideNone},
           {L"Right", kSideRight},
           {L"Left", kSideLeft},
           {L"Both", kSideBoth},
           {L"Center", kSideCenter}}}});
    return &desc;
}

FPStatus IRigSystem::_dispatch_fn(FunctionID fid, TimeValue, FPValue& result, FPParams* p) {
    auto answer = [&](ParamType2 type, auto value) {
        result.Load(type, value);
        return FPS_OK;
    };
    auto done = [&](bool ok) { return answer(TYPE_BOOL, int(ok)); };
    switch (fid) {
        case kCreateRig:
            CreateRig();
            return FPS_OK;
        case kResetRig:
            ResetRig();
            return FPS_OK;
        case kGetPointPos:
            return answer(TYPE_POINT3,
                          GetPointPos(TextArg(p, 0), SideArg(p, 1), PointIndexArg(p, 2, L"index"),
                                      PointIndexArg(p, 3, L"sub_index")));
        case kSetPointPos:
            SetPointPos(TextArg(p, 0), *p->params.at(1).Get<Point3>(), SideArg(p, 2),
                        PointIndexArg(p, 3, L"index"), PointIndexArg(p, 4, L"sub_index"));
            return FPS_OK;
        case kGetType:
            return answer(TYPE_ENUM, GetType());
        case kSetType:
            if (IntArg(p, 0) < 0 || IntArg(p, 0) >= kRigTypeCount)
                BadArgument(L"type", IntArg(p, 0), L"0 to 27");
            SetType(IntArg(p, 0));
            return FPS_OK;
        case kLoad:
            Load(TextArg(p, 0));
            return FPS_OK;
        case kLoadDlg:
            LoadDlg();
            return FPS_OK;
        case kSave:
            Save(TextArg(p, 0));
            return FPS_OK;
        case kSaveDlg:
            SaveDlg();
            return FPS_OK;
        case kGetNumExtras:
            return answer(TYPE_INT, GetNumExtras());
        case kAddExtra:
            return done(AddExtra(TextArg(p, 0), TextArg(p, 1), SideArg(p, 2),
                                 CountArg(p, 3, L"num_controls"), CountArg(p, 4, L"num_bones"),
                                 IntArg(p, 5) != 0) >= 0);
        case kRemoveExtra:
            return done(RemoveExtra(IntArg(p, 0)));
        case kGetExtraName:
            return answer(TYPE_STRING, GetExtraName(IntArg(p, 0)));
        case kSetExtraName:
            return done(SetExtraName(IntArg(p, 0), TextArg(p, 1)));
        case kGetExtraParent:
            return answer(TYPE_STRING, GetExtraParent(IntArg(p, 0)));
        case kSetExtraParent:
            return done(SetExtraParent(IntArg(p, 0), TextArg(p, 1)));
        case kGetExtraSide:
            return answer(TYPE_ENUM, GetExtraSide(IntArg(p, 0)));
        case kSetExtraSide:
            return done(SetExtraSide(IntArg(p, 0), SideArg(p, 1)));
        case kGetExtraNumControls:
            return answer(TYPE_INT, GetExtraNumControls(IntArg(p, 0)));
        case kSetExtraNumControls:
            return done(SetExtraNumControls(IntArg(p, 0), CountArg(p, 1, L"num_bones")));
        case kGetExtraNumBones:
            return answer(TYPE_INT, GetExtraNumBones(IntArg(p, 0)));
        case kSetExtraNumBones:
            return done(SetExtraNumBones(IntArg(p, 0), CountArg(p, 1, L"num_bones")));
    }
    return FPS_NO_SUCH_FUNCTION;
}

}  // namespace zorvanta
