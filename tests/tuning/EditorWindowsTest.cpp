// SPDX-License-Identifier: GPL-3.0-or-later
// What the editors are made of: sizes, names, what assistive technologies are told.
#include "platform/desktop/Appearance.h"
#include "tests/tuning/EditorsTestBase.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

namespace veltrano {
namespace {

class EditorWindowsTest : public EditorsTestBase {};

TEST_F(EditorWindowsTest, DroppedFilesAreLeftToTheWindow) {
    temperament();
    select(0, kCent);
    press(Qt::Key_F2);
    for (QWidget* widget : editor->findChildren<QWidget*>())
        EXPECT_FALSE(widget->acceptDrops()) << widget->metaObject()->className();
}

TEST_F(EditorWindowsTest, EverythingHasAName) {
    temperament();
    for (QWidget* widget : editor->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith("qt_"))
            continue;
        EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), "")
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
    EXPECT_EQ(table().model()->index(3, kCent).data(Qt::AccessibleTextRole).toString(),
              "Eb (m3), Cent: ±0.000");
    select(0, kCent);
    press(Qt::Key_F2);
    EXPECT_EQ(field()->accessibleName(), "C (PU), Cent: ±0.000");
    const auto saysOf = [this](int row, int column) {
        return table().model()->index(row, column).data(Qt::AccessibleDescriptionRole).toString();
    };
    EXPECT_EQ(saysOf(0, kCent), "editable");
    EXPECT_EQ(saysOf(0, 0), "");
    EXPECT_EQ(saysOf(9, kCent), "A is what the others are measured against.");
    editor.reset();
    stretch();
    const auto header = [this](int section, Qt::Orientation orientation) {
        return table().model()->headerData(section, orientation, Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(header(0, Qt::Horizontal), "Note");
    EXPECT_EQ(header(4, Qt::Horizontal), "Octave 3");
    EXPECT_EQ(header(3, Qt::Vertical), "Eb");
    EXPECT_EQ(table().model()->index(3, 5).data(Qt::AccessibleTextRole).toString(),
              "Eb4: ±0.000 cents");
    auto* graph = editor->findChild<QWidget*>("graph");
    stretchDocument->setCell(0, 0, "-12.3");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(graph)->text(QAccessible::Value),
              "lowest C0 -12.3 cents, highest C#0 +0.0 cents");
}

TEST_F(EditorWindowsTest, BothFitALaptopWithEveryCellInSight) {
    temperament();
    EXPECT_LE(editor->width(), 1000);
    EXPECT_LE(editor->height(), 640);
    const auto lastCellIsSeen = [this] {
        const QModelIndex last = table().model()->index(table().model()->rowCount() - 1,
                                                        table().model()->columnCount() - 1);
        return table().viewport()->rect().contains(table().visualRect(last));
    };
    EXPECT_TRUE(lastCellIsSeen());
    editor.reset();
    stretch();
    EXPECT_LE(editor->width(), 1000);
    EXPECT_LE(editor->height(), 640);
    EXPECT_TRUE(lastCellIsSeen());
}

TEST_F(EditorWindowsTest, WithoutItsInterfaceFileThereIsOneLogLineAndNoEditor) {
    document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
    EXPECT_FALSE(
        TemperamentEditor::create(ResourceFolder(QStringLiteral("/nowhere")), *document, log));
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(EditorWindowsTest, AnInterfaceFileThatLacksAControlIsRefused) {
    document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
    std::ifstream shipped(VELTRANO_SOURCE_RESOURCES "/TemperamentDocument.ui");
    const std::string whole((std::istreambuf_iterator<char>(shipped)), {});
    for (const char* name : {"nameField", "descriptionField", "table", "graph"}) {
        std::string lacking = whole;
        const std::string quoted = std::string("name=\"") + name + '"';
        const auto at = lacking.find(quoted);
        ASSERT_NE(at, std::string::npos);
        lacking.replace(at, quoted.size(), "name=\"other\"");
        write("TemperamentDocument.ui", lacking);
        const ResourceFolder folder(QString::fromStdString(path("")));
        EXPECT_FALSE(TemperamentEditor::create(folder, *document, log)) << name;
        ASSERT_FALSE(log.lines.empty());
        EXPECT_NE(log.lines.back().find(name), std::string::npos) << log.lines.back();
    }
}

/// Whether every cell is in sight, and no scroll bar is.
bool showsAllCells(const CellTable& table) {
    const QModelIndex last =
        table.model()->index(table.model()->rowCount() - 1, table.model()->columnCount() - 1);
    return table.viewport()->rect().contains(table.visualRect(table.model()->index(0, 0))) &&
           table.viewport()->rect().contains(table.visualRect(last)) &&
           !table.verticalScrollBar()->isVisible() && !table.horizontalScrollBar()->isVisible();
}

/// Whether the widest text of each column has room.
bool hasRoomForTexts(const CellTable& table) {
    const QFontMetrics metrics(table.font());
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            const QModelIndex at = table.model()->index(row, column);
            const QSize text = metrics.size(0, at.data().toString());
            const QSize cell = table.visualRect(at).size();
            if (text.width() + 4 > cell.width() || text.height() > cell.height()) return false;
        }
    }
    return true;
}

