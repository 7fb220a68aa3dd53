// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/HelpText.h"

#include "platform/desktop/Appearance.h"

#include <QEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>
#include <cmath>

namespace veltrano {

namespace {

constexpr int kSmallestMargin = 18;  // [points] beside the text
constexpr int kWidestLine = 46;      // [heights of the font] longer lines are hard to follow
constexpr double kFineScreen = 1.25; // [pixels per point] from here on the finer picture is taken

constexpr double kReadable = 4.5; // contrast of text

double luminance(const QColor& color) {
    const auto part = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(double(color.redF())) + 0.7152 * part(double(color.greenF())) +
           0.0722 * part(double(color.blueF()));
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// The palette's colour of links, moved towards that of the text until it can be read: many a dark
/// desktop leaves it at pure blue.
QColor linkColor(const QPalette& palette) {
    QColor color = palette.color(QPalette::Link);
    for (int step = 0; step < 4; ++step) {
        if (contrast(color, palette.color(QPalette::Base)) >= kReadable) break;
        color = Appearance::mixed(palette.color(QPalette::Text), color, 0.4f);
    }
    return color;
}

QString styleFor(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    return QStringLiteral("a { color: %1; text-decoration: underline; }"
                          "h1 { margin-top: 6px; margin-bottom: 12px; }"
                          "h2 { margin-top: 22px; margin-bottom: 8px; }"
                          "h3 { margin-top: 16px; margin-bottom: 6px; }"
                          "p { line-height: 135%; margin-top: 0px; margin-bottom: 9px; }"
                          "li { line-height: 135%; margin-top: 0px; margin-bottom: 5px; }"
                          "p.picture { line-height: 100%; margin-bottom: 14px; }"
                          "table { margin-top: 6px; margin-bottom: 12px; }"
                          "pre { margin-top: 2px; margin-bottom: 12px; }"
                          "td, th { padding: 4px 9px 4px 9px; }"
                          "th { background-color: %2; font-weight: 600; }"
                          ".key { background-color: %2; font-weight: 600; }"
                          ".nav { margin-top: 20px; }")
        .arg(linkColor(palette).name(), Appearance::mixed(text, base, 0.1f).name());
}

/// The files that can stand for @p path, the best one first.
QStringList variantsOf(const QString& path, bool isDark, bool isFine) {
    const QString stem = path.chopped(path.size() - path.lastIndexOf(u'.'));
    const QString ending = path.mid(path.lastIndexOf(u'.'));
    QStringList stems{stem};
    if (isDark) stems.prepend(stem + QStringLiteral("-dark"));
    QStringList paths;
    for (const QString& one : stems) {
        if (isFine) paths.append(one + QStringLiteral("-2x") + ending);
        paths.append(one + ending);
    }
    return paths;
}

template <typename Action>
void forEachPicture(QTextDocument& document, Action&& action) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (format.isImageFormat()) action(format.toImageFormat());
        }
    }
}

} // namespace

HelpText::HelpText(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(true);
    updateStyle();
    connect(this, &QTextBrowser::sourceChanged, this, &HelpText::pageShown);
}

void HelpText::setCaretShown(bool isShown) {
    setTextInteractionFlags(isShown ? Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard
                                    : Qt::TextBrowserInteraction);
}

bool HelpText::isCaretShown() const {
    return textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard);
}

QVariant HelpText::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    return picture(source().resolved(name));
}

void HelpText::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) showAnew();
}

void HelpText::resizeEvent(QResizeEvent* event) {
    updateMargins();
    QTextBrowser::resizeEvent(event);
    fitPictures();
}

/// A page begins without margins, and a picture takes its place only when it is there.
void HelpText::pageShown(const QUrl& url) {
    mPage = url; // source() is still that of the page before
    updateMargins();
    fitPictures();
    if (url.hasFragment()) scrollToAnchor(url.fragment());
}

void HelpText::updateStyle() {
    mStyle = styleFor(palette());
    document()->setDefaultStyleSheet(mStyle);
}

void HelpText::updateMargins() {
    const int widest = kWidestLine * fontMetrics().height();
    const int margin = std::max(kSmallestMargin, (viewport()->width() - widest) / 2);
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    if (format.leftMargin() == margin) return;
    format.setLeftMargin(margin);
    format.setRightMargin(margin);
    format.setTopMargin(kSmallestMargin);
    format.setBottomMargin(kSmallestMargin);
    document()->rootFrame()->setFrameFormat(format);
}

void HelpText::fitPictures() {
    bool hasAny = false;
    forEachPicture(*document(), [this, &hasAny](const QTextImageFormat& format) {
        const QUrl url = mPage.resolved(QUrl(format.name()));
        document()->addResource(QTextDocument::ImageResource, url, picture(url));
        hasAny = true;
    });
    if (hasAny) document()->markContentsDirty(0, document()->characterCount());
}

/// The colours of links and tables are fixed when a page is read.
void HelpText::showAnew() {
    updateStyle();
    if (source().isEmpty()) return;
    const int position = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(position);
}

QImage HelpText::picture(const QUrl& url) const {
    const double ratio = devicePixelRatioF();
    const QString path = url.toLocalFile();
    for (const QString& file :
         variantsOf(path, Appearance::isDark(palette()), ratio >= kFineScreen)) {
        if (!QFile::exists(file)) continue;
        QImage image = QImageReader(file).read();
        const bool isFine = QFileInfo(file).completeBaseName().endsWith(QLatin1String("-2x"));
        const double natural = image.width() / (isFine ? 2.0 : 1.0);
        const QTextFrameFormat frame = document()->rootFrame()->frameFormat();
        const double room = viewport()->width() - frame.leftMargin() - frame.rightMargin();
        const double width = std::min(natural, std::max(room, 1.0));
        image = image.scaledToWidth(int(std::lround(width * ratio)), Qt::SmoothTransformation);
        image.setDevicePixelRatio(ratio);
        return image;
    }
    return {};
}

} // namespace veltrano
