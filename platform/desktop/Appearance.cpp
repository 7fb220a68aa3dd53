// SPDX-License-Identifier: GPL-3.0-or-later
// Light or dark.
#include "platform/desktop/Appearance.h"

#include <QApplication>

namespace veltrano {

namespace {

constexpr int kMidGrey = 128;

struct Colors {
    QRgb window, panel, alternate, text, dim, highlight, highlightedText, link;
};

constexpr Colors kLight{0xfff1efeb, 0xfffcfbf9, 0xfff5f3ef, 0xff1b1f24,
                        0xff8b8f94, 0xff23639e, 0xffffffff, 0xff1d5f9e};
constexpr Colors kDark{0xff191b1e, 0xff222529, 0xff282b30, 0xffecebe6,
                       0xff7c8289, 0xff3d7dbd, 0xffffffff, 0xff7fb4e8};

QPalette paletteOf(const Colors& c) {
    QPalette palette{QColor(c.window)}; // derives the shades of buttons and frames
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(c.text));
        palette.setColor(QPalette::Disabled, role, QColor(c.dim));
    }
    palette.setColor(QPalette::Window, QColor(c.window));
    palette.setColor(QPalette::Base, QColor(c.panel));
    palette.setColor(QPalette::ToolTipBase, QColor(c.panel));
    palette.setColor(QPalette::AlternateBase, QColor(c.alternate));
    palette.setColor(QPalette::PlaceholderText, QColor(c.dim));
    palette.setColor(QPalette::Highlight, QColor(c.highlight));
    palette.setColor(QPalette::HighlightedText, QColor(c.highlightedText));
    palette.setColor(QPalette::Link, QColor(c.link));
    return palette;
}

} // namespace

bool Appearance::isDark() { return isDark(QGuiApplication::palette()); }

bool Appearance::isDark(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::Window).lightness() < kMidGrey;
}

QPalette Appearance::palette(AppearanceChoice choice) {
    switch (choice) {
    case AppearanceChoice::light:
        return paletteOf(kLight);
    case AppearanceChoice::dark:
        return paletteOf(kDark);
    case AppearanceChoice::system:
        break;
    }
    return {}; // no colour is set: the desktop's hold
}

void Appearance::choose(AppearanceChoice choice) { QApplication::setPalette(palette(choice)); }

void Appearance::chooseLike(AppearanceChoice wanted) {
    choose(AppearanceChoice::system);
    if (wanted == AppearanceChoice::system) return;
    const bool wantsDark = wanted == AppearanceChoice::dark;
    if (isDark() != wantsDark) choose(wanted);
}

std::optional<AppearanceChoice> Appearance::choiceNamed(QStringView name) {
    if (name == u"system") return AppearanceChoice::system;
    if (name == u"light") return AppearanceChoice::light;
    if (name == u"dark") return AppearanceChoice::dark;
    return std::nullopt;
}

QColor Appearance::mixed(const QColor& over, const QColor& under, float share) {
    const auto part = [share](float a, float b) { return share * a + (1 - share) * b; };
    return QColor::fromRgbF(part(over.redF(), under.redF()), part(over.greenF(), under.greenF()),
                            part(over.blueF(), under.blueF()));
}

QColor Appearance::captionColor(const QPalette& palette) {
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.68f);
}

QColor Appearance::hairlineColor(const QPalette& palette) {
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.16f);
}

} // namespace veltrano
