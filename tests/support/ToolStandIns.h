#pragma once

#include "app/AppContext.h"
#include "exiftool/ToolRunner.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace exiftool {

/// For the messages of tests.
inline void PrintTo(OutcomeKind kind, std::ostream* out) {
    constexpr std::array kNames{"Done",   "Unchanged", "Warned",     "Failed",
                                "Killed", "Stopped",   "NotStarted", "NotBegun"};
    *out << kNames.at(static_cast<std::size_t>(kind));
}

inline void PrintTo(const Outcome& outcome, std::ostream* out) {
    PrintTo(outcome.kind, out);
    *out << ' ' << outcome.file << " \"" << outcome.words << '"';
}

}  // namespace exiftool

namespace support {

inline std::vector<exiftool::OutcomeKind> kindsOf(const exiftool::Outcomes& outcomes) {
    std::vector<exiftool::OutcomeKind> kinds;
    for (const exiftool::Outcome& outcome : outcomes) kinds.push_back(outcome.kind);
    return kinds;
}

/// Puts a shell script in ExifTool's place.
inline void useTool(app::AppContext& context, const std::filesystem::path& tool, const std::string& script) {
    writeBytes(tool, "#!/bin/sh\n" + script);
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    context.exifToolPath = tool;
}

/// What the real ExifTool does not do on demand, and leaves every file as it was.
struct ToolStandIn {
    const char* what;
    const char* script;
    exiftool::OutcomeKind kind;
    bool hangs = false;
    bool isMute = false;  ///< ends as if all were well
};

inline constexpr auto kToolStandIns = std::to_array<ToolStandIn>({
    {"kills itself", "kill -KILL $$\n", exiftool::OutcomeKind::Killed},
    {"fails without a word", "exit 1\n", exiftool::OutcomeKind::Failed},
    {"ends well without a word", "exit 0\n", exiftool::OutcomeKind::Failed, false, true},
    {"hangs", "exec sleep 100\n", exiftool::OutcomeKind::Stopped, true},
});

/// Every file below the folder with its bytes.
inline std::map<std::string, std::string> bytesBelow(const std::filesystem::path& folder) {
    std::map<std::string, std::string> bytes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        bytes[entry.path().string()] = entry.is_regular_file() ? readBytes(entry.path()) : "";
    return bytes;
}

/// One kind of work, put together anew for every stand-in.
struct NamedWork {
    std::string what;
    std::function<exiftool::Outcomes()> run;
    /// Where a tool that says nothing cannot be told from one that found nothing to do.
    exiftool::OutcomeKind ofMute = exiftool::OutcomeKind::Failed;
};

/// Runs each kind of work with each stand-in, in both forms of the lines, and expects the truth about it:
/// never that it was done, and every file below the folder as it was.
inline void expectTruthOfStandIns(app::AppContext& context, exiftool::ToolRunner& runner,
                                  const std::filesystem::path& scratch, const std::filesystem::path& files,
                                  const std::vector<NamedWork>& works) {
    const std::filesystem::path tool = context.exifToolPath;
    const bool form = context.settings.exifTool.correctedCommands;
    const auto before = bytesBelow(files);
    for (const ToolStandIn& standIn : kToolStandIns) {
        useTool(context, scratch / "stand-in", standIn.script);
        runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
        for (const NamedWork& work : works) {
            for (const bool corrected : {false, true}) {
                SCOPED_TRACE(work.what + (corrected ? ", corrected: " : ": ") + standIn.what);
                context.settings.exifTool.correctedCommands = corrected;
                const exiftool::Outcomes outcomes = work.run();
                EXPECT_FALSE(outcomes.empty());
                for (const exiftool::Outcome& outcome : outcomes) {
                    using enum exiftool::OutcomeKind;
                    // One process for several files was cut at the first.
                    const bool isBehindCut = (standIn.kind == Killed || standIn.kind == Stopped) &&
                                             &outcome != outcomes.data() && outcome.kind == NotBegun;
                    EXPECT_TRUE(isBehindCut || outcome.kind == (standIn.isMute ? work.ofMute : standIn.kind))
                        << testing::PrintToString(outcome);
                    EXPECT_TRUE(isBehindCut || standIn.isMute || !outcome.words.empty());
                }
                EXPECT_TRUE(bytesBelow(files) == before) << "a file has changed";
            }
        }
    }
    runner.setKeepWaiting({});
    context.exifToolPath = tool;
    context.settings.exifTool.correctedCommands = form;
}

}  // namespace support
