#include "support/UnprivilegedUser.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace support {

namespace fs = std::filesystem;

namespace {

/// The user "nobody", who has a number everywhere and owns nothing.
constexpr uid_t kNobody = 65534;

void give(const fs::path& path) {
    EXPECT_EQ(::lchown(path.c_str(), kNobody, kNobody), 0) << path;
}

}  // namespace

// The saved number stays the superuser's, so that there is a way back; what is started does not have it.
UnprivilegedUser::UnprivilegedUser(const fs::path& folder) {
    if (::geteuid() != 0) return;
    if (!folder.empty()) {
        give(folder);
        for (const auto& entry : fs::recursive_directory_iterator(folder)) give(entry.path());
    }
    EXPECT_EQ(::setresgid(kNobody, kNobody, 0), 0);
    EXPECT_EQ(::setresuid(kNobody, kNobody, 0), 0);
}

bool UnprivilegedUser::mayRun(const fs::path& program) {
    const UnprivilegedUser user;
    return ::access(program.c_str(), X_OK) == 0;
}

UnprivilegedUser::~UnprivilegedUser() {
    uid_t real = 0;
    uid_t effective = 0;
    uid_t saved = 0;
    ::getresuid(&real, &effective, &saved);
    if (saved != 0 || effective == 0) return;
    EXPECT_EQ(::setresuid(0, 0, 0), 0);
    EXPECT_EQ(::setresgid(0, 0, 0), 0);
}

}  // namespace support
