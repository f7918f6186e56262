#include "rig/RigNames.h"

#include <string>

#include "rig/RigIds.h"

namespace zorvanta {

using host::WStr;

WStr RigShortName(const wchar_t* base, int side, int index, int sub) {
    std::wstring name = side == kSideRight ? L"r_" : side == kSideLeft ? L"l_" : L"";
    name += base;
    if (index >= 0) name += L"_" + std::to_wstring(index + 1);
    if (sub >= 0) name += L"_" + std::to_wstring(sub + 1);
    return WStr(name);
}

WStr RigNodeName(const WStr& rigName, const wchar_t* group, const WStr& shortName) {
    std::wstring name = rigName.data();
    if (group && *group) name += std::wstring(L"_") + group;
    name += L"_";
    name += shortName.data();
    return WStr(name);
}

}  // namespace zorvanta
