// SPDX-License-Identifier: GPL-3.0-or-later
// Tells a view when what holds it changes its size.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>
#include <functional>

class QWidget;

namespace veltrano {

/// Watches the size of a widget's parent. Thread: main. Owned by the widget.
///
/// A parent that was never shown gets its resize events late and without the old size, so the last
/// known size is remembered here.
class SuperviewFollower final : public QObject {
    Q_OBJECT
public:
    /// @param present the parent's size  @param old its size before
    using Handler = std::function<void(QSize present, QSize old)>;

    SuperviewFollower(QWidget& view, Handler onResize);

    /// To be called by the view when it has moved to another parent.
    void superviewChanged();
    QSize superviewSize() const { return mSize; } ///< last known; 0 x 0 while there is no parent

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& mView;
    const Handler mOnResize;
    QPointer<QWidget> mSuperview;
    QSize mSize{0, 0};
};

} // namespace veltrano
