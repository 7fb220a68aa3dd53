// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the analysis views, with y pointing up.
#pragma once

#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/Appearance.h"
#include "tests/support/Pictures.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace veltrano {

constexpr QRgb kBlack = 0xff000000;
constexpr QRgb kWhite = 0xffffffff;
constexpr QRgb kDarkGrey = 0xff555555; ///< a third of white
constexpr QRgb kGrey = 0xff808080;     ///< half of white
constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kGreen = 0xff00ff00;
constexpr QRgb kBlue = 0xff0000ff;

/// The whole program in light or dark colours while this lives; light afterwards.
class InColors {
public:
    explicit InColors(AppearanceChoice choice) { Appearance::choose(choice); }
    ~InColors() { Appearance::choose(AppearanceChoice::light); }
    InColors(const InColors&) = delete;
    InColors& operator=(const InColors&) = delete;
};

constexpr AppearanceChoice kBothColors[] = {AppearanceChoice::light, AppearanceChoice::dark};
inline const char* nameOf(AppearanceChoice choice) {
    return choice == AppearanceChoice::dark ? "dark" : "light";
}

/// What a view shows; places are points from its lower left corner.
class Seen {
public:
    explicit Seen(QWidget& view, double pixelRatio = 1) : Seen(pictureOf(view, pixelRatio)) {}
    explicit Seen(QImage picture)
        : mPicture(std::move(picture)), mRatio(mPicture.devicePixelRatio()) {}

    const QImage& picture() const { return mPicture; }
    /// The pixel in which that place lies.
    QRgb at(double x, double y) const {
        return mPicture.pixel(static_cast<int>(std::floor(x * mRatio)),
                              mPicture.height() - 1 - static_cast<int>(std::floor(y * mRatio)));
    }
    /// Whether every pixel that lies wholly inside the rectangle has that colour.
    bool isAll(QRgb color, double left, double bottom, double width, double height) const {
        const int top = static_cast<int>(std::ceil(mPicture.height() - (bottom + height) * mRatio));
        const int end = static_cast<int>(std::floor(mPicture.height() - bottom * mRatio));
        const int right = static_cast<int>(std::floor((left + width) * mRatio));
        for (int y = top; y < end; ++y) {
            for (int x = static_cast<int>(std::ceil(left * mRatio)); x < right; ++x) {
                if (mPicture.pixel(x, y) != color) return false;
            }
        }
        return true;
    }

private:
    QImage mPicture;
    double mRatio;
};

/// A drawing to compare a view's with.
/// @param draw gets a painter whose units are points, y downwards as for all painters
inline QImage drawn(QSize size, double pixelRatio, const std::function<void(QPainter&)>& draw) {
    QImage picture((QSizeF(size) * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    draw(painter);
    painter.end();
    return picture;
}

/// How far apart two colours are in the part that differs most.
inline int difference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

/// Tells where two pictures differ.
/// @param tolerance largest difference that counts as the same colour
inline testing::AssertionResult areSame(const QImage& seen, const QImage& expected,
                                        int tolerance = 0) {
    if (seen.size() != expected.size()) {
        return testing::AssertionFailure() << seen.width() << " x " << seen.height() << ", not "
                                           << expected.width() << " x " << expected.height();
    }
    QRect differing;
    QString first;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            if (difference(seen.pixel(x, y), expected.pixel(x, y)) <= tolerance) continue;
            if (differing.isEmpty()) {
                first =
                    QStringLiteral("%1, not %2")
                        .arg(QColor(seen.pixel(x, y)).name(), QColor(expected.pixel(x, y)).name());
            }
            differing |= QRect(x, y, 1, 1);
        }
    }
    if (differing.isEmpty()) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "within " << differing.width() << " x " << differing.height() << " pixels at "
           << differing.x() << ", " << differing.y() << ", first " << first.toStdString();
}

/// The font that texts in drawings have: the wanted one where it is, the system's otherwise.
inline QFont textFont(int size, bool isBold) {
    const QString wanted = QStringLiteral("Lucida Grande");
    QFont font = QGuiApplication::font();
    if (QFontDatabase::families().contains(wanted)) font.setFamily(wanted);
    font.setPixelSize(size);
    font.setBold(isBold);
    return font;
}

/// What readouts announce while this lives.
struct HeardValues {
    static inline std::vector<QString> values;
    static void hear(QAccessibleEvent* event) {
        if (event->type() == QAccessible::TextUpdated)
            values.push_back(static_cast<QAccessibleTextUpdateEvent*>(event)->textInserted());
    }
    HeardValues() {
        AccessibleReadout::install();
        AccessibleReadout::setListener({[] { return true; }, hear});
        values.clear();
    }
    ~HeardValues() { AccessibleReadout::setListener({}); }
};

} // namespace veltrano
