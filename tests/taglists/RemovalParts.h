#pragma once

#include "jobs/OperationParts.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// What the edits work with, over the real ExifTool and files of its own.
class RemovalParts {
 public:
    /// Notes what it is told, and wants to close before the file of this number.
    class Progress : public jobs::FileProgress {
     public:
        void begin(const QString& title, std::size_t count) override {
            titles.push_back(title.toStdString() + "/" + std::to_string(count));
        }
        bool showFile(const std::filesystem::path& file, std::size_t number) override {
            shown.push_back(file.filename().string());
            return number != closesAt;
        }
        void End() override { ++ended; }

        std::vector<std::string> titles;
        std::vector<std::string> shown;
        int ended = 0;
        std::size_t closesAt = 0;
    };

    RemovalParts() {
        namespace fs = std::filesystem;
        for (const char* name : {"Temp", "photos", "cache"}) fs::create_directory(folder / name);
        context.tempPath = folder / "Temp";
        context.cachePath = folder / "cache";
        context.reportFile = folder / "cache/report.txt";
        context.exifToolPath = "/usr/bin/exiftool";
        context.settings.exifTool.correctedCommands = true;
    }

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
    Progress progress;
    jobs::OperationParts parts{context, language, dictionary, labels, memory, log, runner, reads, progress};

 private:
    std::filesystem::path master_ = folder / "master.jpg";
};
