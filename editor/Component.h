// The one component of this library: who it is, and what is registered of it.
#pragma once

#include "cobia/Types.h"

#include <string>

namespace orvane {

using COBIA::operator""_uuid;

inline constexpr COBIA::CapeUUID componentId = "50c3f11c-882a-48d5-bd54-fe6841c111bf"_uuid;

/// Registers the component for the current user, as created by the library in this file (UTF-8). Throws
/// COBIA::cape_open_error with the runtime's code; code 109 when no COBIA runtime is installed.
void registerComponent(const std::string& libraryFile);

/// Takes the registration back. Throws likewise.
void unregisterComponent();

}  // namespace orvane
