#include "platform/FileIdentity.h"

namespace platform {

bool isSameContent(const FileIdentity& one, const FileIdentity& other) {
    FileIdentity changedAlike = other;
    changedAlike.changedNanoseconds = one.changedNanoseconds;
    return one == changedAlike;
}

}  // namespace platform
