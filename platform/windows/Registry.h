// The registry as we read it: which roots, and the texts in them.
// Not here: what the values mean (RuntimeRegistry, PythonInstallation).
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <windows.h>

namespace orvane {

/// How the token of this process came by its rights; nullopt when the system does not tell.
std::optional<TOKEN_ELEVATION_TYPE> tokenElevation();

/// The roots to search, in this order: the user's, then the machine's. A process whose token was elevated looks at the
/// machine's alone.
std::vector<HKEY> registryRoots(std::optional<TOKEN_ELEVATION_TYPE> elevation);

/// A value of a key, in UTF-8; an empty name is the key's default value. Nullopt when there is none, or it is no string.
std::optional<std::string> registryText(HKEY root, const std::wstring& key, const std::wstring& name);

}  // namespace orvane
