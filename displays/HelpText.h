// SPDX-License-Identifier: GPL-3.0-or-later
// The text of the manual.
#pragma once

#include <QTextBrowser>

namespace veltrano {

/// Shows the pages of the manual in the colours and the font of the desktop. Thread: main.
///
/// A picture NAME.png is replaced by NAME-dark.png on a dark palette and by NAME-2x.png on a fine
/// screen where those files are there, and is made narrower to fit into the window. Links to files
/// open here, all others in the browser of the desktop.
class HelpText final : public QTextBrowser {
public:
    explicit HelpText(QWidget* parent = nullptr);

    /// With a caret the arrow keys go from character to character, so that a screen reader can read
    /// along; without one they scroll.
    void setCaretShown(bool isShown);
    bool isCaretShown() const;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void pageShown(const QUrl& url);
    void updateStyle();
    void updateMargins();
    void fitPictures();
    void showAnew();
    QImage picture(const QUrl& url) const;

    QString mStyle;
    QUrl mPage; ///< with its pictures
};

} // namespace veltrano
