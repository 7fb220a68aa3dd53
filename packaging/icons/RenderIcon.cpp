// SPDX-License-Identifier: GPL-3.0-or-later
// render_icon: writes an SVG as a square PNG, so that the build needs no other drawing program.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

constexpr int kLargestPixels = 1024;

int fail(const char* reason, const char* what) {
    std::fprintf(stderr, "render_icon: %s: %s\n", reason, what);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) return fail("usage", "render_icon IN.svg PIXELS OUT.png");
    QSvgRenderer artwork(QFile::decodeName(argv[1]));
    if (!artwork.isValid()) return fail("not an SVG", argv[1]);
    bool isNumber = false;
    const int pixels = QByteArray(argv[2]).toInt(&isNumber);
    if (!isNumber || pixels < 1 || pixels > kLargestPixels) return fail("no size", argv[2]);

    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    artwork.render(&painter);
    painter.end();
    if (!image.save(QFile::decodeName(argv[3]), "PNG")) return fail("cannot write", argv[3]);
    return 0;
}
