#pragma once

#include <span>

namespace dialogs {

/// A control that a dialog uses, as the FormControls.tsv of its folder declares it. The build checks that the
/// forms have them; a language file of another version may not.
struct FormControl {
    int templateNumber;
    int controlId;
    const char* className;  ///< the class that the form names
    bool required;          ///< without it the dialog does not open
};

/// All of them, by ascending template and control number.
std::span<const FormControl> allFormControls();

/// Those of one form; none when no dialog declares any.
std::span<const FormControl> formControls(int templateNumber);

}  // namespace dialogs
