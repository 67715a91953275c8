#pragma once

#include "exiftool/WarmStarter.h"

/// The warm starter that the tests of reads and writes go through when the environment variable
/// TAGWRIGHT_TEST_WARM_START is 1; else null, and every run is one of its own. One for the whole test
/// program. When there is one, a case fails in which a command of ExifTool was not run by it.
exiftool::WarmStarter* starterUnderTest();
