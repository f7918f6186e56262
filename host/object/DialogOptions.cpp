#include "host/object/DialogOptions.h"

#include <algorithm>
#include <cassert>

namespace host {

int DialogOptions::AddChoice(WStr label, std::vector<WStr> choices, int index) {
    assert(!choices.empty());
    const int last = int(choices.size()) - 1;
    return Add({Kind::CHOICE, std::move(label), std::move(choices), 0, last, index});
}

int DialogOptions::AddNumber(WStr label, int value, int minimum, int maximum) {
    assert(minimum <= maximum);
    return Add({Kind::NUMBER, std::move(label), {}, minimum, maximum, value});
}

int DialogOptions::AddCheck(WStr label, bool checked) {
    return Add({Kind::CHECK, std::move(label), {}, 0, 1, checked ? 1 : 0});
}

int DialogOptions::Add(Field field) {
    field.value = std::clamp(field.value, field.minimum, field.maximum);
    fields_.push_back(std::move(field));
    return Count() - 1;
}

const DialogOptions::Field& DialogOptions::GetField(int i) const {
    assert(i >= 0 && i < Count());
    return fields_[size_t(i)];
}

bool DialogOptions::SetValue(int i, int value) {
    if (i < 0 || i >= Count()) return false;
    Field& field = fields_[size_t(i)];
    if (value < field.minimum || value > field.maximum) return false;
    field.value = value;
    return true;
}

int DialogOptions::Find(const WStr& label) const {
    for (int i = 0; i < Count(); ++i)
        if (fields_[size_t(i)].label == label) return i;
    return -1;
}

}  // namespace host
