// SPDX-License-Identifier: GPL-3.0-or-later
// The program's artwork by name.
#include "platform/desktop/ImageLibrary.h"

#include "platform/desktop/Appearance.h"

#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

// A light is at most 120 points wide; the views ask for one size each, and a window between two
// screens for two.
constexpr std::size_t kKeptRenderings = 4;

} // namespace

DevicePlace DevicePlace::of(const QPainter& painter, const QRectF& rect) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const auto left = static_cast<int>(std::lround(device.left()));
    const auto top = static_cast<int>(std::lround(device.top()));
    const auto right = static_cast<int>(std::lround(device.right()));
    const auto bottom = static_cast<int>(std::lround(device.bottom()));
    const QRect pixels(left, top, std::max(1, right - left), std::max(1, bottom - top));
    return {pixels, toDevice.inverted().mapRect(QRectF(pixels))};
}

NamedImage::NamedImage(QString name, const QString& path, const QString& darkPath)
    : mName(std::move(name)), mDarkPath(QFileInfo::exists(darkPath) ? darkPath : QString()) {
    if (!QFileInfo::exists(path)) return;
    mLight = std::make_unique<QSvgRenderer>(path);
    if (mLight->isValid()) mSize = mLight->defaultSize().toSizeF();
}

NamedImage::~NamedImage() = default;

QSvgRenderer& NamedImage::renderer() const {
    if (mDarkPath.isEmpty() || !Appearance::isDark()) return *mLight;
    if (!mDark) mDark = std::make_unique<QSvgRenderer>(mDarkPath);
    return mDark->isValid() ? *mDark : *mLight;
}

void NamedImage::draw(QPainter& painter, const QRectF& target) const {
    if (!isValid() || target.isEmpty()) return;
    const DevicePlace place = DevicePlace::of(painter, target);
    painter.drawImage(place.logical, rendered(place.pixels.size()));
}

void NamedImage::drawBetweenPixels(QPainter& painter, const QRectF& target) const {
    if (!isValid() || target.isEmpty()) return;
    renderer().render(&painter, target);
}

QImage NamedImage::rendered(QSize pixels) const {
    if (!isValid() || pixels.isEmpty()) return {};
    const bool dark = !mDarkPath.isEmpty() && Appearance::isDark();
    const auto found = std::ranges::find_if(
        mRenderings, [&](const Rendering& r) { return r.pixels == pixels && r.dark == dark; });
    if (found != mRenderings.end()) {
        std::rotate(found, found + 1, mRenderings.end());
        return mRenderings.back().image;
    }
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer().render(&painter, QRectF(QPointF(), QSizeF(pixels)));
    painter.end();
    if (mRenderings.size() == kKeptRenderings) mRenderings.erase(mRenderings.begin());
    mRenderings.push_back({pixels, dark, image});
    return image;
}

ImageLibrary::ImageLibrary(QString folder, Log& log) : mFolder(std::move(folder)), mLog(log) {}

ImageRef ImageLibrary::imageNamed(const QString& name) {
    if (const auto known = mImages.constFind(name); known != mImages.constEnd()) return *known;
    const QString stem = mFolder + u'/' + name;
    auto image = std::make_shared<const NamedImage>(name, stem + QStringLiteral(".svg"),
                                                    stem + QStringLiteral("-dark.svg"));
    if (!image->isValid()) {
        mLog.detail("no artwork in " + stem.toStdString() + ".svg");
        image = nullptr;
    }
    mImages.insert(name, image);
    return image;
}

} // namespace veltrano
