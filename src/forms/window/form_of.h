// SPDX-License-Identifier: MIT
// A form that knows its table while it is compiled: the name of a control that the table does not
// have does not compile. A form with further controls on demand has one table of all, which the
// compiler checks, and variants of it, of which it is made with one.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <vector>

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
    explicit FormOf(const FormSpec& variant) : Form(variant) {
        for (const ControlSpec& control : kDesign.controls)
            places_.push_back(static_cast<size_t>(std::ranges::find(variant.controls,
                                                                    std::wstring_view(control.name),
                                                                    &ControlSpec::name) -
                                                  variant.controls.begin()));
    }

    // A control that the variant does not have is beyond its last one, which At refuses.
    Control& Get(Name name) { return At(places_.empty() ? name.index : places_[name.index]); }

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

    std::vector<size_t> places_; // of the design's controls in the variant; empty without one
};

} // namespace vndesk
