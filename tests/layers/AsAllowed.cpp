// SPDX-License-Identifier: GPL-3.0-or-later
// Compiles and links: the counterpart of those that must not.
#include "engine/PeriodDetector.h"

int main() { return veltrano::period_detector::levelOf(0.0F); }
