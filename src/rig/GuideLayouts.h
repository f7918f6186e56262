#pragma once

#include "rig/GuideBuilder.h"

namespace zorvanta {

// Makes the guide points of the builder's rig type, in creation order: one switch over
// the type, each type composing the part layouts in their frames. Type 8 and the types
// without layouts (19 and up) make no points.
void BuildGuideLayout(GuideBuilder& builder);

}  // namespace zorvanta
