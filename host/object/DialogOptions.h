#pragma once

#include <vector>

#include "host/core/WStr.h"

namespace host {

// The extra fields a file dialog shows beside its list of files, such as the import
// dialog's skeleton, start frame and switches: a table the caller fills with the fields
// and their current values and reads back after OK. Every value is an int: the index of
// a choice, a number, or 0 and 1 for a check box. A dialog shows the fields in order.
class DialogOptions {
public:
    enum class Kind { CHOICE, NUMBER, CHECK };

    struct Field {
        Kind kind;
        WStr label;
        std::vector<WStr> choices;  // of a CHOICE
        int minimum;
        int maximum;
        int value;
    };

    // Each returns the new field's index. A value out of the field's range is brought to
    // its nearest end (a stored setting may be stale). A choice needs at least one entry.
    int AddChoice(WStr label, std::vector<WStr> choices, int index);
    int AddNumber(WStr label, int value, int minimum, int maximum);
    int AddCheck(WStr label, bool checked);

    int Count() const { return int(fields_.size()); }
    const Field& GetField(int i) const;
    int Value(int i) const { return GetField(i).value; }
    // False, with the value unchanged, for a value outside the field's range.
    bool SetValue(int i, int value);
    // The first field with this label, or -1.
    int Find(const WStr& label) const;

private:
    int Add(Field field);

    std::vector<Field> fields_;
};

}  // namespace host
