// The callbacks that an editor is handed, on one unit: the texts they gave, and the border that no exception crosses.
// Not here: what the entries mean (EditingUnit.h), the editor's library (EditorLibrary).
#pragma once

#include "unit/EditedUnit.h"
#include "unit/EditingUnit.h"

#include <deque>
#include <string>
#include <vector>

namespace orvane {

/// Texts and lists on loan to C. They keep their place until this is destroyed or assigned to.
class EditorTexts {
public:
    const char* add(std::string text);
    const char* const* addList(const std::vector<std::string>& texts);
    /// As they are, null bytes included.
    const std::string& addBytes(std::string bytes) { return texts_.emplace_back(std::move(bytes)); }

private:
    std::deque<std::string> texts_;
    std::deque<std::vector<const char*>> lists_;
};

class EditorTable : private EditingUnit {
public:
    /// The unit must outlive the table.
    explicit EditorTable(EditedUnit& unit) noexcept;
    EditorTable(const EditorTable&) = delete;
    EditorTable& operator=(const EditorTable&) = delete;

    EditingUnit* get() noexcept { return this; }

private:
    struct Callbacks;

    EditedUnit& unit_;
    EditorTexts texts_;  // of the last callback
};

}  // namespace orvane
