// SPDX-License-Identifier: GPL-3.0-or-later
// Which panel comes before a page is printed, and what it starts with.
#include "platform/desktop/PagePrinter.h"

#include <QApplication>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

/// Refuses every panel that comes up, and notes the page it was asked about.
template <class Panel>
class Refusal {
public:
    Refusal() {
        QObject::connect(&mWatch, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<Panel*>(QApplication::activeModalWidget());
            if (!dialog) return;
            ++panels;
            layout = dialog->printer()->pageLayout();
            dialog->reject();
        });
        mWatch.start(1);
    }
    int panels = 0;
    QPageLayout layout;

private:
    QTimer mWatch;
};

constexpr PrintInfo kA5Lying{148, 210, true, 20, 21, 22, 23};

void expectA5Lying(const QPageLayout& layout) {
    EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(layout.pageSize().id(), QPageSize::A5);
    EXPECT_EQ(layout.margins(QPageLayout::Millimeter), QMarginsF(20, 21, 22, 23));
}

TEST(PagePrinterTest, APanelThatIsRefusedPrintsNothing) {
    QWidget window;
    Refusal<QPrintDialog> refusal;
    bool isPainted = false;
    EXPECT_FALSE(PagePrinter(window).print(
        kA5Lying, true, "job", [&isPainted](QPainter&, const QRectF&) { isPainted = true; }));
    EXPECT_EQ(refusal.panels, 1);
    expectA5Lying(refusal.layout);
    EXPECT_FALSE(isPainted);
}

TEST(PagePrinterTest, WithoutThePanelNobodyIsAsked) {
    // Where there is a printer, it would get the page.
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
    QWidget window;
    Refusal<QPrintDialog> refusal;
    PagePrinter(window).print(kA5Lying, false, "job", [](QPainter&, const QRectF&) {});
    EXPECT_EQ(refusal.panels, 0);
}

TEST(PagePrinterTest, PageSetupBeginsWithThePageInUse) {
    QWidget window;
    Refusal<QPageSetupDialog> refusal;
    EXPECT_EQ(PagePrinter(window).runPageSetup(kA5Lying), std::nullopt);
    EXPECT_EQ(refusal.panels, 1);
    expectA5Lying(refusal.layout);
}

} // namespace
} // namespace veltrano
