#pragma once

#include "app/ColumnsHeader.h"

#include <QString>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// First half of the key under which a property is stored; its text form is
/// "41CF5AE0-F75A-4806-BD87-59C7D9248EB9".
struct FormatId {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};

    friend bool operator==(const FormatId&, const FormatId&) = default;
};

/// From the text form of 36 characters, in capitals. For the tables; anything else does not compile.
consteval FormatId formatId(std::string_view text);

/// The text form.
std::string formatIdText(const FormatId& id);

consteval FormatId formatId(std::string_view text) {
    if (text.size() != 36) throw "a format id has 36 characters";
    const auto hexadecimal = [&](std::size_t at, std::size_t digits) {
        std::uint32_t value = 0;
        for (const char c : text.substr(at, digits))
            value = value * 16 + static_cast<std::uint32_t>(c <= '9' ? c - '0' : c - 'A' + 10);
        return value;
    };
    FormatId id{hexadecimal(0, 8),
                static_cast<std::uint16_t>(hexadecimal(9, 4)),
                static_cast<std::uint16_t>(hexadecimal(14, 4)),
                {}};
    for (std::size_t i = 0; i < id.data4.size(); ++i)
        id.data4[i] = static_cast<std::uint8_t>(hexadecimal(i < 2 ? 19 + 2 * i : 20 + 2 * i, 2));
    return id;
}

/// A property of a file that the list can show as a column. All but the last two fields are constant.
struct PropertyRecord {
    std::uint32_t columnType =
        0;  ///< the column's number, stored in the column file; several rows may share one
    std::uint32_t propertyId = 0;  ///< platform::PropertyId; unique in the table, from 0
    FormatId formatId;
    std::uint32_t pid = 0;  ///< second half of the key; 0: the property cannot be written
    std::u16string_view name;
    std::u16string_view category;
    std::uint32_t valueKind = 2;  ///< 0 date, 1 integer, 2 text, 3 rating
    std::uint32_t writable = 0;
    std::uint32_t categoryId = 0;
    std::int32_t width = 0;  ///< pixels; 0 until the column has been shown
    std::uint8_t visible = 0;
};

/// The name in plain words: "Date modified" for "DateModified".
QString plainName(const PropertyRecord& record);

/// The constant rows, in catalogue order. The first is Name.
std::span<const PropertyRecord> propertyRows();

/// The first row with that key or of that column, or null. Any thread.
const PropertyRecord* findPropertyKey(const FormatId& formatId, std::uint32_t pid);
const PropertyRecord* findPropertyColumn(std::uint32_t columnType);

/// The run-time copy of the catalogue, whose widths and visibility change. The constant fields may be read on
/// any thread; the two others belong to the GUI thread.
class PropertyCatalogue {
 public:
    static constexpr std::uint32_t kNameColumn = 1;

    PropertyCatalogue();

    const std::vector<PropertyRecord>& records() const { return records_; }

    /// The first row of that number, or null.
    const PropertyRecord* FindProperty(std::uint32_t propertyId) const;
    PropertyRecord* findColumn(std::uint32_t columnType);
    const PropertyRecord* findColumn(std::uint32_t columnType) const;

    /// The rows shown as columns, in catalogue order.
    std::vector<const PropertyRecord*> visibleRecords() const;
    std::vector<PropertyRecord*> visibleRecords();

    void setWidth(std::uint32_t columnType, int widthPixels);
    void setVisible(std::uint32_t columnType, bool visible);

    /// For the column file, which is read and written over them (app/ColumnsHeader.h): one state for each
    /// row, in catalogue order.
    std::vector<app::ColumnState> columnStates() const;
    void setColumnStates(std::span<const app::ColumnState> states);

 private:
    std::vector<PropertyRecord> records_;
};

}  // namespace tags
