#pragma once

#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "support/EditingContext.h"
#include "support/RunHere.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"
#include "taglists/RemovalOperations.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

/// What the edits work with, over the real ExifTool and files of its own.
class RemovalParts {
 public:
    RemovalParts() { context = support::editingContext(folder.path()); }

    std::filesystem::path makePhoto(const std::string& name) {
        namespace fs = std::filesystem;
        if (!fs::exists(master_)) {
            support::writeJpeg(master_);
            support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Somebody", "-IFD0:Make=Acme",
                               "-ExifIFD:FNumber=2.8", "-XMP-dc:Title=A title", "-XMP-dc:Creator=Somebody",
                               "-XMP-lr:HierarchicalSubject=a|b", "-IPTC:Keywords=word", "-IPTC:City=Town",
                               "-GPS:GPSLatitude=48.5", "-GPS:GPSLatitudeRef=N", "-File:Comment=spoken",
                               master_.string()});
        }
        const fs::path file = folder / "photos" / name;
        fs::copy_file(master_, file);
        return file;
    }

    static const jobs::Operation& operationOf(app::CommandId id) {
        for (const jobs::Operation& operation : taglists::operations())
            if (operation.id == id) return operation;
        throw std::out_of_range("no such operation");
    }

    /// The safety copy's bytes.
    std::string copyOf(const std::filesystem::path& file) const {
        return support::readBytes(exiftool::safetyCopyPath(file, context.cachePath, {}, QDateTime()));
    }

    static std::string valueOf(const std::filesystem::path& file, const std::string& tag) {
        return support::ExifTool({"-s3", "-b", "-" + tag, file.string()});
    }

    /// Every tag of the file beside those of the file system, one a line.
    static std::string tagsOf(const std::filesystem::path& file) {
        return support::ExifTool({"-a", "-S", "-G1", "-x", "System:All", "-x", "ExifTool:All", "-x",
                                  "Composite:All", "-x", "CurrentIPTCDigest", file.string()});
    }

    std::string report() const {
        return std::filesystem::exists(context.reportFile) ? support::readBytes(context.reportFile) : "";
    }

    exiftool::Outcomes carryOut(const jobs::Job& job) { return support::runHere(job, context, runner); }
    /// What a dialog has left.
    exiftool::Outcomes carryOut(jobs::JobSource& dialog) { return carryOut(dialog.takeJob()); }

    app::CommandForm form() const { return app::commandFormOf(context); }

    support::TemporaryFolder folder;
    app::AppContext context;
    app::LanguageFile language{TAGWRIGHT_BIN_DIR, 9};
    tags::TagDictionary dictionary;
    tags::LabelLibrary labels{9, dictionary};
    tags::RatingMemory memory;
    tags::RatingLog log;
    exiftool::ToolRunner runner{context};
    exiftool::ReadFeedback feedback;
    exiftool::ReadCommands reads{context, runner, feedback};
    jobs::OperationParts parts{context, language, dictionary, labels, memory, log, runner, reads};

 private:
    std::filesystem::path master_ = folder / "master.jpg";
};
