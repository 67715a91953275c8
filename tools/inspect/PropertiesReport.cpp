#include "inspect/PropertiesReport.h"

#include "browser/PropertyText.h"
#include "inspect/JsonLines.h"
#include "platform/Text.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace inspect {
namespace {

/// The raw value as JSON.
std::string rawValue(const properties::PropertyValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (std::holds_alternative<double>(value)) return browser::propertyValueText(value).toStdString();
    if (const auto* fraction = std::get_if<properties::Rational>(&value))
        return jsonText(QStringLiteral("%1/%2").arg(fraction->numerator).arg(fraction->denominator));
    if (const auto* list = std::get_if<QStringList>(&value))
        return QJsonDocument(QJsonArray::fromStringList(*list)).toJson(QJsonDocument::Compact).toStdString();
    if (const auto* angle = std::get_if<properties::Angle>(&value))
        return QJsonDocument(QJsonArray{(*angle)[0], (*angle)[1], (*angle)[2]})
            .toJson(QJsonDocument::Compact)
            .toStdString();
    return jsonText(browser::propertyValueText(value));
}

}  // namespace

bool reportProperties(const std::vector<std::filesystem::path>& files, std::ostream& output,
                      std::ostream& errors) {
    bool allRead = true;
    for (const std::filesystem::path& file : files) {
        properties::PropertyStore store(file);
        if (!store.isOpen()) {
            errors << file.native() << ": there is no regular file of that name\n";
            allRead = false;
            continue;
        }
        for (const tags::PropertyRecord& property : tags::propertyRows()) {
            const properties::PropertyValue& value =
                store.get(static_cast<properties::PropertyId>(property.propertyId));
            if (properties::isAbsent(value)) continue;
            JsonLine line;
            line.text("file", platform::display(file)).number("columnType", property.columnType);
            line.text("category", platform::wide(property.category))
                .text("name", platform::wide(property.name));
            line.json("raw", rawValue(value)).text("text", browser::propertyText(property, value));
            output << line.finish() << '\n';
        }
    }
    return allRead;
}

void reportPropertyCatalogue(std::ostream& output) {
    output << "columnType\tpropertyId\tformatId\tpid\tname\tcategory\tvalueKind\twritable\tcategoryId\n";
    for (const tags::PropertyRecord& row : tags::propertyRows())
        output << row.columnType << '\t' << row.propertyId << '\t' << tags::formatIdText(row.formatId) << '\t'
               << row.pid << '\t' << platform::narrow(row.name) << '\t' << platform::narrow(row.category)
               << '\t' << row.valueKind << '\t' << row.writable << '\t' << row.categoryId << '\n';
}

}  // namespace inspect
