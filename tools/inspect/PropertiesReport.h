#pragma once

#include <filesystem>
#include <ostream>
#include <vector>

namespace inspect {

/// Prints what the columns of the file list have for each file, one JSON object a line and property, in
/// catalogue order: file, columnType, category, name, raw, text. Absent properties have no line. A time's raw
/// value is UTC in ISO form, a fraction's "n/d", a list's or an angle's an array. A file that cannot be read
/// is named on `errors` and the next one follows. True when every file was read.
bool reportProperties(const std::vector<std::filesystem::path>& files, std::ostream& output,
                      std::ostream& errors);

/// The property catalogue as TSV, in table order: columnType propertyId formatId pid name category valueKind
/// writable categoryId.
void reportPropertyCatalogue(std::ostream& output);

}  // namespace inspect
