// SPDX-License-Identifier: MIT
// The library's IDL as data: what its types and members are called, take and mean.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace reference {

// A help text in its parts: "What it does. Result: ... Name: ..." for the names that are declared.
struct Help {
    std::string summary;
    std::map<std::string, std::string> parts;
};

// What stands in "///" lines above a declaration.
struct Remarks {
    struct Error {
        std::string number; // decimal for Visual Basic's own, else an HRESULT with 0x
        std::string when;
    };
    std::string text; // Markdown
    std::vector<Error> errors;
};

struct Parameter {
    std::string name;
    std::string type;
    int pointers = 0;
    bool in = false;
    bool result = false; // [out, retval]
    bool optional = false;
    std::string defaultValue;
    std::string className; // of the class whose default interface the type is, else empty

    bool IsObject() const {
        return type == "IFontDisp" || type == "IDispatch" || !className.empty();
    }
    bool ByReference() const { return pointers > (IsObject() ? 1 : 0); }
};

// A method, an event, or a property with its accessors.
struct Member {
    struct Accessor {
        std::string kind; // empty for methods, else propget, propput or propputref
        std::vector<Parameter> parameters;
    };
    std::string name;
    std::string id; // as declared, a name or a number
    Help help;
    Remarks remarks;
    std::vector<Accessor> accessors;
    std::string interface; // that declares it
    std::string since;     // the version that brought it; empty for the first one

    bool IsProperty() const { return !accessors.front().kind.empty(); }
    bool Has(std::string_view kind) const;
    // The result of a method or of reading a property; null without one.
    const Parameter* Result() const;
    // What a caller passes: to read it, for a property.
    std::vector<Parameter> Arguments() const;
};

struct Value {
    std::string name;
    std::string number;
};

struct Type {
    std::string kind; // interface, dispinterface, coclass, enum
    std::string name;
    std::string uuid;
    Help help;
    Remarks remarks;
    std::vector<Member> members;
    std::vector<Value> values;
    std::string base;                 // of an interface that inherits another one of ours
    std::string since;                // "Since 1.1." above an interface
    std::string defaultInterface;     // of a coclass
    std::vector<std::string> answers; // of a coclass: its older interfaces
    std::string events;               // of a coclass, may be empty
};

struct Library {
    std::string name;
    std::string version;
    std::string uuid;
    Help help;
    Remarks remarks;
    std::map<std::string, std::string> numbers; // of the identifiers that are defined by name
    std::vector<Type> types;

    // Null when there is none.
    const Type* Find(std::string_view type) const;
};

// Throws std::runtime_error with the line where the text is not understood.
Library ReadIdl(std::string_view text);

Help SplitHelp(const std::string& text, const std::vector<std::string>& names);

} // namespace reference
