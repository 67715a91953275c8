#pragma once

#include "app/AppContext.h"
#include "platform/CommandText.h"

#include <QStringView>
#include <filesystem>
#include <string>
#include <string_view>

/// Pieces that the lines for ExifTool have in common.
namespace exiftool {

inline constexpr std::string_view kFileNameCharset = "-charset filename=UTF8 ";

/// What asks for every character of a value, for tags::forEachExactLine.
inline constexpr std::string_view kExactly = " -ec -sep \"\x1E\x1F\x1E\"";

/// The ExifTool language code of an index of the DataLanguage setting; "en" for an index outside the table.
/// The spelling "ce" of the first is kept.
std::string_view languageCode(int dataLanguage);

/// The path in quotes and a blank: `"<tool>" `.
platform::CommandText toolStart(const app::AppContext& context);

/// `"<tool>" -lang <code>`, without a blank at the end. The corrected form knows Czech by its right code.
platform::CommandText toolStartWithLanguage(const app::AppContext& context, app::CommandForm form);

/// The file as ExifTool is to get it, named from the root: a relative name could begin with a hyphen and be
/// taken for an option.
std::string fileWord(const std::filesystem::path& file);

/// Whether the text can be one line of an argument file or of a list of files: ExifTool takes one argument a
/// line and drops returns before the line's end.
bool canStandOnLine(std::string_view text);

/// A value of the user's in quotes, in UTF-8. The designed form takes it as it stands, a quote in it
/// included; in the corrected form any text, line feeds and quotes too, stays inside the argument that it
/// stands in.
platform::CommandText quotedValue(app::CommandForm form, QStringView value);

/// What ToolRunner::RunOnFile runs: `"<tool>" -lang <lang> <arguments> "<file>" 2>>"<report>"`.
platform::CommandText lineOnFile(const app::AppContext& context, app::CommandForm form,
                                 const platform::CommandText& arguments, const std::filesystem::path& file);

/// ` 2>>"<report>"`, behind lines whose complaints the batch report collects.
platform::CommandText reportBehind(const app::AppContext& context);

/// The same in the corrected form, nothing in the designed one: behind lines that were designed without it.
platform::CommandText reportBehind(const app::AppContext& context, app::CommandForm form);

}  // namespace exiftool
