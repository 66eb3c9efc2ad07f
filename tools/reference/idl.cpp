// SPDX-License-Identifier: MIT
// Reads the part of IDL that the library is written in; anything else is an error, so that nothing
// is left out of the pages.
#include "reference/idl.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "reference/remarks.h"
#include "reference/tokens.h"

namespace reference {

namespace {

// What stands in brackets before a declaration.
struct Attributes {
    std::map<std::string, std::string> values;
    std::vector<std::string> remarks;

    bool Has(const std::string& name) const { return values.contains(name); }
    std::string Get(const std::string& name) const {
        const auto found = values.find(name);
        return found == values.end() ? std::string() : found->second;
    }
};

class Parser {
public:
    explicit Parser(std::string_view text) { tokens_ = ReadTokens(text, library_.numbers); }

    Library Read() {
        Preamble();
        const Attributes attributes = ReadAttributes();
        Expect("library");
        library_.name = Word();
        library_.version = attributes.Get("version");
        library_.uuid = attributes.Get("uuid");
        library_.help = SplitHelp(attributes.Get("helpstring"), {});
        library_.remarks = ReadRemarks(attributes.remarks);
        Expect("{");
        while (!Accept("}"))
            Declaration();
        Accept(";");
        if (Now().kind != Token::Kind::End)
            Fail("the library has ended");
        NameClasses();
        return std::move(library_);
    }

private:
    const Token& Now() const { return tokens_[at_]; }

    [[noreturn]] void Fail(const std::string& what) const {
        throw std::runtime_error("line " + std::to_string(Now().line) + ", at \"" + Now().text +
                                 "\": " + what);
    }

    bool Is(std::string_view text) const {
        return Now().kind != Token::Kind::Text && Now().text == text;
    }

    bool Accept(std::string_view text) {
        if (!Is(text))
            return false;
        ++at_;
        return true;
    }

    void Expect(std::string_view text) {
        if (!Accept(text))
            Fail("expected " + std::string(text));
    }

    std::string Word() {
        if (Now().kind != Token::Kind::Word)
            Fail("expected a word");
        return tokens_[at_++].text;
    }

    void SkipTo(std::string_view text) {
        while (!Accept(text)) {
            if (Now().kind == Token::Kind::End)
                Fail("expected " + std::string(text));
            ++at_;
        }
    }

    Attributes ReadAttributes() {
        Attributes attributes;
        attributes.remarks = Now().remarks;
        Expect("[");
        do {
            const std::string name = Word();
            std::string& value = attributes.values[name];
            if (Accept("(")) {
                if (Now().kind == Token::Kind::End)
                    Fail("the attribute has no end");
                value = tokens_[at_++].text;
                Expect(")");
            }
        } while (Accept(","));
        Expect("]");
        return attributes;
    }

    // Attributes that only compilers need.
    void Preamble() {
        for (;;)
            if (Accept("import") || Accept("typedef"))
                SkipTo(";");
            else if (Accept("cpp_quote"))
                SkipTo(")");
            else
                return;
    }

    void Declaration() {
        if (Accept("importlib")) {
            SkipTo(";");
            return;
        }
        Type type;
        const bool named = Accept("typedef");
        const Attributes attributes = ReadAttributes();
        type.uuid = attributes.Get("uuid");
        type.remarks = ReadRemarks(attributes.remarks);
        const std::string help = attributes.Get("helpstring");
        type.kind = Word();
        type.name = Word();
        TakeVersion(type);
        Body(type);
        if (named)
            Expect(type.name);
        Expect(";");
        std::vector<std::string> names;
        for (const Value& value : type.values)
            names.push_back(value.name);
        type.help = SplitHelp(help, names);
        library_.types.push_back(std::move(type));
    }

    // What hosts call through an interface is its own and what it inherits.
    void Inherit(Type& type, const std::string& base) {
        if (base == "IDispatch")
            return;
        const Type* found = library_.Find(base);
        if (!found)
            Fail("no interface of that name stands before");
        type.members = found->members;
        type.base = base;
    }

    // "Since 1.1." is about each member, not a paragraph of the page.
    static void TakeVersion(Type& type) {
        constexpr std::string_view kSince = "Since ";
        std::string& text = type.remarks.text;
        if (type.kind == "coclass" || !text.starts_with(kSince))
            return;
        const std::size_t end = std::min(text.find('\n'), text.size());
        type.since = text.substr(kSince.size(), end - kSince.size() - 1);
        text.erase(0, end);
        text.erase(0, text.find_first_not_of('\n'));
    }

