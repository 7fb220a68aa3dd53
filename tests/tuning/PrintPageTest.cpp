// SPDX-License-Identifier: GPL-3.0-or-later
// The printed page.
#include "tuning/PrintPage.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace veltrano {
namespace {

TEST(PrintPageTest, EverythingFitsOnOnePage) {
    PrintPage page;
    page.printName =
        QStringLiteral("A name that is much longer than the page is wide ").repeated(5);
    page.printDescription = QStringLiteral("And a description of many words. ").repeated(200);
    page.printGraph.columns.resize(12, {CentGraph::grid(), {}});
    page.columnTitles = {"Note", "Cent"};
    page.rows.assign(12, {"C", "+0.000"});
    for (const QSize size : {QSize(300, 480), QSize(380, 200), QSize(120, 700), QSize(900, 460)}) {
        SCOPED_TRACE(std::to_string(size.width()) + " x " + std::to_string(size.height()));
        const QRect area(QPoint(50, 60), size);
        QImage paper(size + QSize(100, 120), QImage::Format_RGB32);
        paper.fill(Qt::white);
        QImage blank = paper;
        {
            QPainter painter(&paper);
            page.paint(painter, area);
        }
        int lowestInk = 0;
        for (int x = area.left(); x <= area.right(); ++x) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                if (qGray(paper.pixel(x, y)) < 140) lowestInk = std::max(lowestInk, y);
            }
        }
        // The table is whole: its last row stands below the graph, within the page.
        EXPECT_GT(lowestInk, area.top() + std::min({size.height() / 2, size.width(), 300}));
        QPainter(&paper).fillRect(area, Qt::white);
        EXPECT_EQ(paper, blank) << "ink outside the printable area";
    }
}

/// A page of white, and where it has ink.
class Paper {
public:
    Paper(const PrintPage& page, const QSize& size) : mPicture(size, QImage::Format_RGB32) {
        mPicture.fill(Qt::white);
        QPainter painter(&mPicture);
        page.paint(painter, QRectF(QPointF(), size));
    }
    bool isInk(int x, int y) const { return qGray(mPicture.pixel(x, y)) < 100; }
    bool hasInkInRow(int y, int from, int to) const {
        for (int x = from; x < to; ++x) {
            if (isInk(x, y)) return true;
        }
        return false;
    }
    /// Heights of the blocks of rows with ink above the graph's frame, from the top.
    std::vector<int> linesAboveTheGraph() const {
        std::vector<int> lines;
        int height = 0;
        for (int y = 0; y < frameTop(); ++y) {
            if (hasInkInRow(y, 0, mPicture.width())) {
                ++height;
            } else if (height > 0) {
                lines.push_back(std::exchange(height, 0));
            }
        }
        return lines;
    }
    int frameTop() const {
        int y = 0;
        while (y < mPicture.height() && mPicture.pixel(1, y) != CentGraph::grid().rgb())
            ++y;
        return y;
    }
    const QImage& picture() const { return mPicture; }

private:
    QImage mPicture;
};

PrintPage examplePage() {
    PrintPage page;
    page.printName = QStringLiteral("Example");
    page.printDescription = QStringLiteral("A table.");
    page.printGraph.columns.resize(12, {CentGraph::grid(), {}});
    page.columnTitles = {"Note", "Cent"};
    page.rows.assign(12, {"C", "+0.000"});
    return page;
}

const QSize kA4(510, 757); // in points, less margins

TEST(PrintPageTest, TextsAreWrittenInWholeLines) {
    PrintPage page = examplePage();
    // A letter without descender, so that every line has the same ink.
    page.printName = QStringLiteral("H").repeated(400);
    page.printDescription = QStringLiteral("H").repeated(9000);
    const std::vector<int> lines = Paper(page, kA4).linesAboveTheGraph();
    ASSERT_GT(lines.size(), 8u);
    EXPECT_EQ(lines[0], lines[1]) << "the name has two";
    EXPECT_LT(lines[2], lines[1]);
    for (std::size_t line = 2; line < lines.size(); ++line)
        EXPECT_EQ(lines[line], lines[2]) << "line " << line << " of the description is cut";
}

TEST(PrintPageTest, EveryKindOfLineEndBeginsALine) {
    PrintPage page = examplePage();
    for (const char16_t* end : {u"\n", u"\r", u"\r\n", u"\u2028", u"\u2029"}) {
        page.printDescription = QStringLiteral("H") + QString::fromUtf16(end) + u'H';
        EXPECT_EQ(Paper(page, kA4).linesAboveTheGraph().size(), 1u + 2u)
            << page.printDescription.toStdString();
    }
    page.printDescription.clear();
    EXPECT_EQ(Paper(page, kA4).linesAboveTheGraph().size(), 1u);
}

TEST(PrintPageTest, WhatIsCutEndsInAnEllipsis) {
    PrintPage page = examplePage();
    page.printDescription = QStringLiteral("HHH ").repeated(9000);
    const Paper paper(page, kA4);
    const auto lines = paper.linesAboveTheGraph();
    // The last line's last ink is low: three dots, nothing above them.
    int y = paper.frameTop();
    while (!paper.hasInkInRow(y - 1, 0, kA4.width()))
        --y;
    int x = kA4.width() - 1;
    const int top = y - lines.back();
    const auto inkAt = [&](int column) {
        for (int row = top; row < y; ++row) {
            if (paper.isInk(column, row)) return true;
        }
        return false;
    };
    while (!inkAt(x))
        --x;
    EXPECT_FALSE(paper.isInk(x, top) || paper.isInk(x, top + 2));
    EXPECT_TRUE(paper.isInk(x, y - 1));
}

TEST(PrintPageTest, TheGraphKeepsAHeightWhateverTheTextsAre) {
    PrintPage page = examplePage();
    page.printName = QStringLiteral("H").repeated(400);
    page.printDescription = QStringLiteral("HHH ").repeated(9000);
    for (const QSize size : {kA4, QSize(757, 510), QSize(380, 460)}) {
        const Paper paper(page, size);
        int bottom = paper.frameTop();
        while (paper.picture().pixel(1, bottom) == CentGraph::grid().rgb() ||
               paper.picture().pixel(0, bottom) == CentGraph::grid().rgb())
            ++bottom;
        EXPECT_GE(bottom - paper.frameTop(), 90) << size.width();
    }
}

} // namespace
} // namespace veltrano
