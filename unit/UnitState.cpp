#include "unit/UnitState.h"

#include "cobia/Call.h"

#include <optional>
#include <type_traits>

namespace orvane {
namespace {

using namespace COBIA;
using Writer = ICapePersistWriter::Table;
using Reader = ICapePersistReader::Table;

std::string parameterItem(std::size_t index) { return "parameter" + std::to_string(index); }

void writeText(ICapePersistWriter* writer, const char* item, const std::string& text) {
    call<&Writer::AddString>(writer, StringObject(item).in(), StringObject(text).in());
}

void writeTexts(ICapePersistWriter* writer, const char* item, const std::vector<std::string>& texts) {
    call<&Writer::AddArrayString>(writer, StringObject(item).in(), StringArray(texts).in());
}

void writeValue(ICapePersistWriter* writer, const std::string& item, const StoredValue& stored) {
    const StringObject name(item);
    std::visit(
        [&](const auto& value) {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, double>)
                call<&Writer::AddReal>(writer, name.in(), value);
            else if constexpr (std::is_same_v<Value, CapeInteger>)
                call<&Writer::AddInteger>(writer, name.in(), value);
            else if constexpr (std::is_same_v<Value, std::string>)
                call<&Writer::AddString>(writer, name.in(), StringObject(value).in());
            else if constexpr (std::is_same_v<Value, bool>)
                call<&Writer::AddBoolean>(writer, name.in(), CapeBoolean{value ? 1u : 0u});
            else
                call<&Writer::AddArrayReal>(writer, name.in(), RealView(value).in());
        },
        stored);
}

std::string readText(ICapePersistReader* reader, const char* item) {
    return text<&Reader::GetString>(reader, StringObject(item).in());
}

std::vector<std::string> readTextItems(ICapePersistReader* reader, const std::string& item) {
    StringArray texts;
    call<&Reader::GetArrayString>(reader, StringObject(item).in(), texts.out());
    return texts.utf8();
}

StoredValue readValue(ICapePersistReader* reader, const std::string& item, CapeInteger typeCode) {
    const StringObject name(item);
    switch (static_cast<ParameterTypeCode>(typeCode)) {
    case ParameterTypeCode::real: {
        double value = 0;
        call<&Reader::GetReal>(reader, name.in(), &value);
        return value;
    }
    case ParameterTypeCode::integer: {
        CapeInteger value = 0;
        call<&Reader::GetInteger>(reader, name.in(), &value);
        return value;
    }
    case ParameterTypeCode::string: return text<&Reader::GetString>(reader, name.in());
    case ParameterTypeCode::boolean: {
        CapeBoolean value = 0;
        call<&Reader::GetBoolean>(reader, name.in(), &value);
        return value != 0;
    }
    case ParameterTypeCode::arrayReal: {
        RealArray value;
        call<&Reader::GetArrayReal>(reader, name.in(), value.out());
        return std::vector<double>(value.view().begin(), value.view().end());
    }
    }
    throw StringException("unsupported data type");
}

/// What is wrong with two lists that belong together, item by item.
template <class First, class Second>
std::optional<std::string> disagreement(const char* first, const First& firstList, const char* second,
                                        const Second& secondList) {
    if (firstList.size() == secondList.size()) return std::nullopt;
    return "the saved state is damaged: \"" + std::string(first) + "\" holds " +
           std::to_string(firstList.size()) + " items, \"" + second + "\" " +
           std::to_string(secondList.size());
}

void readParameters(ICapePersistReader* reader, UnitState& state, std::vector<std::string>& warnings) {
    const std::vector<std::string> names = readTextItems(reader, "parameterNames");
    IntegerArray types;
    call<&Reader::GetArrayInteger>(reader, StringObject("parameterTypes").in(), types.out());
    if (const auto damage = disagreement("parameterNames", names, "parameterTypes", types.view()))
        throw StringException(*damage);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const CapeInteger type = types.view()[i];
        if (type < 0 || type > static_cast<CapeInteger>(ParameterTypeCode::arrayReal))
            throw StringException("unsupported data type");
        try {
            state.parameters.push_back({names[i], readValue(reader, parameterItem(i), type)});
        }
        catch (const cape_open_error& error) {
            warnings.push_back("Cannot load value for '" + names[i] + "': " + error.what());
        }
    }
}

}  // namespace

