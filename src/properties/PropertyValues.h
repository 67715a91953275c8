#pragma once

#include "properties/PropertyId.h"
#include "properties/PropertyValue.h"

#include <array>

namespace properties {

/// The values of one file, by property. A value that is there already stays: sources are asked in the order
/// of how well they know.
class PropertyValues {
 public:
    const PropertyValue& at(PropertyId property) const { return values_[index(property)]; }
    bool has(PropertyId property) const { return !isAbsent(at(property)); }

    void add(PropertyId property, PropertyValue value) {
        PropertyValue& place = values_[index(property)];
        if (isAbsent(place)) place = std::move(value);
    }

    /// Nothing is added for an empty text or list.
    void addText(PropertyId property, const QString& text) {
        if (!text.isEmpty()) add(property, text);
    }
    void addList(PropertyId property, const QStringList& texts) {
        if (!texts.isEmpty()) add(property, texts);
    }

 private:
    static std::size_t index(PropertyId property) { return static_cast<std::size_t>(property); }

    std::array<PropertyValue, kPropertyCount> values_;
};

}  // namespace properties
