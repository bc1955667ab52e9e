// The four types whose constants name port types, port directions, parameter types and parameter modes in scripts.
// Two constants are equal only when they are the same object; scripts make no further ones.
#pragma once

#include "engine/ScriptType.h"

namespace orvane {

/// What a constant of the four types holds.
struct EnumerationConstant {
    int code;
};

extern PyTypeObject portTypeType;
extern PyTypeObject portDirectionType;  // the code is the is-a-feed flag
extern PyTypeObject parameterTypeType;
extern PyTypeObject parameterModeType;  // the code is the is-an-input flag

void addPortTypes();
void addPortDirections();
void addParameterTypes();
void addParameterModes();

}  // namespace orvane
