#pragma once

#include "app/AppContext.h"

#include <QString>
#include <string>

namespace jobs {

/// The bytes of a report that a dialog can show without keeping the user waiting.
inline constexpr std::size_t kShownReportBytes = 4'000'000;

/// The first 256 bytes of the report as they stand; empty when there is none.
std::string reportBeginning(const app::AppContext& context);

/// The report for people: bytes that are no UTF-8 and characters that cannot be shown become replacement
/// characters, and lines that no one can read at one go are cut, with lineEnd behind them.
QString reportForDisplay(const std::string& bytes, const QString& lineEnd);

}  // namespace jobs
