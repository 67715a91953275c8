#pragma once
// The headers that nearly every test reads.
#include "UiPrecompiled.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
