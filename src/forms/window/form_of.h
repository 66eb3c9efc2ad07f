// SPDX-License-Identifier: MIT
// A form that knows its table while it is compiled: the name of a control that the table does not
// have does not compile.
#pragma once

#include <initializer_list>
#include <string_view>

#include "forms/window/form.h"

namespace vndesk {

template <const FormSpec& kDesign> class FormOf : public Form {
public:
    // A control of this form, written as its name.
    struct Name {
        consteval Name(const wchar_t* name) : index(PlaceOf(name)) {}
        size_t index;
    };

    FormOf() : Form(kDesign) {}

    Control& Get(Name name) { return At(name.index); }

protected:
    template <class Derived> struct Click {
        Name control;
        void (Derived::*handler)();
    };

    // Which member function a click of which control calls.
    template <class Derived> void TieClicks(std::initializer_list<Click<Derived>> clicks) {
        for (const auto& [control, handler] : clicks)
            Get(control).onClick = [form = static_cast<Derived*>(this), handler = handler] {
                (form->*handler)();
            };
    }

private:
    static consteval size_t PlaceOf(std::wstring_view name) {
        for (size_t i = 0; i < kDesign.controls.size(); ++i)
            if (kDesign.controls[i].name == name)
                return i;
        throw "the form has no control of this name";
    }
};

} // namespace vndesk
