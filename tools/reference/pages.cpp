// SPDX-License-Identifier: MIT
#include "reference/pages.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>

#include "reference/signatures.h"

namespace reference {

namespace {

constexpr char kTypesPage[] = "types.md";
constexpr char kOrigin[] =
    "\n---\nMade from [vndesk.idl](../../src/api/vndesk.idl) by `make reference`.\n";

std::string Cell(const std::string& text) {
    std::string cell;
    for (char ch : text)
        cell += ch == '|' ? std::string("\\|") : std::string(1, ch);
    return cell;
}

std::string Sentence(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    const bool ended = text.empty() || text.back() == '.';
    return ended ? text : text + ".";
}

std::string Anchor(std::string name) {
    for (char& ch : name)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return "#" + name;
}

std::string Link(const std::string& text, const std::string& target) {
    return "[" + text + "](" + target + ")";
}

std::string Paragraph(const std::string& text) {
    return text.empty() ? "" : text + "\n\n";
}

// Types with a page of their own are links.
std::string TypeCell(const Library& library, const Parameter& parameter) {
    if (!parameter.className.empty())
        return Link(parameter.className, parameter.className + ".md");
    return library.Find(parameter.type) ? Link(parameter.type, kTypesPage + Anchor(parameter.type))
                                        : BasicType(parameter);
}

std::string ResultText(const Member& member) {
    const Parameter* result = member.Result();
    if (!result)
        return {};
    for (const std::string& name : {std::string("Result"), result->name})
        if (const auto found = member.help.parts.find(name); found != member.help.parts.end())
            return found->second;
    return member.IsProperty() ? member.help.summary : "";
}

std::string TextOf(const Member& member, const Parameter& parameter) {
    const auto found = member.help.parts.find(parameter.name);
    return found == member.help.parts.end() ? "" : found->second;
}

std::string ParameterTable(const Library& library, const Member& member) {
    std::string rows;
    for (const Parameter& parameter : member.Arguments()) {
        const char* passing = parameter.ByReference() ? "by reference" : "by value";
        rows += "| `" + parameter.name + "` | " + TypeCell(library, parameter) + " | " + passing +
                (parameter.optional ? ", optional" : "") + " | " + Cell(TextOf(member, parameter)) +
                " |\n";
    }
    const Parameter* result = member.Result();
    const bool valued = result && member.IsProperty() && member.help.parts.contains(result->name);
    if (result && (!member.IsProperty() || valued))
        rows += "| *" + std::string(valued ? "value" : "result") + "* | " +
                TypeCell(library, *result) + " | | " + Cell(ResultText(member)) + " |\n";
    return rows.empty() ? "" : "| parameter | type | passed | |\n|---|---|---|---|\n" + rows + "\n";
}

// Visual Basic shows its own number for the results that it knows.
std::string ErrorRow(const Remarks::Error& error) {
    static const std::map<std::string, std::string> known = {
        {"0x80020005", "13"}, {"0x8002000A", "6"}, {"0x80070057", "5"}, {"0x8007000E", "7"}};
    std::string number = error.number, code = error.number;
    if (number.starts_with("0x")) {
        const auto found = known.find(number);
        const auto bits = static_cast<std::uint32_t>(std::stoul(number, nullptr, 16));
        number =
            found != known.end() ? found->second : std::to_string(static_cast<std::int32_t>(bits));
    } else {
        char text[16];
        std::snprintf(text, sizeof text, "0x%08lX", 0x800A0000ul + std::stoul(number));
        code = text;
    }
    return "| " + number + " | `" + code + "` | " + Cell(error.when) + " |\n";
}

std::string ErrorTable(const Remarks& remarks, bool event) {
    if (event)
        return "";
    if (remarks.errors.empty())
        return "Errors: only [those of every call](README.md#rules-for-all-calls).\n\n";
    std::string text = "| error | HRESULT | when |\n|---|---|---|\n";
    for (const Remarks::Error& error : remarks.errors)
        text += ErrorRow(error);
    return text + "\n";
}

std::string MemberText(const Library& library, const Member& member, bool event) {
    std::string text = "### " + member.name + "\n\n" + Paragraph(Sentence(member.help.summary));
    if (!member.since.empty())
        text += "Since " + member.since + ": `" + member.interface + "`.\n\n";
    text += "```vb\n" + BasicDeclaration(member, event) + "\n```\n";
    if (!event)
        text += "```cpp\n" + CppDeclaration(member) + "```\n";
    text += "\n" + ParameterTable(library, member) + Paragraph(member.remarks.text);
    return text + ErrorTable(member.remarks, event);
}

std::string MemberKind(const Member& member) {
    const std::string since = member.since.empty() ? "" : ", since " + member.since;
    if (!member.IsProperty())
        return "method" + since;
    return (member.Has("propput") ? "property" : "property, read only") + since;
}

std::string InterfaceRow(const Library& library, const std::string& what, const std::string& name) {
    const Type* type = library.Find(name);
    const std::string since = type->since.empty() ? "" : ", since " + type->since;
    return "| " + what + " | `" + name + "`, dual, `{" + type->uuid + "}`" + since + " |\n";
}

std::string Members(const Library& library, const Type& type, bool events) {
    std::string text = events ? "## Events\n\n" : "## Members\n\n";
    text += Paragraph(type.remarks.text);
    text += events ? "| event | |\n|---|---|\n" : "| member | | |\n|---|---|---|\n";
    for (const Member& member : type.members)
        text += "| " + Link(member.name, Anchor(member.name)) + " | " +
                (events ? "" : MemberKind(member) + " | ") + Cell(Sentence(member.help.summary)) +
                " |\n";
    text += "\n";
    for (const Member& member : type.members)
        text += MemberText(library, member, events);
    return text;
}

std::string ClassPage(const Library& library, const Type& type) {
    const std::string progId = library.name + "." + type.name;
    std::string text = "# " + progId + "\n\n" + Paragraph(Sentence(type.help.summary));
    text += Paragraph(type.remarks.text);
    const Type* members = library.Find(type.defaultInterface);
    const Type* events = library.Find(type.events);
    text += "| | |\n|---|---|\n| ProgID | `" + progId + "` |\n| class | `{" + type.uuid + "}` |\n" +
            InterfaceRow(library, "interface", type.defaultInterface);
    for (const std::string& older : type.answers)
        text += InterfaceRow(library, "answered too", older);
    if (events)
        text += "| events | `" + events->name + "` `{" + events->uuid + "}`" +
                (events->since.empty() ? "" : ", since " + events->since) + " |\n";
    text += "\n" + Members(library, *members, false);
    if (events)
        text += Members(library, *events, true);
    text.pop_back();
    return text + kOrigin;
}

// Numbers beyond 31 bits are what Visual Basic and scripts write as negative ones.
std::string NumberCell(const std::string& number) {
    const auto value = static_cast<std::uint32_t>(std::stoul(number, nullptr, 0));
    const auto asSigned = std::to_string(static_cast<std::int32_t>(value));
    return number.starts_with("0x") ? asSigned + " | `&H" + number.substr(2) + "`" : asSigned;
}

std::string TypesPage(const Library& library) {
    std::string text = "# Types\n\n";
    for (const Type& type : library.types) {
        if (type.kind != "enum")
            continue;
        text += "## " + type.name + "\n\n" + Paragraph(Sentence(type.help.summary));
        const bool hexadecimal = type.values.front().number.starts_with("0x");
        text += hexadecimal ? "| name | number | | |\n|---|---|---|---|\n"
                            : "| name | number | |\n|---|---|---|\n";
        for (const Value& value : type.values)
            text += "| `" + value.name + "` | " + NumberCell(value.number) + " | " +
                    Cell(type.help.parts.at(value.name)) + " |\n";
        text += "\n";
    }
    text.pop_back();
    return text + kOrigin;
}

struct Entry {
    std::string name;
    std::string row;
};

std::string IndexPage(const Library& library) {
    std::string text = "# Reference\n\n" + Paragraph(Sentence(library.help.summary));
    text += "| class | |\n|---|---|\n";
    std::vector<Entry> entries;
    for (const Type& type : library.types) {
        if (type.kind != "coclass")
            continue;
        const std::string page = type.name + ".md";
        text += "| " + Link(type.name, page) + " | " + Cell(Sentence(type.help.summary)) + " |\n";
        for (const std::string& name : {type.defaultInterface, type.events})
            if (const Type* part = library.Find(name))
                for (const Member& member : part->members)
                    entries.push_back({member.name + type.name,
                                       "| " + Link(member.name, page + Anchor(member.name)) +
                                           " | " + type.name + " | " +
                                           (name == type.events ? "event" : MemberKind(member)) +
                                           " |\n"});
    }
    text += "\nEnumerations and other types: " + Link("types", kTypesPage) + ".\n\n";
    text += "## Rules for all calls\n\n" + Paragraph(library.remarks.text);
    text += "The type library is " + library.name + " " + library.version + ", `{" + library.uuid +
            "}`.\n\n## All members\n\n| member | class | |\n|---|---|---|\n";
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return Anchor(a.name) < Anchor(b.name); });
    for (const Entry& entry : entries)
        text += entry.row;
    return text + kOrigin;
}

} // namespace

Pages MakePages(const Library& library) {
    Pages pages;
    pages["README.md"] = IndexPage(library);
    pages[kTypesPage] = TypesPage(library);
    for (const Type& type : library.types)
        if (type.kind == "coclass")
            pages[type.name + ".md"] = ClassPage(library, type);
    return pages;
}

std::vector<std::string> Undescribed(const Library& library) {
    std::vector<std::string> missing;
    const auto check = [&](const std::string& text, const std::string& name) {
        if (text.size() < 3)
            missing.push_back(name);
    };
    for (const Type& type : library.types) {
        check(type.help.summary, type.name);
        if (type.kind == "coclass")
            check(type.remarks.text, type.name + " (remarks)");
        for (const Value& value : type.values) {
            const auto found = type.help.parts.find(value.name);
            check(found == type.help.parts.end() ? "" : found->second,
                  type.name + "." + value.name);
        }
        for (const Member& member : type.members) {
            const std::string name = type.name + "." + member.name;
            check(member.help.summary, name);
            if (member.Result())
                check(ResultText(member), name + " (result)");
            for (const Parameter& parameter : member.Arguments())
                check(TextOf(member, parameter), name + "." + parameter.name);
        }
    }
    return missing;
}

} // namespace reference
