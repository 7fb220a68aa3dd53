// SPDX-License-Identifier: GPL-3.0-or-later
// Files dropped on a window.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QMimeData;
class QWidget;

namespace veltrano {

/// Lets files be dropped on a window. Thread: main. Owned by the window.
class FileDrop final : public QObject {
public:
    /// @param accepts whether a path can be opened; what cannot is left in the drag
    /// @param open told the whole paths of the accepted files, in their order
    FileDrop(QWidget& window, std::function<bool(const std::string& path)> accepts,
             std::function<void(const std::vector<std::string>& paths)> open);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<std::string> acceptedPaths(const QMimeData& data) const;

    const std::function<bool(const std::string&)> mAccepts;
    const std::function<void(const std::vector<std::string>&)> mOpen;
};

} // namespace veltrano
