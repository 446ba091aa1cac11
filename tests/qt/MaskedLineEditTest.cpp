#include "qt/MaskedLineEdit.h"

#include "qt/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace skyvert {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kBlanks = R"(##\ ##\ ##\.99999)";
constexpr const char* kSigned = R"(&##\ ##\ ##\.99999)";

std::string foldMinus(std::string_view text) {
    return toUtf8(toQString(text).replace(QChar(0x2212), u'-'));
}

class MaskedLineEditTest : public testing::Test {
protected:
    MaskedLineEditTest() {
        field.setFold(foldMinus);
        field.setEntryMask(EntryMask(kBlanks, "."));
        QObject::connect(&field, &MaskedLineEdit::edited,
                         [this](const QString& text) { edits.push_back(toUtf8(text)); });
        QObject::connect(&field, &MaskedLineEdit::entered, [this] { ++entered; });
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

    void pasteByKey(const QString& pasted) {
        QApplication::clipboard()->setText(pasted);
        press(QKeySequence::Paste);
    }

    void press(QKeySequence::StandardKey key) { QTest::keySequence(&field, QKeySequence(key)); }

    MaskedLineEdit field;
    std::vector<std::string> edits;
    int entered = 0;
};

TEST_F(MaskedLineEditTest, KeysAreCompletedAndARefusedOneRaisesNothing) {
    type("123x");
    EXPECT_THAT(edits, ElementsAre("1", "12", "12 3"));
    type("0 15,5");
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(text(), "12 30 15.5");
}

TEST_F(MaskedLineEditTest, MiddleIsCorrectedByKeysWithTheCaretInPlace) {
    type("123015");
    field.setCursorPosition(4);
    edits.clear();
    type("<4");
    EXPECT_EQ(field.cursorPosition(), 4);
    field.setSelection(0, 2);
    type("0>");
    field.selectAll();
    type("<");
    EXPECT_THAT(edits, ElementsAre("12 0 15", "12 40 15", "0 40 15", "0 0 15", ""));
}

TEST_F(MaskedLineEditTest, UndoAndRedoGoThroughTheTextsThatWereSeen) {
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
    EXPECT_THAT(edits, ElementsAre("01 3 0", "01 23 0", "12 30", "", "12 30", "01 23 0"));
}

TEST_F(MaskedLineEditTest, PasteIsOneFoldedLineThatFitsOrIsRefusedWhole) {
    const struct {
        const char* mask;
        const char* pasted;
        const char* text;
    } rows[] = {
        {kBlanks, "123045.5", "12 30 45.5"},
        {kBlanks, "\n\t12\t30 45 \r\nsecond line\n", "12 30 45"},
        {kBlanks, "12h30", ""},
        {kSigned, "\u221222 40 30", "-22 40 30"},
        {"", "a\tb \u2212\u2028c", "a b -"},
        {"", " padded ", " padded "},
        {"", "\n \n", ""},
        {"", "a\U0001F600b", "a\U0001F600b"},
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.pasted);
        field.clear();
        edits.clear();
        field.setEntryMask(EntryMask(row.mask, "."));
        pasteByKey(row.pasted);
        EXPECT_EQ(text(), row.text);
        EXPECT_EQ(edits.size(), text().empty() ? 0U : 1U);
        EXPECT_EQ(field.cursorPosition(), field.text().size());
    }
}

TEST_F(MaskedLineEditTest, EveryOtherRoadIntoTheFieldAsksTheMaskToo) {
    QInputMethodEvent composed("", {});
    composed.setCommitString("123");
    QApplication::sendEvent(&field, &composed);
    EXPECT_EQ(text(), "12 3");

    QMimeData dropped;
    dropped.setText("0 15");
    QDragEnterEvent enter({}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    QDropEvent drop(QPointF(field.width() - 2, 5), Qt::CopyAction, &dropped, Qt::LeftButton,
                    Qt::NoModifier);
    QApplication::sendEvent(&field, &drop);
    EXPECT_EQ(text(), "12 30 15");

    field.setSelection(1, 3);
    press(QKeySequence::Cut);
    EXPECT_EQ(text(), "1 0 15");
    EXPECT_EQ(QApplication::clipboard()->text(), "2 3");

    QApplication::clipboard()->setText("45");
    QContextMenuEvent click(QContextMenuEvent::Mouse, {}, {});
    QApplication::sendEvent(&field, &click);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
        if (action->text().contains("Paste"))
            action->trigger();
    menu->close();
    EXPECT_EQ(text(), "14 50 15");
    EXPECT_THAT(edits, ElementsAre("12 3", "12 30 15", "1 0 15", "14 50 15"));
}

TEST_F(MaskedLineEditTest, CodeAssignsAnyTextAndAReceiverMayAnswerAtOnce) {
    field.setEntryMask(EntryMask(kSigned, "."));
    field.setText("no position");
    EXPECT_EQ(text(), "no position");
    EXPECT_THAT(edits, IsEmpty());
    type("<");
    EXPECT_EQ(text(), "no positio");
    field.clear();
    QObject::connect(&field, &MaskedLineEdit::edited, &field, [this](const QString& text) {
        if (text == "2")
            field.setText("+");
    });
    edits.clear();
    type("2230");
    EXPECT_EQ(text(), "+23 0");
    EXPECT_THAT(edits, ElementsAre("2", "+2", "+23", "+23 0"));
}

} // namespace
} // namespace skyvert
