#include "host/classes/ListTraits.h"

#include "host/math/AffineParts.h"

namespace host {

bool ListTraits<Quat>::EntryIncrement(const Quat& before, float w, AngAxis& inc) {
    // Only a whole entry passes a turn on unchanged: a weighted one is written absolutely.
    if (w != 1.0f) return false;
    // total * inc = after * (entry * before * inc * Inverse(before)) * before: the entry
    // turns by inc conjugated by `before`, whose axis is inc's seen through Inverse(before).
    inc.axis = VectorTransform(QuatMatrix(Conjugate(Normalize(before))), inc.axis);
    return true;
}

ScaleValue ListTraits<ScaleValue>::Share(const ScaleValue& before, const ScaleValue& after,
                                         const ScaleValue& wanted) {
    AffineParts parts;
    decomp_affine(Inverse(ScaleValueMatrix(after)) * ScaleValueMatrix(wanted) *
                      Inverse(ScaleValueMatrix(before)),
                  &parts);
    return ScaleValue(parts.k * parts.f, parts.u);
}

}  // namespace host
