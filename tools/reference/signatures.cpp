// SPDX-License-Identifier: MIT
#include "reference/signatures.h"

#include <map>

namespace reference {

namespace {

std::string BasicParameter(const Parameter& parameter) {
    std::string text = parameter.optional ? "Optional " : "";
    text += parameter.ByReference() ? "" : "ByVal ";
    text += parameter.name + " As " + BasicType(parameter);
    if (parameter.defaultValue == "0" && parameter.type == "VARIANT_BOOL")
        return text + " = False";
    return parameter.defaultValue.empty() ? text : text + " = " + parameter.defaultValue;
}

std::string BasicParameters(const Member& member) {
    std::string text;
    for (const Parameter& parameter : member.Arguments())
        text += (text.empty() ? "" : ", ") + BasicParameter(parameter);
    return text;
}

} // namespace

std::string BasicType(const Parameter& parameter) {
    static const std::map<std::string, std::string> names = {
        {"BSTR", "String"},         {"long", "Long"},       {"short", "Integer"},
        {"double", "Double"},       {"VARIANT", "Variant"}, {"VARIANT_BOOL", "Boolean"},
        {"IFontDisp", "IFontDisp"}, {"IDispatch", "Object"}};
    if (!parameter.className.empty())
        return parameter.className;
    const auto found = names.find(parameter.type);
    return found == names.end() ? parameter.type : found->second;
}

std::string BasicDeclaration(const Member& member, bool event) {
    const Parameter* result = member.Result();
    const std::string parameters = BasicParameters(member);
    if (event)
        return "Event " + member.name + "(" + parameters + ")";
    if (!member.IsProperty())
        return (result ? "Function " : "Sub ") + member.name + "(" + parameters + ")" +
               (result ? " As " + BasicType(*result) : "");
    std::string text = "Property " + member.name;
    if (!parameters.empty())
        text += "(" + parameters + ")";
    text += " As " + BasicType(*result);
    return member.Has("propput") ? text : text + "    ' read only";
}

std::string CppDeclaration(const Member& member) {
    static const std::map<std::string, std::string> prefixes = {
        {"", ""}, {"propget", "get_"}, {"propput", "put_"}, {"propputref", "putref_"}};
    std::string text;
    for (const Member::Accessor& accessor : member.accessors) {
        std::string parameters;
        for (const Parameter& parameter : accessor.parameters)
            parameters += (parameters.empty() ? "" : ", ") + parameter.type +
                          std::string(static_cast<std::size_t>(parameter.pointers), '*') + " " +
                          parameter.name;
        text += "HRESULT " + prefixes.at(accessor.kind) + member.name + "(" + parameters + ");\n";
    }
    return text;
}

} // namespace reference
