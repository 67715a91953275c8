#pragma once

#include <QString>
#include <cstddef>
#include <filesystem>

namespace jobs {

/// Tells the user how far an operation over several files is, and keeps the window painted meanwhile. The
/// default does nothing, as programs without a window want. GUI thread.
class FileProgress {
 public:
    virtual ~FileProgress() = default;
    /// title says what is done, such as "Add keywords"; count is the number of files.
    virtual void begin(const QString& title, std::size_t count) {
        static_cast<void>(title);
        static_cast<void>(count);
    }
    /// Before each file; number counts from 1. False: the window wants to close, and the caller begins no
    /// other file.
    virtual bool showFile(const std::filesystem::path& file, std::size_t number) {
        static_cast<void>(file);
        static_cast<void>(number);
        return true;
    }
    virtual void End() {}
};

/// Begin and End of one operation.
class FileProgressScope {
 public:
    FileProgressScope(FileProgress& progress, const QString& title, std::size_t count) : progress_(progress) {
        progress_.begin(title, count);
    }
    ~FileProgressScope() { progress_.End(); }
    FileProgressScope(const FileProgressScope&) = delete;
    FileProgressScope& operator=(const FileProgressScope&) = delete;

 private:
    FileProgress& progress_;
};

}  // namespace jobs
