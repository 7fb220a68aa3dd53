// SPDX-License-Identifier: GPL-3.0-or-later
// The program's artwork by name.
#pragma once

#include "platform/foundation/Log.h"

#include <QHash>
#include <QImage>
#include <QRect>
#include <QSizeF>
#include <QString>
#include <memory>
#include <vector>

class QPainter;
class QSvgRenderer;

namespace veltrano {

/// Where something falls on the device that a painter draws on.
struct DevicePlace {
    QRect pixels;   ///< nearest whole device pixels, at least one each way
    QRectF logical; ///< the same in the painter's coordinates

    static DevicePlace of(const QPainter& painter, const QRectF& rect);
};

/// One piece of vector artwork, with a variant of its own for the dark appearance if there is one.
/// It is rendered when it is drawn, in the pixels that it then has, so it is sharp at any size; the
/// last few renderings are kept. Thread: main.
class NamedImage {
public:
    NamedImage(QString name, const QString& path, const QString& darkPath);
    ~NamedImage();
    NamedImage(const NamedImage&) = delete;
    NamedImage& operator=(const NamedImage&) = delete;

    bool isValid() const { return !mSize.isEmpty(); }
    const QString& name() const { return mName; }
    QSizeF size() const { return mSize; } ///< natural size [points]

    /// The whole extent, drawn over what is there into the device pixels nearest to @p target.
    void draw(QPainter& painter, const QRectF& target) const;
    /// The same at exactly @p target, between the pixels too: for what moves in small steps.
    void drawBetweenPixels(QPainter& painter, const QRectF& target) const;
    /// The whole extent in that many device pixels (ARGB, premultiplied, pixel ratio 1).
    QImage rendered(QSize pixels) const;

private:
    struct Rendering {
        QSize pixels;
        bool dark;
        QImage image;
    };
    QSvgRenderer& renderer() const;

    const QString mName;
    const QString mDarkPath;
    QSizeF mSize;
    std::unique_ptr<QSvgRenderer> mLight;
    mutable std::unique_ptr<QSvgRenderer> mDark;
    mutable std::vector<Rendering> mRenderings; ///< the last used at the end
};

/// A named image is kept by whoever shows it; identity is the pointer's.
using ImageRef = std::shared_ptr<const NamedImage>;

/// Loads NAME.svg, and NAME-dark.svg for the dark appearance, from one folder, each once.
/// Thread: main.
class ImageLibrary {
public:
    /// @param log must outlive the library
    ImageLibrary(QString folder, Log& log);

    /// The same object for the same name. Null, with one log line, when there is no such artwork.
    ImageRef imageNamed(const QString& name);

private:
    const QString mFolder;
    Log& mLog;
    QHash<QString, ImageRef> mImages;
};

} // namespace veltrano
