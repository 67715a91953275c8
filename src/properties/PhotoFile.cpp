#include "properties/PhotoFile.h"

#include <mutex>

namespace properties {
namespace {

std::recursive_mutex& toolkitMutex() {
    static std::recursive_mutex mutex;
    return mutex;
}

void lockToolkit(void* /*data*/, bool lock) {
    if (lock)
        toolkitMutex().lock();
    else
        toolkitMutex().unlock();
}

void setUpOnce() {
    static std::once_flag once;
    std::call_once(once, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize(lockToolkit, nullptr);
#ifdef EXV_ENABLE_BMFF
        Exiv2::enableBMFF(true);
#endif
    });
}

}  // namespace

Exiv2::Image::AutoPtr openPhoto(const std::filesystem::path& file) {
    setUpOnce();
    // Named from the root, so that no name is taken for an address of the network.
    Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(std::filesystem::absolute(file).native(), false);
    image->readMetadata();
    return image;
}

Exiv2::Image::AutoPtr openNote(const std::string& note) {
    setUpOnce();
    Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::create(Exiv2::ImageType::xmp);
    if (Exiv2::XmpParser::decode(image->xmpData(), note) != 0) image->clearXmpData();
    return image;
}

}  // namespace properties
