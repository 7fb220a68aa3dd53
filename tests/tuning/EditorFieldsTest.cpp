// SPDX-License-Identifier: GPL-3.0-or-later
// The name and description fields of the editors.
#include "tuning/EditorFields.h"
#include "tests/tuning/EditorsTestBase.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>

namespace veltrano {
namespace {

class EditorFieldsTest : public EditorsTestBase {};

TEST_F(EditorFieldsTest, FieldsShowAndTakeTexts) {
    temperament();
    auto* description = editor->findChild<QPlainTextEdit*>("descriptionField");
    ASSERT_TRUE(document->readData("\"Name\"=\"x\";\"Description\"=\"two\\nlines\";"));
    document->loadDataRepresentation(document->data(), kTemperamentTypeName);
    description->setFocus();
    type("My ");
    EXPECT_EQ(document->description().substr(0, 3), "My ");
    EXPECT_TRUE(document->isDocumentEdited());
    document->undo();
    EXPECT_EQ(description->toPlainText(), "");
    EXPECT_FALSE(document->isDocumentEdited());
    press(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), description) << "Tab leaves the field";
}

TEST_F(EditorFieldsTest, ATextThatNobodyTouchedReadsBackAsItIs) {
    const std::string oddName = "a\u00A0b\r\nc\td"; // in a comment, too: no Unicode line ends
    const std::string odd = "a\u00A0b\r\nc\rd\u2028e\u2029f";
    temperament();
    ASSERT_TRUE(document->loadDataRepresentation(temperament_file::data({}, oddName, odd),
                                                 kTemperamentTypeName));
    EXPECT_EQ(document->name(), oddName);
    EXPECT_EQ(document->description(), odd);
    // One letter more changes nothing but line ends.
    editor->findChild<QWidget*>("descriptionField")->setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    type("!");
    EXPECT_EQ(document->description(), "a\u00A0b\nc\nd\u2028e\nf!");
    document->undo();
    EXPECT_EQ(document->description(), odd);
}

TEST_F(EditorFieldsTest, NoTextIsTooLong) {
    temperament();
    const std::string longText(100'000, 'x');
    document->setName(longText);
    EXPECT_EQ(document->name(), longText);
}

TEST_F(EditorFieldsTest, UndoAndRedoPutTheCursorBehindWhatChanged) {
    temperament();
    ASSERT_TRUE(document->loadDataRepresentation("\"Name\"=\"Young\";\"Description\"=\"Young\";",
                                                 kTemperamentTypeName));
    for (const char* name : {"nameField", "descriptionField"}) {
        auto* field = editor->findChild<QWidget*>(name);
        field->setFocus();
        press(Qt::Key_Home);
        type("A");
        document->undo();
        document->redo();
        type("n ");
    }
    EXPECT_EQ(document->name(), "An Young");
    EXPECT_EQ(document->description(), "An Young");
}

TEST_F(EditorFieldsTest, UndoWhileTypingIsTheDocuments) {
    temperament();
    EXPECT_FALSE(editor->findChild<QPlainTextEdit*>("descriptionField")->isUndoRedoEnabled());
    for (const char* name : {"nameField", "descriptionField"}) {
        auto* field = editor->findChild<QWidget*>(name);
        field->setFocus();
        type("x");
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Right);
    }
    EXPECT_EQ(document->name() + document->description(), "xx") << "the keys are left to a menu";
}

TEST_F(EditorFieldsTest, ALongTextShowsItsBeginning) {
    const std::string text = "first " + std::string(2000, 'x') + " last";
    document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
    ASSERT_TRUE(document->loadDataRepresentation(temperament_file::data({}, text, text),
                                                 kTemperamentTypeName));
    auto made = TemperamentEditor::create(resources, *document, log);
    show(std::move(made));
    auto* name = editor->findChild<QLineEdit*>("nameField");
    auto* description = editor->findChild<QPlainTextEdit*>("descriptionField");
    EXPECT_EQ(name->cursorPosition(), 0);
    EXPECT_EQ(description->textCursor().position(), 0);
    document->setName(text + "!");
    EXPECT_EQ(name->cursorPosition(), 0);
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(EditorFieldsTest, TheDescriptionIsThreeLinesHighInAnyFont) {
    temperament();
    auto* description = editor->findChild<QPlainTextEdit*>("descriptionField");
    description->setPlainText("a\nb\nc");
    for (const int size : {12, 24, 36}) {
        QFont font = description->font();
        font.setPixelSize(size);
        description->setFont(font);
        QApplication::processEvents();
        EXPECT_EQ(description->verticalScrollBar()->maximum(), 0) << size;
        const double spare = description->viewport()->height() -
                             EditorField::kLines * QFontMetricsF(font).lineSpacing();
        EXPECT_LT(spare, QFontMetricsF(font).lineSpacing()) << size << ": a fourth line";
    }
}

TEST_F(EditorFieldsTest, TheMenuOfTheNameHasNoUndoOfItsOwn) {
    temperament();
    auto* name = editor->findChild<QLineEdit*>("nameField");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(name, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts.append(action->text().section('\t', 0, 0));
    menu->close();
    EXPECT_EQ(texts.join(","), "Cu&t,&Copy,&Paste,Delete,,Select All");
}

TEST_F(EditorFieldsTest, MnemonicsLeadToTheFields) {
    temperament();
    for (const auto& [label, field] :
         {std::pair{"nameLabel", "nameField"}, std::pair{"descriptionLabel", "descriptionField"}}) {
        const auto* found = editor->findChild<QLabel*>(label);
        EXPECT_TRUE(found->text().contains('&')) << label;
        EXPECT_EQ(found->buddy(), editor->findChild<QWidget*>(field)) << label;
    }
}

} // namespace
} // namespace veltrano
