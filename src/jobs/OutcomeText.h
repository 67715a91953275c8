#pragma once

#include "app/LanguageFile.h"
#include "jobs/Job.h"

#include <QString>
#include <string>

/// What is said of a job, made from the outcomes of its files and from nothing else.
namespace jobs {

/// What the report and the messages are about.
enum class Verdict {
    Nothing,    ///< there was no file to work on
    Done,       ///< every file: said quietly
    Unchanged,  ///< nothing went wrong, but not every file had something to change: said quietly too
    Told        ///< anything else; the report is shown
};
Verdict verdictOf(const JobResult& result);

/// Whether the report follows. An operation that shows what it has brought needs none, but never hides what
/// went wrong.
bool isReportDue(const JobResult& result, bool showsItsOwn);

/// Whether there can be something to show: a file that is done, or that had nothing to do.
bool hasBroughtAnything(const JobResult& result);

/// "1 file", "12 files".
QString filesText(const app::LanguageFile& language, std::size_t count);

/// "400 files changed, 1 unchanged, 2 refused": how many files ended how, for status bar and report.
QString summaryOf(const app::LanguageFile& language, const JobResult& result);

/// The report: the summary, then what was said of each file, in the order of the files; files that went well
/// without a word do not stand in it. Line feeds between lines; not shortened.
std::string reportOf(const app::LanguageFile& language, const JobResult& result);

/// The words on one file, for a message or the status bar: its own, or else what the kind says.
QString wordsOf(const app::LanguageFile& language, const exiftool::Outcome& outcome);

/// What the report file gets beside the tool's own words: that files were not begun, and why. Empty when all
/// were.
std::string filesLeftLine(const JobResult& result);

}  // namespace jobs
