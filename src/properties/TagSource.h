#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <memory>

namespace properties {

/// What a program tells of a file: "Group:Name" and the values, numbers and times in the form in which they
/// are kept, not in words.
using FileTags = QHash<QString, QStringList>;

/// A program that is asked about the kinds of files of which no library here knows: documents, programs,
/// pictures of rare formats. Any thread.
class TagSource {
 public:
    TagSource() = default;
    virtual ~TagSource() = default;
    TagSource(const TagSource&) = delete;
    TagSource& operator=(const TagSource&) = delete;

    /// Empty when nothing could be learned. Blocks until the program has answered or a limit is over.
    virtual FileTags tagsOf(const std::filesystem::path& file) = 0;
};

/// The one that stores ask from now on; null for none, which is how a process begins. A store that asks at
/// that moment keeps the old one alive until it has its answer.
void setTagSource(std::shared_ptr<TagSource> source);
std::shared_ptr<TagSource> tagSource();

}  // namespace properties
