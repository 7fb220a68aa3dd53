// SPDX-License-Identifier: GPL-3.0-or-later
// Must not compile: a display knows no engine.
#include "engine/PeriodDetector.h"

int level() { return veltrano::period_detector::levelOf(1.0F); }
