#pragma once

#include <QDateTime>
#include <QString>
#include <filesystem>
#include <map>
#include <utility>
#include <variant>
#include <vector>

namespace jobs {

/// What the user has put into the controls of a dialog, by the number of the control. Values only, so that it
/// can go with a job to another thread. A control that is not there is not ticked, empty, or 0.
class FilledForm {
 public:
    using Value =
        std::variant<std::monostate, bool, int, QString, std::filesystem::path, QDateTime, std::vector<int>>;

    void set(int control, Value value) { values_[control] = std::move(value); }
    Value value(int control) const {
        const auto found = values_.find(control);
        return found != values_.end() ? found->second : Value();
    }

    bool isTicked(int control) const { return valueOf<bool>(control); }
    QString text(int control) const { return valueOf<QString>(control); }
    /// In the system's bytes.
    std::filesystem::path path(int control) const { return valueOf<std::filesystem::path>(control); }
    /// What a spin box holds, or the index of the offer that is chosen.
    int number(int control) const { return valueOf<int>(control); }
    QDateTime dateTime(int control) const { return valueOf<QDateTime>(control); }
    /// The ids of the ticked rows of a list, from top to bottom.
    std::vector<int> rows(int control) const { return valueOf<std::vector<int>>(control); }

 private:
    template <typename Type>
    Type valueOf(int control) const {
        const Value held = value(control);
        const Type* const found = std::get_if<Type>(&held);
        return found != nullptr ? *found : Type();
    }

    std::map<int, Value> values_;
};

}  // namespace jobs
