#include "support/LocalZone.h"

#include <cstdlib>
#include <ctime>

namespace support {

LocalZone::LocalZone(const char* zone) {
    const char* before = std::getenv("TZ");
    wasSet_ = before != nullptr;
    if (wasSet_) before_ = before;
    ::setenv("TZ", zone, 1);
    ::tzset();
}

LocalZone::~LocalZone() {
    if (wasSet_)
        ::setenv("TZ", before_.c_str(), 1);
    else
        ::unsetenv("TZ");
    ::tzset();
}

}  // namespace support
