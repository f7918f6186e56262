#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

class INode;
class ModContext;

// One hit of a hit test: the node, the modifier context for sub-object hits, the pixel
// distance from the pick point, what the object says was hit (a face index, a point),
// and the depth in front of the camera (world units) where it was hit.
struct HitRecord {
    INode* nodeRef = nullptr;
    ModContext* modContext = nullptr;
    uint32_t distance = 0;
    uint32_t hitInfo = 0;
    float depth = 0.0f;
};

// The hits of one hit test in the order they were logged.
class HitLog {
public:
    void LogHit(const HitRecord& hit) { hits_.push_back(hit); }
    void Clear() { hits_.clear(); }
    int Count() const { return int(hits_.size()); }
    const HitRecord& operator[](int i) const { return hits_[size_t(i)]; }
    // The hit nearest the pick point, and of those the nearest the camera; the first
    // logged among equals. Null for no hits.
    const HitRecord* ClosestHit() const;

private:
    std::vector<HitRecord> hits_;
};

}  // namespace host
