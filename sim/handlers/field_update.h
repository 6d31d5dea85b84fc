#pragma once

#include "handlers/handler_table.h"

#include <string>
#include <vector>

namespace sim {

struct IntField {
    const char* key;
    int low;
    int high;
};

// Copies the fields of `args` named in `fields` into `target`, all or none:
// false, with `target` unchanged, when a present field is no integer or out
// of range, or when no field is present at all.
bool updateIntFields(const json& args, json& target, const std::vector<IntField>& fields);

// A write of plain integer fields of the state object at `pointer`, refused
// with `invalid_code` by the rule above.
Handler intSetter(const std::string& pointer, std::vector<IntField> fields,
                  const std::string& invalid_code);

// A read answering `data` with the state object at `pointer`.
Handler objectReader(const std::string& pointer);

} // namespace sim
