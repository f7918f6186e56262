#include "host/script/CycleCollector.h"

#include <vector>

namespace host::script {

ContainerObject::ContainerObject() {
    CycleCollector::Link(this);
}

ContainerObject::~ContainerObject() {
    CycleCollector::Unlink(this);
}

void CycleCollector::Link(ContainerObject* c) {
    c->next_ = first_;
    if (first_) first_->prev_ = c;
    first_ = c;
    ++count_;
}

void CycleCollector::Unlink(ContainerObject* c) {
    (c->prev_ ? c->prev_->next_ : first_) = c->next_;
    if (c->next_) c->next_->prev_ = c->prev_;
    --count_;
}

ContainerObject* CycleCollector::ContainerOf(const Value& v) {
    const Tag tag = v.tag();
    if (tag != Tag::Array && tag != Tag::Cell && tag != Tag::Function) return nullptr;
    return static_cast<ContainerObject*>(v.AsHeap());
}

size_t CycleCollector::Collect() {
    // References from outside: the count less those that containers hold.
    for (ContainerObject* c = first_; c; c = c->next_) {
        c->outside_ = c->refs;
        c->live_ = false;
    }
    for (ContainerObject* c = first_; c; c = c->next_)
        for (const Value& v : c->Children())
            if (ContainerObject* child = ContainerOf(v)) --child->outside_;
    // What those reach is live.
    std::vector<ContainerObject*> reach;
    for (ContainerObject* c = first_; c; c = c->next_)
        if (c->outside_ > 0) reach.push_back(c);
    while (!reach.empty()) {
        ContainerObject* c = reach.back();
        reach.pop_back();
        if (c->live_) continue;
        c->live_ = true;
        for (const Value& v : c->Children())
            if (ContainerObject* child = ContainerOf(v); child && !child->live_)
                reach.push_back(child);
    }
    // The rest: held while their values are let go, so that none goes mid-walk.
    std::vector<ContainerObject*> dead;
    for (ContainerObject* c = first_; c; c = c->next_)
        if (!c->live_) dead.push_back(c);
    for (ContainerObject* c : dead) ++c->refs;
    for (ContainerObject* c : dead)
        for (Value& v : c->Children()) v = Value();
    for (ContainerObject* c : dead)
        if (--c->refs == 0) delete c;
    return dead.size();
}

}  // namespace host::script
