#pragma once

#include <filesystem>

namespace support {

/// Where the tests are run by the superuser, who may read and write everything, the process and what it
/// starts belong to a user without rights while the object lives. Otherwise nothing happens: that user is one
/// already.
class UnprivilegedUser {
 public:
    /// What stands below the folder is given to that user before.
    explicit UnprivilegedUser(const std::filesystem::path& folder = {});
    ~UnprivilegedUser();
    /// False where only the superuser may go to the program.
    static bool mayRun(const std::filesystem::path& program);

    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;
};

}  // namespace support