    // Visual Basic knows an object by its class.
    void NameClasses() {
        std::map<std::string, std::string> classes;
        for (const Type& type : library_.types)
            if (type.kind == "coclass")
                classes[type.defaultInterface] = type.name;
        for (Type& type : library_.types)
            for (Member& member : type.members)
                for (Member::Accessor& accessor : member.accessors)
                    for (Parameter& parameter : accessor.parameters)
                        if (const auto found = classes.find(parameter.type); found != classes.end())
                            parameter.className = found->second;
    }

    void Body(Type& type) {
        if (Accept(":"))
            Inherit(type, Word());
        Expect("{");
        while (!Accept("}")) {
            if (type.kind == "enum")
                Enumerator(type);
            else if (type.kind == "coclass")
                Implemented(type);
            else if (Accept("properties"))
                Expect(":");
            else if (Accept("methods"))
                Expect(":");
            else
                Function(type);
        }
    }

    void Enumerator(Type& type) {
        const std::string name = Word();
        Expect("=");
        type.values.push_back({name, Word()});
        Accept(",");
    }

    void Implemented(Type& type) {
        const Attributes attributes = Is("[") ? ReadAttributes() : Attributes{};
        if (!Accept("interface"))
            Expect("dispinterface");
        const std::string name = Word();
        if (attributes.Has("source"))
            type.events = name;
        else if (attributes.Has("default"))
            type.defaultInterface = name;
        else
            type.answers.push_back(name);
        Expect(";");
    }

    void Function(Type& type) {
        const Attributes attributes = ReadAttributes();
        Member::Accessor accessor;
        for (const char* kind : {"propget", "propput", "propputref"})
            if (attributes.Has(kind))
                accessor.kind = kind;
        const std::string returned = Word();
        if (returned != "HRESULT" && returned != "void")
            Fail("a member returns HRESULT or void");
        const std::string name = Word();
        Expect("(");
        if (!Accept(")")) {
            do
                accessor.parameters.push_back(ReadParameter());
            while (Accept(","));
            Expect(")");
        }
        Expect(";");
        AddFunction(type, name, attributes, std::move(accessor));
    }

    // The accessors of one property stand together and have the same help.
    void AddFunction(Type& type, const std::string& name, const Attributes& attributes,
                     Member::Accessor accessor) {
        std::vector<std::string> names{"Result"};
        for (const Parameter& parameter : accessor.parameters)
            names.push_back(parameter.name);
        const Help help = SplitHelp(attributes.Get("helpstring"), names);
        if (!accessor.kind.empty() && !type.members.empty() && type.members.back().name == name) {
            Member& property = type.members.back();
            if (property.id != attributes.Get("id") || property.help.summary != help.summary)
                Fail(name + " is described in two ways");
            property.help.parts.insert(help.parts.begin(), help.parts.end());
            property.accessors.push_back(std::move(accessor));
            return;
        }
        type.members.push_back({name,
                                attributes.Get("id"),
                                help,
                                ReadRemarks(attributes.remarks),
                                {std::move(accessor)},
                                type.name,
                                type.since});
    }

    Parameter ReadParameter() {
        const Attributes attributes = ReadAttributes();
        Parameter parameter;
        parameter.in = attributes.Has("in");
        parameter.result = attributes.Has("retval");
        parameter.optional = attributes.Has("optional");
        parameter.defaultValue = attributes.Get("defaultvalue");
        parameter.type = Word();
        while (Accept("*"))
            ++parameter.pointers;
        parameter.name = Word();
        return parameter;
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    Library library_;
};

} // namespace

bool Member::Has(std::string_view kind) const {
    return std::any_of(accessors.begin(), accessors.end(),
                       [&](const Accessor& accessor) { return accessor.kind == kind; });
}

const Parameter* Member::Result() const {
    for (const Accessor& accessor : accessors)
        for (const Parameter& parameter : accessor.parameters)
            if (parameter.result)
                return &parameter;
    return nullptr;
}

std::vector<Parameter> Member::Arguments() const {
    std::vector<Parameter> arguments = accessors.front().parameters;
    std::erase_if(arguments, [](const Parameter& parameter) { return parameter.result; });
    return arguments;
}

const Type* Library::Find(std::string_view type) const {
    const auto found = std::find_if(types.begin(), types.end(),
                                    [&](const Type& candidate) { return candidate.name == type; });
    return found == types.end() ? nullptr : &*found;
}

Library ReadIdl(std::string_view text) {
    return Parser(text).Read();
}

} // namespace reference
