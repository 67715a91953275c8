#pragma once

#include "app/AppContext.h"

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

namespace jobs {

/// The report of the last operation, as it is shown.
struct ReportText {
    std::string bytes;     ///< its last part when it is long
    bool isShort = false;  ///< bytes are not all of it
};

/// The bytes of a report that a dialog can show without keeping the user waiting.
inline constexpr std::size_t kShownReportBytes = 4'000'000;

/// Copies the report to <temp>/Metadata.txt without the lines that begin with "---- ExifTool", whatever their
/// case, each line ended by a line feed, and gives that text. Nothing when there is no report or an empty
/// one: the operation had no errors. A report of such lines alone gives an empty text.
std::optional<ReportText> filterReport(const app::AppContext& context);

/// The first 256 bytes of the report as they stand; empty when there is none.
std::string reportBeginning(const app::AppContext& context);

/// The report for people: bytes that are no UTF-8 and characters that cannot be shown become replacement
/// characters, and lines that no one can read at one go are cut, with lineEnd behind them.
QString reportForDisplay(const std::string& bytes, const QString& lineEnd);

}  // namespace jobs
