#pragma once
// The headers that nearly every source with widgets reads.
#include "CorePrecompiled.h"

#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>
