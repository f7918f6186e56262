#pragma once

#include <vector>

#include "rig/RigPoint.h"

namespace zorvanta {

// The guide points of the user's extra chains, and the order of the extras. Pure
// functions over the point and extra lists, run by the rig object's rebuild.

// The sides an extra's chains are made on: 0 right, 1 left, both for side 2, and one
// chain without prefix (3) for centre and none.
std::vector<int> ExtraChainSides(int side);
// The name of control element (zero-based) of extra's chain on chainSide:
// "r_tail", "l_tail_2", "tail_3"; numbered only when the chain has more than one.
// Bone points add "_bone": "r_tail_bone_1".
host::WStr ExtraElementName(const RigExtra& extra, int chainSide, int element);
host::WStr ExtraBoneName(const RigExtra& extra, int chainSide, int bone);
// What parent becomes when extra before is renamed to after: the same element of the
// renamed chain, or the new name for the old one; null when parent is not on the extra.
host::WStr RenamedParent(const host::WStr& parent, const RigExtra& before, const RigExtra& after);
// The side an extra on parent gets when none is given: right for "r_...", left for
// "l_...", centre for any other name and for no parent.
int ExtraSideFromParent(const host::WStr& parent);
// Case-insensitive comparison of names, as extras compare them: <0, 0 or >0.
int CompareNames(const host::WStr& a, const host::WStr& b);
// The first name that no extra has: name itself when given and free, otherwise the
// first free "extra_<n>" counting from 1.
host::WStr FreeExtraName(const std::vector<RigExtra>& extras, const host::WStr& name);

// The extras' order: by the index of the guide point each hangs on, an extra hanging on
// another extra at 1000 and above (deeper ones later), names (case-insensitive) between
// equals. order[i] is the old index of the extra that goes to place i.
std::vector<int> SortedExtraOrder(const std::vector<RigExtra>& extras,
                                  const std::vector<RigPoint>& points);

// Appends the points of every extra to points (after the layout's points), in the
// extras' order. An element keeps its old position and selection by name unless the
// extra is new or to be re-placed (flags 2 and 4, cleared here); otherwise the chain
// starts at its parent point and runs on along the parent's direction. Points of the
// selected component are selected when not kept.
void BuildExtraPoints(std::vector<RigPoint>& points, const std::vector<RigPoint>& oldPoints,
                      std::vector<RigExtra>& extras, int selectedComponent);

}  // namespace zorvanta
