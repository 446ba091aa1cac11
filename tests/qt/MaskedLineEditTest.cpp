#include "qt/MaskedLineEdit.h"

#include "qt/QtText.h"
#include "support/Table.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QtTest/QTest>

namespace skyvert::masked_line_edit_test {

constexpr const char* kBlanks = R"(##\ ##\ ##\.99999)";

struct MaskedLineEditTest : testing::Test {
    MaskedLineEditTest() {
        field.setFold([](std::string_view text) {
            return toUtf8(toQString(text).replace(QChar(0x2212), u'-'));
        });
        field.setEntryMask(EntryMask(kBlanks, "."));
        QObject::connect(&field, &MaskedLineEdit::edited,
                         [this](const QString& text) { edits += toUtf8(text) + "|"; });
    }

    std::string text() const { return toUtf8(field.text()); }

    /// Types text; "<" is Backspace and ">" is Delete.
    void type(const QString& keys) {
        for (const QChar key : keys) {
            const bool erases = key == u'<' || key == u'>';
            const Qt::Key code = key == u'<' ? Qt::Key_Backspace : Qt::Key_Delete;
            QTest::sendKeyEvent(QTest::Click, &field, erases ? code : Qt::Key_unknown,
                                erases ? QString() : QString(key), Qt::NoModifier);
        }
    }

    void press(QKeySequence::StandardKey key) { QTest::keySequence(&field, QKeySequence(key)); }

    MaskedLineEdit field;
    std::string edits; ///< every reported text, with "|" after it
};

TEST_F(MaskedLineEditTest, KeysAreCompletedAndARefusedOneRaisesNoEvent) {
    type("113x0 15,5");
    EXPECT_EQ(edits, "1|11|11 3|11 30|11 30 |11 30 1|11 30 15|11 30 15.|11 30 15.5|");
}

TEST_F(MaskedLineEditTest, UndoAndRedoStepThroughTheShownTexts) {
    type("1230");
    field.setCursorPosition(0);
    type("0");
    field.setCursorPosition(4);
    type("<9");
    edits.clear();
    for (int i = 0; i < 4; ++i)
        press(QKeySequence::Undo);
    press(QKeySequence::Redo);
    press(QKeySequence::Redo);
    EXPECT_EQ(edits, "01 3 0|01 23 0|12 30||12 30|01 23 0|");
}

TEST_F(MaskedLineEditTest, APasteIsOneFoldedLineThatFitsOrIsRefused) {
    for (const auto& [mask, pasted, expected] : table<3>("pasted_texts")) {
        field.clear();
        edits.clear();
        field.setEntryMask(EntryMask(mask, "."));
        QApplication::clipboard()->setText(toQString(pasted));
        press(QKeySequence::Paste);
        EXPECT_EQ(text(), expected);
        EXPECT_EQ(edits, text().empty() ? "" : text() + "|");
        EXPECT_EQ(field.cursorPosition(), field.text().size());
    }
}

TEST_F(MaskedLineEditTest, InputMethodsDropsAndCutsObeyTheMask) {
    QInputMethodEvent composed("", {});
    composed.setCommitString("123");
    QApplication::sendEvent(&field, &composed);
    composed.setCommitString("4x", -1, 1);
    QApplication::sendEvent(&field, &composed);
    composed.setCommitString("45", -1, 1);
    QApplication::sendEvent(&field, &composed);
    QMimeData dragged;
    dragged.setText("15\n");
    QDragEnterEvent enter({500, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    QDropEvent drop({500, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &drop);

    EXPECT_TRUE(drop.isAccepted());
    dragged.setText("x");
    QApplication::sendEvent(&field, &enter);
    QDropEvent refused({500, 5}, Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &refused);
    EXPECT_EQ(refused.dropAction(), Qt::IgnoreAction);

    field.setSelection(1, 3);
    press(QKeySequence::Cut);
    EXPECT_EQ(QApplication::clipboard()->text(), "2 4");
    EXPECT_EQ(field.cursorPosition(), 1);
    EXPECT_EQ(edits, "12 3|12 45|12 45 15|1 5 15|");
}

TEST_F(MaskedLineEditTest, DeletionsByWordAndByMenuObeyTheMask) {
    type("12301");
    press(QKeySequence::DeleteStartOfWord);
    field.setSelection(0, 3);
    QContextMenuEvent request(QContextMenuEvent::Other, {}, {});
    QApplication::sendEvent(&field, &request);
    for (QAction* const action : QApplication::activePopupWidget()->actions())
        if (action->text() == "Delete")
            action->trigger();
    EXPECT_EQ(edits, "1|12|12 3|12 30|12 30 1|12 30 | 30 |");
}

} // namespace skyvert::masked_line_edit_test
