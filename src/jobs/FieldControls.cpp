#include "jobs/FieldControls.h"

#include <algorithm>
#include <array>

namespace jobs {

namespace {

constexpr std::string_view kBoxes[] = {"QCheckBox", "QRadioButton"};
constexpr std::string_view kTexts[] = {"QLineEdit", "QPlainTextEdit"};
constexpr std::string_view kPaths[] = {"QLineEdit"};
constexpr std::string_view kNumbers[] = {"QSpinBox", "QLineEdit"};
constexpr std::string_view kChoices[] = {"QComboBox"};
constexpr std::string_view kDates[] = {"QDateTimeEdit", "QDateEdit", "QTimeEdit"};
constexpr std::string_view kLists[] = {"QTreeWidget"};
constexpr std::string_view kButtons[] = {"QPushButton", "QToolButton"};

struct KindClasses {
    FieldKind kind;
    std::span<const std::string_view> classes;
};

constexpr auto kClasses = std::to_array<KindClasses>({
    {FieldKind::Box, kBoxes},
    {FieldKind::Text, kTexts},
    {FieldKind::File, kPaths},
    {FieldKind::Folder, kPaths},
    {FieldKind::Number, kNumbers},
    {FieldKind::Choice, kChoices},
    {FieldKind::DateTime, kDates},
    {FieldKind::Rows, kLists},
});

}  // namespace

std::span<const std::string_view> controlClasses(FieldKind kind) {
    const auto* const row = std::ranges::find(kClasses, kind, &KindClasses::kind);
    return row != kClasses.end() ? row->classes : std::span<const std::string_view>();
}

std::vector<NeededControl> neededControls(const Operation& operation) {
    std::vector<NeededControl> needed;
    for (const OperationField& field : operation.fields) {
        needed.push_back({field.control, controlClasses(field.kind)});
        if (field.offer.button != 0) needed.push_back({field.offer.button, kButtons});
    }
    for (const OperationBox& box : operation.boxes) needed.push_back({box.control, kBoxes});
    for (const OperationButton& button : operation.buttons) needed.push_back({button.control, kButtons});
    if (operation.resultList != 0) needed.push_back({operation.resultList, kLists});
    if (operation.focus != 0) needed.push_back({operation.focus, {}});
    return needed;
}

}  // namespace jobs
