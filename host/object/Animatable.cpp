#include "host/object/Animatable.h"

#include <algorithm>

#include "host/object/Hold.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/IParamBlock2.h"

namespace host {

Animatable::~Animatable() {
    if (!custAttribs_) return;
    theHold.Suspend();
    custAttribs_->DeleteMe();
    theHold.Resume();
}

int Animatable::EnumAnimTree(AnimEnum* proc, Animatable* client, int subNum) {
    const int answer = proc->proc(this, client, subNum);
    if (answer != ANIM_ENUM_PROCEED) return answer;
    for (int i = 0; i < NumSubs(); ++i) {
        Animatable* sub = SubAnim(i);
        if (sub && sub->EnumAnimTree(proc, this, i) == ANIM_ENUM_ABORT) return ANIM_ENUM_ABORT;
    }
    return ANIM_ENUM_PROCEED;
}

Interval Animatable::GetTimeRange() {
    Interval range = NEVER;
    for (int i = 0; i < NumSubs(); ++i) {
        Animatable* sub = SubAnim(i);
        const Interval r = sub ? sub->GetTimeRange() : NEVER;
        if (r.Empty()) continue;
        range = range.Empty()
                    ? r
                    : Interval(std::min(range.Start(), r.Start()), std::max(range.End(), r.End()));
    }
    return range;
}

bool Animatable::IsAnimated() {
    for (int i = 0; i < NumSubs(); ++i)
        if (Animatable* sub = SubAnim(i); sub && sub->IsAnimated()) return true;
    return false;
}

IParamBlock2* Animatable::GetParamBlockByID(BlockID id) {
    for (int i = 0; i < NumParamBlocks(); ++i)
        if (IParamBlock2* pb = GetParamBlock(i); pb && pb->ID() == id) return pb;
    return nullptr;
}

AnimProperty* Animatable::GetProperty(uint32_t id) {
    for (auto& [key, data] : properties_)
        if (key == id) return data.get();
    return nullptr;
}

void Animatable::SetProperty(uint32_t id, AnimProperty* data) {
    std::erase_if(properties_, [id](const auto& p) { return p.first == id; });
    if (data) properties_.emplace_back(id, std::unique_ptr<AnimProperty>(data));
}

void Animatable::CopyPropertiesFrom(const Animatable& from) {
    for (const auto& [id, data] : from.properties_)
        if (AnimProperty* copy = data->Clone()) SetProperty(id, copy);
}

bool Animatable::AdoptCustAttribContainer(ICustAttribContainer* container) {
    if (custAttribs_) return custAttribs_ == container;
    custAttribs_ = container;
    return true;
}

void Animatable::AllocCustAttribContainer() {
    if (!custAttribs_) custAttribs_ = new ICustAttribContainer(this);
}

}  // namespace host
