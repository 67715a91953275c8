#include "inspect/JsonLines.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace inspect {

std::string jsonText(const QString& value) {
    // An array of one, without its brackets: Qt writes no lone string.
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2).toStdString();
}

JsonLine& JsonLine::json(const char* name, const std::string& value) {
    if (!members_.empty()) members_ += ',';
    members_ += '"';
    members_ += name;
    members_ += "\":";
    members_ += value;
    return *this;
}

JsonLine& JsonLine::text(const char* name, const QString& value) {
    return json(name, jsonText(value));
}

JsonLine& JsonLine::number(const char* name, qint64 value) {
    return json(name, std::to_string(value));
}

JsonLine& JsonLine::null(const char* name) {
    return json(name, "null");
}

}  // namespace inspect
