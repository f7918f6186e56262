#include "rig/RigExtraPoints.h"

#include <algorithm>
#include <cwctype>
#include <numeric>
#include <string>

#include "rig/RigIds.h"
#include "rig/RigNames.h"

namespace zorvanta {

using namespace host;

namespace {

// Spacing of a new chain's elements, in the unit frame.
constexpr float kExtraStep = 0.1f;
// Sort keys of extras that hang on other extras start here.
constexpr int kExtraOnExtraKey = 1000;

bool HasPrefix(const WStr& name, const wchar_t* prefix) {
    return name.str().rfind(prefix, 0) == 0;
}

int FindByName(const std::vector<RigPoint>& points, const WStr& name) {
    for (size_t i = 0; i < points.size(); ++i)
        if (points[i].name == name) return int(i);
    return -1;
}

// The point a chain on chainSide hangs on: the parent's partner on the chain's side
// when the parent is one of a pair ("l_hand" for the left chain of an extra on
// "r_hand"), else the parent itself; -1 when there is none.
int ChainParent(const std::vector<RigPoint>& points, const WStr& parent, int chainSide) {
    const bool right = HasPrefix(parent, L"r_"), left = HasPrefix(parent, L"l_");
    if ((right && chainSide == kSideLeft) || (left && chainSide == kSideRight)) {
        const WStr partner(std::wstring(chainSide == kSideLeft ? L"l_" : L"r_") +
                           parent.str().substr(2));
        if (const int i = FindByName(points, partner); i >= 0) return i;
    }
    return FindByName(points, parent);
}

// The direction a new chain runs in from its parent: on along the parent's own link,
// up when the parent has none; a chain of one side off a centre parent leans to its
// side (X to the character's left).
Point3 ChainDirection(const std::vector<RigPoint>& points, int parent, int chainSide) {
    Point3 dir(0, 0, 1);
    if (parent >= 0 && points[size_t(parent)].parent >= 0) {
        const Point3 link =
            points[size_t(parent)].pos - points[size_t(points[size_t(parent)].parent)].pos;
        if (Length(link) > 1e-6f) dir = Normalize(link);
    }
    const bool centreParent = parent < 0 || (points[size_t(parent)].flags & 3u) == 0;
    if (centreParent && chainSide == kSideRight) dir = Normalize(dir + Point3(-1, 0, 0));
    if (centreParent && chainSide == kSideLeft) dir = Normalize(dir + Point3(1, 0, 0));
    return dir;
}

uint32_t PairFlag(int chainSide) {
    return chainSide == kSideRight ? kPointRight : chainSide == kSideLeft ? kPointLeft : 0u;
}

// Adds one point of an extra, kept from the old list by name when keep, linked to its
// parent; returns its index.
int AddExtraPoint(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints, RigPoint p,
                  bool keep, int selectedComponent) {
    const int old = keep ? FindByName(oldPoints, p.name) : -1;
    if (old >= 0) {
        p.pos = oldPoints[size_t(old)].pos;
        p.selected = p.Fixed() ? 0 : oldPoints[size_t(old)].selected;
    } else {
        p.selected = !p.Fixed() && p.component == selectedComponent;
    }
    const int index = int(points.size());
    if (p.parent >= 0 && points[size_t(p.parent)].firstChild < 0 && !p.Fixed())
        points[size_t(p.parent)].firstChild = index;
    points.push_back(std::move(p));
    return index;
}

// The position at fraction t (0 to 1) along the polyline through the chain's points.
Point3 AlongChain(const std::vector<Point3>& chain, float t) {
    if (chain.size() == 1) return chain[0];
    const float at = t * float(chain.size() - 1);
    const size_t i = std::min(size_t(at), chain.size() - 2);
    return chain[i] + (chain[i + 1] - chain[i]) * (at - float(i));
}

// One chain of extra number k on chainSide: its controls, then its bones spread evenly
// from the first control to one step past the last. Returns the controls' indices.
std::vector<int> BuildChain(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints,
                            const RigExtra& extra, int k, int chainSide, int selectedComponent) {
    const bool keep = (extra.flags & (kExtraNew | kExtraReplace)) == 0;
    const int parent = ChainParent(points, extra.parent, chainSide);
    const Point3 start = parent >= 0 ? points[size_t(parent)].pos : Point3();
    const Point3 dir = ChainDirection(points, parent, chainSide);
    RigPoint p;
    p.component = kExtraComponentBase + k;
    p.flags = PairFlag(chainSide);
    p.extra = k;
    std::vector<int> controls;
    std::vector<Point3> chain;
    for (int i = 0; i < extra.numControls; ++i) {
        p.name = ExtraElementName(extra, chainSide, i);
        p.pos = start + dir * (kExtraStep * float(i));
        p.parent = controls.empty() ? parent : controls.back();
        controls.push_back(AddExtraPoint(points, oldPoints, p, keep, selectedComponent));
        chain.push_back(points[size_t(controls.back())].pos);
    }
    if (!extra.UseBones()) return controls;
    chain.push_back(chain.back() + dir * kExtraStep);
    p.flags |= kPointFixed;  // bones follow their controls, they are not placed
    p.parent = controls.front();
    for (int b = 0; b < extra.numBones; ++b) {
        p.name = ExtraBoneName(extra, chainSide, b);
        p.pos = AlongChain(chain, float(b) / float(extra.numBones));
        p.parent = AddExtraPoint(points, oldPoints, p, false, selectedComponent);
    }
    return controls;
}

// What extra's parent name hangs on: -1 for a guide point or nothing, else the extra.
int ExtraParentOf(const std::vector<RigExtra>& extras, const RigExtra& extra) {
    for (size_t j = 0; j < extras.size(); ++j)
        if (&extras[j] != &extra && !RenamedParent(extra.parent, extras[j], extras[j]).isNull())
            return int(j);
    return -1;
}

}  // namespace

std::vector<int> ExtraChainSides(int side) {
    if (side == kSideRight || side == kSideLeft) return {side};
    if (side == kSideBoth) return {kSideRight, kSideLeft};
    return {kSideCenter};
}

WStr ExtraElementName(const RigExtra& extra, int chainSide, int element) {
    return RigShortName(extra.name.data(), chainSide, extra.numControls > 1 ? element : -1);
}

WStr ExtraBoneName(const RigExtra& extra, int chainSide, int bone) {
    const std::wstring base = extra.name.str() + L"_bone";
    return RigShortName(base.c_str(), chainSide, extra.numBones > 1 ? bone : -1);
}

WStr RenamedParent(const WStr& parent, const RigExtra& before, const RigExtra& after) {
    if (CompareNames(parent, before.name) == 0) return after.name;
    for (int side : ExtraChainSides(before.side))
        for (int e = 0; e < before.numControls; ++e)
            if (parent == ExtraElementName(before, side, e))
                return ExtraElementName(after, side, e);
    return {};
}

int ExtraSideFromParent(const WStr& parent) {
    if (HasPrefix(parent, L"r_")) return kSideRight;
    if (HasPrefix(parent, L"l_")) return kSideLeft;
    return kSideCenter;
}

int CompareNames(const WStr& a, const WStr& b) {
    const std::wstring& x = a.str();
    const std::wstring& y = b.str();
    for (size_t i = 0; i < x.size() && i < y.size(); ++i) {
        const wint_t cx = std::towlower(wint_t(x[i])), cy = std::towlower(wint_t(y[i]));
        if (cx != cy) return cx < cy ? -1 : 1;
    }
    return x.size() == y.size() ? 0 : (x.size() < y.size() ? -1 : 1);
}

WStr FreeExtraName(const std::vector<RigExtra>& extras, const WStr& name) {
    auto taken = [&](const WStr& candidate) {
        return std::any_of(extras.begin(), extras.end(),
                           [&](const RigExtra& e) { return CompareNames(e.name, candidate) == 0; });
    };
    if (!name.isNull() && !taken(name)) return name;
    for (int n = 1;; ++n) {
        const WStr candidate(L"extra_" + std::to_wstring(n));
        if (!taken(candidate)) return candidate;
    }
}

std::vector<int> SortedExtraOrder(const std::vector<RigExtra>& extras,
                                  const std::vector<RigPoint>& points) {
    // The key of an extra: the guide point its chain of parents ends on, plus 1000 for
    // every extra on the way; a cycle of extras stops after as many steps as there are.
    std::vector<int> keys(extras.size());
    for (size_t i = 0; i < extras.size(); ++i) {
        int at = int(i), depth = 0;
        for (int parent; (parent = ExtraParentOf(extras, extras[size_t(at)])) >= 0 &&
                         depth < int(extras.size());
             at = parent)
            ++depth;
        int base = -1;
        for (size_t p = 0; p < points.size(); ++p)
            if (points[p].extra < 0 && points[p].name == extras[size_t(at)].parent) base = int(p);
        keys[i] = depth * kExtraOnExtraKey + base;
    }
    std::vector<int> order(extras.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        if (keys[size_t(a)] != keys[size_t(b)]) return keys[size_t(a)] < keys[size_t(b)];
        return CompareNames(extras[size_t(a)].name, extras[size_t(b)].name) < 0;
    });
    return order;
}

void BuildExtraPoints(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints,
                      std::vector<RigExtra>& extras, int selectedComponent) {
    for (size_t k = 0; k < extras.size(); ++k) {
        RigExtra& extra = extras[k];
        std::vector<std::vector<int>> chains;
        for (int side : ExtraChainSides(extra.side))
            chains.push_back(BuildChain(points, oldPoints, extra, int(k), side, selectedComponent));
        if (chains.size() == 2)
            for (size_t i = 0; i < chains[0].size(); ++i) {
                points[size_t(chains[0][i])].mirror = chains[1][i];
                points[size_t(chains[1][i])].mirror = chains[0][i];
            }
        extra.flags &= ~uint32_t(kExtraNew | kExtraReplace);
    }
}

}  // namespace zorvanta
