#include "dialogs/FormControls.h"

#include <algorithm>
#include <array>

namespace dialogs {

namespace {

constexpr auto kControls = std::to_array<FormControl>({
#include "dialogs/FormControlRows.inc"
});

}  // namespace

std::span<const FormControl> allFormControls() {
    return kControls;
}

std::span<const FormControl> formControls(int templateNumber) {
    const auto rows = std::ranges::equal_range(kControls, templateNumber, {}, &FormControl::templateNumber);
    return {rows.begin(), rows.end()};
}

}  // namespace dialogs
