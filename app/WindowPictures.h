// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of hidden windows.
#pragma once

#include <QImage>
#include <QString>
#include <vector>

class QWidget;

namespace veltrano {

/// The last drawing pass of each of some windows, which stay hidden: the event loop adds no passes.
/// Thread: main.
class WindowPictures {
public:
    /// @param window outlives this
    void add(const QString& name, QWidget& window) { mPictures.push_back({name, &window, {}}); }
    /// Every window gets exactly one drawing pass.
    void take();
    bool isEmpty() const { return mPictures.empty() || mPictures.front().image.isNull(); }
    /// Writes NAME.png of each into @p folder, which is made if need be.
    /// @return what failed, empty when nothing did
    QString write(const QString& folder) const;

private:
    struct Picture {
        QString name;
        QWidget* window;
        QImage image;
    };
    std::vector<Picture> mPictures;
};

} // namespace veltrano
