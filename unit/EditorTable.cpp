#include "unit/EditorTable.h"

#include "cobia/Text.h"
#include "engine/Expression.h"
#include "parameters/StringParameter.h"

#include <algorithm>

namespace orvane {

using COBIA::Ref;
using COBIA::StringException;

namespace {

/// C knows no text with a null character in it.
std::string withoutNulls(std::string text) {
    for (std::size_t at = 0; (at = text.find('\0', at)) != text.npos;) text.replace(at, 1, "\uFFFD");
    return text;
}

std::string given(const char* text) { return text ? COBIA::wellFormed(text) : std::string(); }

template <class T> void write(T* output, T value) {
    if (output) *output = value;
}

/// Null when there is no such item.
template <class Items> auto itemAt(const Items& items, int number) -> decltype(&items[0]) {
    return number >= 0 && static_cast<std::size_t>(number) < items.size()
               ? &items[static_cast<std::size_t>(number)]
               : nullptr;
}

template <class Items, class Describe>
const char* const* list(EditorTexts& texts, const Items& items, Describe describe) {
    std::vector<std::string> result;
    for (const auto& item : items) result.push_back(describe(item));
    return texts.addList(result);
}

template <class Items> int count(const Items& items) { return static_cast<int>(items.size()); }

const char* kindOf(const Port& port) {
    switch (port.portType()) {
    case COBIA::CapePortType::material: return "material";
    case COBIA::CapePortType::energy: return "energy";
    case COBIA::CapePortType::information: return "information";
    default: return "";
    }
}

constexpr const char* noTexts[] = {nullptr};

/// What is wrong with the expression as a value of the parameter; empty when it was set.
std::string assign(const Ref<Parameter>* parameter, int number, const std::string& expression) {
    if (!parameter) return "there is no parameter number " + std::to_string(number);
    Parameter& target = **parameter;
    if (!target.isInput())
        return "'" + target.name() + "' is an output parameter: its value comes from the script";
    std::string errors =
        evaluateExpression(expression, [&](PyObject* value) { target.setFromScript(value); }).errors;
    errors.erase(errors.find_last_not_of("\r\n") + 1);
    return errors;
}

}  // namespace

const char* EditorTexts::add(std::string text) {
    return texts_.emplace_back(withoutNulls(std::move(text))).c_str();
}

const char* const* EditorTexts::addList(const std::vector<std::string>& texts) {
    std::vector<const char*>& result = lists_.emplace_back();
    for (const std::string& text : texts) result.push_back(add(text));
    result.push_back(nullptr);  // so that an empty list has an address too
    return result.data();
}

/// One member an entry. Each runs inside answer(), which no exception leaves.
struct EditorTable::Callbacks {
    /// Runs `body` with the unit and room for new texts; those of the callback before go when it has succeeded, for they
    /// may be its arguments. What cannot be done gives `otherwise`: a callback that can say why does so itself.
    template <class Result, class Body>
    static Result answer(EditingUnit* table, Result otherwise, Body&& body) noexcept {
        if (!table) return otherwise;
        auto& self = static_cast<EditorTable&>(*table);
        try {
            EditorTexts texts;
            Result result = body(self.unit_, texts);
            self.texts_ = std::move(texts);
            return result;
        }
        catch (...) {
            return otherwise;
        }
    }

    /// As answer, for a callback that gives an error text. `body` throws what it cannot do.
    template <class Body> static bool attempt(EditingUnit* table, const char** error, Body&& body) noexcept {
        write(error, "the unit operation failed for an unknown reason");
        return answer(table, false, [&](EditedUnit& unit, EditorTexts& texts) {
            try {
                write(error, body(unit, texts));
                return true;
            }
            catch (const std::exception& failure) {
                write(error, texts.add(failure.what()));
                return false;
            }
        });
    }

    static const char* scriptFile(EditingUnit* table) noexcept {
        return answer(table, "",
                      [](EditedUnit& unit, EditorTexts& texts) { return texts.add(unit.scriptPath()); });
    }

    template <CallTexts (EditedUnit::*step)()>
    static void run(EditingUnit* table, const char** output, const char** error) noexcept {
        write(output, "");
        attempt(table, error, [&](EditedUnit& unit, EditorTexts& texts) {
            CallTexts result = (unit.*step)();
            const char* const printed = texts.add(std::move(result.output));
            const char* const wrong = texts.add(std::move(result.errors));
            write(output, printed);
            return wrong;
        });
    }

    static void scriptChanged(EditingUnit* table) noexcept {
        answer(table, 0, [](EditedUnit& unit, EditorTexts&) { return unit.scriptChanged(), 0; });
    }

    static int ports(EditingUnit* table, const char* const** names, const char* const** kinds,
                     const char* const** directions) noexcept {
        for (const char* const** texts : {names, kinds, directions}) write(texts, &noTexts[0]);
        return answer(table, 0, [&](EditedUnit& unit, EditorTexts& texts) {
            const auto& all = unit.currentPorts();
            const auto* const allNames = list(texts, all, [](const auto& port) { return port->name(); });
            const auto* const allKinds = list(texts, all, [](const auto& port) { return kindOf(*port); });
            const auto* const allDirections =
                list(texts, all, [](const auto& port) { return port->isFeed() ? "inlet" : "outlet"; });
            write(names, allNames);
            write(kinds, allKinds);
            write(directions, allDirections);
            return count(all);
        });
    }

