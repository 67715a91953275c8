#pragma once

#include "app/LanguageFile.h"
#include "jobs/OperationParts.h"
#include "support/EditingContext.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>

/// What the edits work with, over files of a folder that goes away.
class EditedFile : public testing::Test {
 protected:
    EditedFile() { context = support::editingContext(folder.path()); }

    /// A picture with these values.
    std::filesystem::path photo(std::vector<std::string> arguments, const std::string& name = "a.jpg") const {
        std::filesystem::path file = folder / "photos" / std::filesystem::path(name);
        support::writeJpeg(file);
        arguments.insert(arguments.begin(), {"-q", "-overwrite_original"});
        arguments.push_back(file.string());
        if (arguments.size() > 3) support::ExifTool(arguments);
        return file;
    }

    static std::string valueOf(const std::filesystem::path& file, const std::string& tag) {
        return support::ExifTool({"-s3", "-b", "-" + tag, file.string()});
    }

    /// All tags that could have changed, but one.
    static std::string otherTags(const std::filesystem::path& file, const std::string& tag) {
        return support::ExifTool({"-a", "-G1", "-S", "-x", "System:All", "-x", tag, "-x", "XMPToolkit", "-x",
                                  "CurrentIPTCDigest", "-x", "MediaDataOffset", "-x", "Composite:All",
                                  file.string()});
    }

    tags::TagRecord record(QStringView group, QStringView name) const {
        for (const tags::TagRecord& row : dictionary.records())
            if (QStringView(row.group) == group && QStringView(row.name) == name) return row;
        ADD_FAILURE() << group.toUtf8().constData() << ':' << name.toUtf8().constData();
        return {};
    }

    std::string report() const {
        return std::filesystem::exists(context.reportFile) ? support::readBytes(context.reportFile) : "";
    }

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
};
