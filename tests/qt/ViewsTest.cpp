#include "qt/ShownWindow.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace skyvert::views_test {

void turnWheel(QWidget& widget, int angle) {
    QWheelEvent wheel({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
}

TEST(Views, EachKeyIsCheckedAndReturnEntersOnlyValidPositions) {
    ShownWindow shown;
    shown.window.FormatChangeTimer.setMode(Timer::Mode::Off);
    shown.open();
    auto& ra = *shown.find<QLineEdit>("raManual");
    auto& dec = *shown.find<QLineEdit>("decManual");
    EXPECT_EQ(ra.placeholderText(), "HH MM");
    EXPECT_EQ(ra.toolTip(), "No data!");

    EXPECT_TRUE(ra.hasFocus());
    QTest::keyClicks(&ra, "12 30.5");
    EXPECT_EQ(shown.window.raManual.text(), "12 30.5");
    EXPECT_EQ(ra.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(dec.palette().color(QPalette::Text), QColor(0xFF, 0, 0));
    QTest::keyClick(&ra, Qt::Key_Return);
    EXPECT_EQ(shown.window.list.RowCount(), 0);

    dec.setFocus();
    QTest::keyClicks(&dec, "5");
    EXPECT_EQ(dec.text(), "+") << "the handler's assignment wins over the typed text";
    QTest::keyClicks(&dec, "41 10.0");
    QTest::keyClick(&dec, Qt::Key_Enter);
    ASSERT_EQ(shown.window.list.RowCount(), 1);
    EXPECT_EQ(ra.text() + dec.text(), "");
    EXPECT_TRUE(ra.hasFocus());
    QTest::mouseClick(shown.find("FileImportBtn"), Qt::LeftButton);
    EXPECT_EQ(shown.machine.dialogs.asked, "open special/any|");
    QTest::keyClicks(&ra, "1");
    QTest::keyClicks(&dec, "+1");
    QTest::keyClick(shown.find("fileFormat"), Qt::Key_Return);
    EXPECT_EQ(shown.window.list.RowCount(), 2) << "from anywhere";
    shown.find("ClearListButton")->setFocus();
    QTest::keyClick(shown.find("ClearListButton"), Qt::Key_Space);
    EXPECT_TRUE(ra.hasFocus());
    EXPECT_TRUE(shown.find<QPushButton>("ManualEnterBtn")->isDefault());
}

TEST(Views, APopupReportsEachChoiceOnceAndNothingElse) {
    OpenWindow shown;
    auto& popup = *shown.find<QComboBox>("fileFormat");
    std::vector<std::int64_t> changes;
    shown.window.fileFormat.Change = [&](PopupMenu& menu) { changes.push_back(menu.listIndex()); };

    QTest::keyClick(&popup, Qt::Key_Down);
    QTest::keyClick(&popup, 'S');
    EXPECT_EQ(changes, (std::vector<std::int64_t>{1, 2}));
    turnWheel(popup, 120);
    EXPECT_EQ(changes.size(), 2U);

    shown.window.fileFormat.setListIndex(-1);
    shown.window.fileFormat.DeleteAllRows();
    shown.window.fileFormat.AddRow("only");
    EXPECT_EQ(popup.currentIndex(), -1) << "adding the first row does not select it";
    EXPECT_EQ(changes, (std::vector<std::int64_t>{1, 2, -1}));
}

TEST(Views, ATypedDateTakesEffectAndAnImpossibleOneStaysInRed) {
    OpenWindow shown;
    auto& date = *shown.find<QLineEdit>("toEpoch/epochDate");
    auto& popup = *shown.find("toEpoch/epochPopup");
    EXPECT_FALSE(date.isVisible());
    QTest::keyClick(&popup, Qt::Key_End);
    EXPECT_TRUE(date.isVisible());
    std::string changes;
    shown.window.toEpoch.ValueChanged = [&](EpochSelector&, const Date& day) {
        changes += day.SQLDate() + "|";
    };
    const auto leave = [&] { shown.find("raManual")->setFocus(); };
    const std::function<void()> entries[] = {
        [&] { popup.setFocus(), QTest::keyClick(&popup, Qt::Key_Tab); },
        [&] {
            return QTest::mouseClick(&date, Qt::LeftButton, {}, {30, 5});
        },
        [&] {
            date.setFocus(), date.deselect(), QTest::keySequence(&date, QKeySequence::SelectAll);
        }};
    for (const auto& enter : entries)
        for (const bool byReturn : {true, false}) {
            shown.window.toEpoch.epochDate.setDateValue(Date(1987, 3, 15));
            leave();
            enter();
            QTest::keyClicks(&date, "2010-6-15");
            byReturn ? QTest::keyClick(&date, Qt::Key_Return) : leave();
            EXPECT_EQ(date.text(), "2010-06-15");
        }
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(changes.substr(22 * i, 22), "1987-03-15|2010-06-15|");

    changes.clear();
    date.setFocus();
    QTest::keyClicks(&date, "2023-02-30");
    leave();
    EXPECT_EQ(date.text(), "2023-02-30");
    EXPECT_EQ(date.palette().color(QPalette::Text), QColor(0xFF, 0, 0));
    date.setFocus();
    QTest::keyClick(&date, Qt::Key_Escape);
    EXPECT_EQ(date.text(), "2010-06-15");
    EXPECT_EQ(changes, "");

    QTest::keyClick(&date, Qt::Key_Up);
    date.setCursorPosition(2);
    QTest::keyClick(&date, Qt::Key_PageDown);
    EXPECT_EQ(changes, "2010-06-16|2000-06-16|");
    turnWheel(date, -120);
    leave();
    turnWheel(date, -120);
    EXPECT_EQ(date.text(), "1999-06-16");
    date.setFocus();
    QTest::keyClick(&date, Qt::Key_Down, Qt::AltModifier);
    auto* const calendar = dynamic_cast<QCalendarWidget*>(QApplication::activePopupWidget());
    ASSERT_NE(calendar, nullptr);
    emit calendar->activated(QDate(1999, 6, 20));
    EXPECT_EQ(changes, "2010-06-16|2000-06-16|1999-06-16|1999-06-20|");

    shown.window.toEpoch.epochDate.setDateValue(Date(12345, 1, 1));
    EXPECT_EQ(date.text(), "12345-01-01");
    leave();
    EXPECT_EQ(shown.window.toEpoch.epochDate.dateValue().SQLDate(), "12345-01-01");
}

TEST(Views, TextFromAssistiveTechnologyIsEnteredAndItReadsTheVerdict) {
    OpenWindow shown;
    auto& ra = *shown.find<QLineEdit>("raManual");
    auto* const accessible = QAccessible::queryAccessibleInterface(&ra);
    const std::array<const char*, 3> writings[] = {
        {"", "", "HH MM: No data!"},
        {"12\u00A031.5", "12 31.5", "HH MM"},
        {"x", "x", "HH MM"},
        {"31:00", "31 00", "HH MM: Hours must be non-negative and less than 24"}};
    for (const auto& [written, text, description] : writings) {
        accessible->editableTextInterface()->replaceText(0, int(ra.text().size()), written);
        EXPECT_EQ(shown.window.raManual.text(), text);
        EXPECT_EQ(toUtf8(ra.text()), text);
        EXPECT_EQ(toUtf8(accessible->text(QAccessible::Description)), description);
    }
    auto& date = *shown.find<QLineEdit>("fromEpoch/epochDate");
    date.setText("2011-2-3");
    EXPECT_EQ(shown.window.fromEpoch.epochDate.dateValue().SQLDate(), "2011-02-03");
}

TEST(Views, APastedPairFillsBothFieldsAndARefusalIsShownUntilTheNextKey) {
    OpenWindow shown;
    auto& ra = *shown.find<QLineEdit>("raManual");
    const auto paste = [&](const char* text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keySequence(&ra, QKeySequence::Paste);
        return shown.window.raManual.text() + "|" + shown.window.decManual.text();
    };
    EXPECT_EQ(paste("12h30.1234567m\t\u221205\u00B010.5'"), "12 30.12345|-05 10.5");
    ra.clear();
    EXPECT_EQ(paste("05h34.5m"), "05 34.5|-05 10.5");
    ra.selectAll();
    EXPECT_EQ(paste("053431"), "05 34.5|-05 10.5") << "seconds are not decimals of minutes";
    EXPECT_EQ(paste("M 31"), "05 34.5|-05 10.5");
    EXPECT_EQ(ra.toolTip(), "The pasted text does not fit HH MM.");
    QTest::keyClick(&ra, Qt::Key_Right);
    EXPECT_EQ(ra.toolTip(), "");
    QTest::keyClick(shown.find("DataEntryMask"), Qt::Key_Space);
    shown.advance();
    ra.clear();
    EXPECT_EQ(paste("12 30 +05 10"), "12 30 +05 10|-05 10.5") << "without a mask the text stays";
}

TEST(Views, AClickDoesNotChangeAMixedBox) {
    for (const char* point : {".", ","}) {
        ShownWindow shown({point, ""});
        shown.open();
        auto& box = *shown.find<QCheckBox>("inFormat/localised");
        for (const Qt::CheckState with : {Qt::Unchecked, Qt::Checked}) {
            QTest::mouseClick(&box, Qt::LeftButton, {}, {10, box.height() / 2});
            EXPECT_EQ(box.checkState(), *point == '.' ? Qt::PartiallyChecked : with);
        }
        shown.advance();
        QTest::keyClicks(shown.find("raManual"), "1230.5");
        EXPECT_EQ(shown.window.raManual.text(), std::string("12 30") + point + "5");
    }
}

TEST(Views, TheEditMenuActsOnTheFocusedField) {
    OpenWindow shown;
    auto& ra = *shown.find<QLineEdit>("raManual");
    const auto action = [&](const char* name) { return shown.view.findChild<QAction*>(name); };
    const auto isOffered = [&](const char* name) {
        emit shown.view.findChild<QMenu*>("EditMenu")->aboutToShow();
        return action(name)->isEnabled();
    };
    EXPECT_EQ(action("FileQuit")->shortcut(), QKeySequence("Ctrl+Q"));
    EXPECT_EQ(action("EditUndo")->shortcut(), QKeySequence("Ctrl+Z"));

    QGuiApplication::clipboard()->setText("12\u202F30");
    ra.setFocus();
    EXPECT_FALSE(isOffered("EditCut"));
    action("EditPaste")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "12 30");
    EXPECT_TRUE(isOffered("EditSelectAll"));
    action("EditSelectAll")->trigger();
    EXPECT_TRUE(isOffered("EditClear"));
    action("EditClear")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "12\u202F30");
    shown.find("ExportListBtn")->setFocus();
    EXPECT_FALSE(isOffered("EditPaste"));
    shown.addRows(3);
    QCoreApplication::processEvents();
    QTest::keyClick(shown.find("ExportListBtn"), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(shown.window.list.selection(), (std::vector<RowRange>{{0, 2}}));
    QTest::keyClick(shown.find("ExportListBtn"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 3);
    const QList<QAction*> menu{action("EditCopy"), action("EditSelectAll")};
    EXPECT_EQ(shown.find("list")->actions(), menu);
}

} // namespace skyvert::views_test