    static int parameters(EditingUnit* table, const char* const** names,
                          const char* const** directions) noexcept {
        for (const char* const** texts : {names, directions}) write(texts, &noTexts[0]);
        return answer(table, 0, [&](EditedUnit& unit, EditorTexts& texts) {
            const auto& all = unit.currentParameters();
            const auto* const allNames = list(texts, all, [](const auto& each) { return each->name(); });
            const auto* const allDirections =
                list(texts, all, [](const auto& each) { return each->isInput() ? "input" : "output"; });
            write(names, allNames);
            write(directions, allDirections);
            return count(all);
        });
    }

    static const char* lastOutput(EditingUnit* table) noexcept {
        return answer(table, "",
                      [](EditedUnit& unit, EditorTexts& texts) { return texts.add(unit.outputOfLastRun()); });
    }

    static void setLastOutput(EditingUnit* table, const char* text) noexcept {
        answer(table, 0,
               [&](EditedUnit& unit, EditorTexts&) { return unit.setOutputOfLastRun(given(text)), 0; });
    }

    static bool isInputParameter(EditingUnit* table, int number) noexcept {
        return answer(table, false, [&](EditedUnit& unit, EditorTexts&) {
            const auto* parameter = itemAt(unit.currentParameters(), number);
            return parameter && (*parameter)->isInput();
        });
    }

    static const char* parameterValue(EditingUnit* table, int number) noexcept {
        return answer(table, "", [&](EditedUnit& unit, EditorTexts& texts) {
            const auto* parameter = itemAt(unit.currentParameters(), number);
            if (!parameter) return "";
            return texts.add(
                valuesToText(1, [&](std::size_t) { return (*parameter)->scriptValue(); }).texts[0]);
        });
    }

    static int parameterOptions(EditingUnit* table, int number, const char* const** options,
                                int* current) noexcept {
        write(options, &noTexts[0]);
        write(current, -1);
        return answer(table, 0, [&](EditedUnit& unit, EditorTexts& texts) {
            const auto* parameter = itemAt(unit.currentParameters(), number);
            const auto* text = parameter ? dynamic_cast<const StringParameter*>(parameter->get()) : nullptr;
            if (!text || !text->restrictedToList()) return 0;
            const std::vector<std::string> all = text->optionList();
            const auto found = std::find(all.begin(), all.end(), text->value());
            write(options, texts.addList(all));
            write(current, found == all.end() ? -1 : static_cast<int>(found - all.begin()));
            return count(all);
        });
    }

    static int reports(EditingUnit* table, const char* const** names) noexcept {
        write(names, &noTexts[0]);
        return answer(table, 0, [&](EditedUnit& unit, EditorTexts& texts) {
            const auto& all = unit.declarations().reports;
            write(names, texts.addList(all));
            return count(all);
        });
    }

    static const char* reportText(EditingUnit* table, int number) noexcept {
        return answer(table, "", [&](EditedUnit& unit, EditorTexts& texts) {
            const std::string* name = itemAt(unit.declarations().reports, number);
            return name ? texts.add(unit.textOfReport(*name)) : "";
        });
    }

    static int images(EditingUnit* table, const char* const** names) noexcept {
        write(names, &noTexts[0]);
        return answer(table, 0, [&](EditedUnit& unit, EditorTexts& texts) {
            const auto& all = unit.declarations().images;
            write(names, list(texts, all, [](const Image& image) { return image.name; }));
            return count(all);
        });
    }

    static bool drawImage(EditingUnit* table, int number, const unsigned char** bytes, std::size_t* size,
                          const char** error) noexcept {
        write(bytes, static_cast<const unsigned char*>(nullptr));
        write(size, std::size_t{0});
        return attempt(table, error, [&](EditedUnit& unit, EditorTexts& texts) {
            const Image* image = itemAt(unit.declarations().images, number);
            if (!image) throw StringException() << "there is no image number " << number;
            const std::string& picture = texts.addBytes(unit.drawImage(*image));
            write(bytes, reinterpret_cast<const unsigned char*>(picture.data()));
            write(size, picture.size());
            return "";
        });
    }

    static const char* setParameter(EditingUnit* table, int number, const char* expression) noexcept {
        const char* error = "";
        attempt(table, &error, [&](EditedUnit& unit, EditorTexts& texts) {
            return texts.add(assign(itemAt(unit.currentParameters(), number), number, given(expression)));
        });
        return error;
    }
};

EditorTable::EditorTable(EditedUnit& unit) noexcept
    : EditingUnit{
          .scriptFile = Callbacks::scriptFile,
          .configure = Callbacks::run<&EditedUnit::configureInEditor>,
          .calculate = Callbacks::run<&EditedUnit::calculateInEditor>,
          .scriptChanged = Callbacks::scriptChanged,
          .ports = Callbacks::ports,
          .parameters = Callbacks::parameters,
          .lastOutput = Callbacks::lastOutput,
          .setLastOutput = Callbacks::setLastOutput,
          .isInputParameter = Callbacks::isInputParameter,
          .parameterValue = Callbacks::parameterValue,
          .parameterOptions = Callbacks::parameterOptions,
          .reports = Callbacks::reports,
          .reportText = Callbacks::reportText,
          .images = Callbacks::images,
          .drawImage = Callbacks::drawImage,
          .setParameter = Callbacks::setParameter,
      },
      unit_(unit) {}

}  // namespace orvane
