#pragma once

#include "platform/FileIdentity.h"
#include "properties/PropertyResult.h"
#include "properties/PropertyValues.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace properties {

/// What kinds of content a file may have, judged by its MIME type, and so who is asked about it.
enum class MediaClass : std::uint8_t { Other, Photo, Audio, Video, Document };

/// A value to be written.
struct PropertyChange {
    PropertyId property;
    PropertyValue value;  ///< std::monostate takes the property away
};

/// The properties of one file, fed by the file system, the MIME database, Exiv2, TagLib and MediaInfo, and
/// for documents, programs and the pictures that Exiv2 does not know by the source of tags (TagSource.h).
/// Each is asked at the first property of its area, and only for files of its kinds; its failures count as
/// absent values. Only regular files are ever opened, so that a pipe or a device cannot hold anybody up.
/// Blocks as the disk does. Any thread, one thread for an object.
class PropertyStore {
 public:
    explicit PropertyStore(std::filesystem::path file);

    /// False for whatever is not a regular file; such a store has no values and takes none.
    bool isOpen() const { return identity_.has_value(); }
    const std::filesystem::path& file() const { return file_; }
    const std::optional<platform::FileIdentity>& identity() const { return identity_; }

    const PropertyValue& get(PropertyId property);

    /// Notes a change for the commit. A text is read as what the property holds ("3" for a number, "1/250"
    /// for a fraction, elements separated by ";" for a list, "2024:05:06 07:08:09" for a time); an empty text
    /// takes the property away. NotSupported when files of this kind cannot hold the property.
    PropertyResult set(PropertyId property, const PropertyValue& value);

    struct CommitOptions {
        bool keepTimes = false;  ///< the file keeps its times of modification and access
    };

    /// Writes all changes at once: a copy beside the file is changed, brought to the disk and renamed, so
    /// that the file is at every moment the old or the new one, whole. Permissions are kept, links followed.
    /// After a failure the file is untouched and the changes are forgotten.
    PropertyResult commit(CommitOptions options);
    PropertyResult commit() { return commit({}); }

 private:
    void look();
    void read(PropertyId property);
    void readMedia(PropertyId property);

    std::filesystem::path file_;
    std::optional<platform::FileIdentity> identity_;
    MediaClass mediaClass_ = MediaClass::Other;
    bool mediaClassKnown_ = false;
    bool fileRead_ = false;
    bool photoRead_ = false;
    bool audioRead_ = false;
    bool streamsRead_ = false;
    bool macintoshRead_ = false;
    bool notesRead_ = false;
    bool documentRead_ = false;
    bool isKnownPhoto_ = false;  ///< Exiv2 reads the metadata of such files
    PropertyValues values_;
    std::vector<PropertyChange> changes_;
};

}  // namespace properties