TEST_F(EditorWindowsTest, TheSmallestWindowsShowEveryCellAfterAnyOtherSize) {
    const auto check = [this](const char* name) {
        for (const QSize size : {QSize(1, 1), QSize(2000, 1500), QSize(1, 1)}) {
            editor->resize(size);
            QApplication::processEvents();
            EXPECT_TRUE(showsAllCells(table())) << name << " " << size.width();
            EXPECT_TRUE(hasRoomForTexts(table())) << name << " " << size.width();
            EXPECT_GE(editor->findChild<QWidget*>("graph")->height(), 120) << name;
        }
        EXPECT_LE(editor->width(), 720) << name;
        EXPECT_LE(editor->height(), 540) << name;
    };
    temperament();
    check("temperament");
    editor.reset();
    stretch();
    for (int row = 0; row < 12; ++row)
        stretchDocument->setCell(row, 8, "-49.999");
    check("stretch");
}

TEST_F(EditorWindowsTest, LargeFontsHaveRoomOrScrollBars) {
    stretch();
    QFont font = editor->font();
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    editor->setFont(font);
    QApplication::processEvents();
    editor->resize(editor->sizeHint());
    QApplication::processEvents();
    const QSize screen = editor->screen()->availableSize();
    EXPECT_LE(table().minimumSizeHint().width(), screen.width());
    EXPECT_LE(table().minimumSizeHint().height(), screen.height() / 2);
    EXPECT_TRUE(hasRoomForTexts(table()));
    editor->resize(1, 1);
    QApplication::processEvents();
    EXPECT_FALSE(showsAllCells(table()));
    EXPECT_TRUE(table().verticalScrollBar()->isVisible() ||
                table().horizontalScrollBar()->isVisible());
    EXPECT_TRUE(hasRoomForTexts(table()));
}

TEST_F(EditorWindowsTest, TitlesEndWhereTheirColumnsTextsEnd) {
    temperament();
    editor->resize(900, 520);
    QApplication::processEvents();
    const auto lastInk = [](const QImage& picture, int left, int right) {
        // The dark letters on light ground, but for the line between two columns.
        for (int x = right - 3; x > left; --x) {
            for (int y = 2; y < picture.height() - 2; ++y) {
                if (qGray(picture.pixel(x, y)) < 110) return x;
            }
        }
        return left;
    };
    auto* header = table().horizontalHeader();
    const QImage titles = header->grab().toImage();
    const QImage cells = table().viewport()->grab(QRect(0, 2, table().width(), 24)).toImage();
    for (int column = 1; column < 4; ++column) {
        const int left = header->sectionPosition(column);
        const int right = left + header->sectionSize(column);
        EXPECT_NEAR(lastInk(titles, left, right), lastInk(cells, left, right), 2) << column;
    }
}

TEST_F(EditorWindowsTest, RowsAlternateAndFollowTheAppearance) {
    stretch();
    const auto ground = [this](int row) {
        const QRect cell = table().visualRect(table().model()->index(row, 5));
        return table().viewport()->grab().toImage().pixel(cell.left() + 2, cell.center().y());
    };
    for (const AppearanceChoice choice : {AppearanceChoice::light, AppearanceChoice::dark}) {
        Appearance::choose(choice);
        QApplication::processEvents();
        const QPalette palette = Appearance::palette(choice);
        EXPECT_EQ(ground(2), palette.base().color().rgb());
        EXPECT_EQ(ground(3), palette.alternateBase().color().rgb());
        EXPECT_NE(ground(2), ground(3));
        EXPECT_EQ(ground(2), ground(4));
    }
    Appearance::choose(AppearanceChoice::system);
}

TEST_F(EditorWindowsTest, TabGoesThroughTheFieldsTheTableAndTheGraph) {
    temperament();
    editor->findChild<QWidget*>("nameField")->setFocus();
    QStringList visited;
    for (int i = 0; i < 4; ++i) {
        visited.append(QApplication::focusWidget()->objectName());
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join(" "), "nameField descriptionField table graph");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "nameField") << "and round";
}

} // namespace
} // namespace veltrano
