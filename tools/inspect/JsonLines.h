#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

namespace inspect {

/// One JSON object on one line, its members in the order in which they are added. UTF-8.
class JsonLine {
 public:
    JsonLine& text(const char* name, const QString& value);
    JsonLine& number(const char* name, qint64 value);
    JsonLine& null(const char* name);
    /// The value is JSON already.
    JsonLine& json(const char* name, const std::string& value);

    std::string finish() const { return "{" + members_ + "}"; }

 private:
    std::string members_;
};

/// A JSON string with its quotes.
std::string jsonText(const QString& value);

}  // namespace inspect