void writeState(ICapePersistWriter* writer, const UnitState& state) {
    writeText(writer, "python", state.script);
    writeText(writer, "lastOutput", state.lastOutput);
    writeText(writer, "runReportHeader", state.runReportHeader);
    writeText(writer, "runReportFooter", state.runReportFooter);

    std::vector<std::string> names;
    IntegerArray types;
    const std::span<CapeInteger> codes = types.resize(state.parameters.size());
    for (std::size_t i = 0; i < state.parameters.size(); ++i) {
        const auto& [name, value] = state.parameters[i];
        writeValue(writer, parameterItem(i), value);
        names.push_back(name);
        codes[i] = static_cast<CapeInteger>(value.index());
    }
    writeTexts(writer, "parameterNames", names);
    call<&Writer::AddArrayInteger>(writer, StringObject("parameterTypes").in(), types.in());

    std::vector<std::string> reportNames, reportTexts, imageNames, imageFunctions;
    for (const auto& [name, text] : state.reports) {
        reportNames.push_back(name);
        reportTexts.push_back(text);
    }
    for (const auto& [name, function] : state.images) {
        imageNames.push_back(name);
        imageFunctions.push_back(function);
    }
    writeTexts(writer, "reportNames", reportNames);
    writeTexts(writer, "reportValues", reportTexts);
    writeTexts(writer, "imageNames", imageNames);
    writeTexts(writer, "imageFunctions", imageFunctions);

    if (!state.privateData.empty()) {
        const ByteArray bytes(state.privateData);
        call<&Writer::AddArrayByte>(writer, StringObject("privateData").in(), bytes.in());
    }
}

UnitState readState(ICapePersistReader* reader, std::vector<std::string>& warnings) {
    UnitState state;
    state.script = readText(reader, "python");
    state.lastOutput = readText(reader, "lastOutput");
    state.runReportHeader = readText(reader, "runReportHeader");
    state.runReportFooter = readText(reader, "runReportFooter");
    readParameters(reader, state, warnings);

    // The rest is there or not, so that states of units without reports or data stay small.
    StringArray items;
    call<&Reader::getValueNames>(reader, items.out());
    std::vector<std::string> reportNames, reportTexts, imageNames, imageFunctions;
    for (const std::string& item : items.utf8()) {
        if (item == "reportNames")
            reportNames = readTextItems(reader, item);
        else if (item == "reportValues")
            reportTexts = readTextItems(reader, item);
        else if (item == "imageNames")
            imageNames = readTextItems(reader, item);
        else if (item == "imageFunctions")
            imageFunctions = readTextItems(reader, item);
        else if (item == "privateData") {
            ByteArray bytes;
            call<&Reader::GetArrayByte>(reader, StringObject(item).in(), bytes.out());
            state.privateData.assign(bytes.view().begin(), bytes.view().end());
        }
    }
    // The next calculation and the next Configure make them anew: no reason to refuse the script and its values.
    if (const auto damage = disagreement("reportNames", reportNames, "reportValues", reportTexts))
        warnings.push_back("Reports were not loaded: " + *damage);
    else
        for (std::size_t i = 0; i < reportNames.size(); ++i)
            state.reports.emplace_back(reportNames[i], reportTexts[i]);
    if (const auto damage = disagreement("imageNames", imageNames, "imageFunctions", imageFunctions))
        warnings.push_back("Images were not loaded: " + *damage);
    else
        for (std::size_t i = 0; i < imageNames.size(); ++i)
            state.images.push_back({imageNames[i], imageFunctions[i]});
    return state;
}

}  // namespace orvane
