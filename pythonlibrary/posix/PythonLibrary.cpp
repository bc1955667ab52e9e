#include "pythonlibrary/PythonLibrary.h"

namespace orvane {

void loadPythonLibrary(const std::filesystem::path&) {}

}  // namespace orvane
