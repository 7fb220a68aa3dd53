// SPDX-License-Identifier: GPL-3.0-or-later
// Must not compile: the controller knows no widgets.
#include <QWidget>

bool isShown(const QWidget& widget) { return widget.isVisible(); }
