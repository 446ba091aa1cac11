#include "qt/ShownWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace skyvert::views_test {

TEST(Views, TypingIsCheckedAtEveryKeyAndReturnEntersOnlyWhatParses) {
    ShownWindow shown;
    shown.window.FormatChangeTimer.setMode(Timer::Mode::Off);
    shown.open();
    auto& ra = *shown.find<QLineEdit>("raManual");
    auto& dec = *shown.find<QLineEdit>("decManual");
    EXPECT_EQ(ra.placeholderText(), "HH MM");
    EXPECT_EQ(ra.toolTip(), "No data!");

    ra.setFocus();
    QTest::keyClicks(&ra, "12 30.5");
    EXPECT_EQ(shown.window.raManual.text(), "12 30.5");
    EXPECT_EQ(ra.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(dec.palette().color(QPalette::Text), QColor(0xFF, 0, 0));
    QTest::keyClick(&ra, Qt::Key_Return);
    EXPECT_EQ(shown.window.list.RowCount(), 0);

    dec.setFocus();
    QTest::keyClicks(&dec, "5");
    EXPECT_EQ(dec.text(), "+") << "a handler's own assignment wins over what was typed";
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
    EXPECT_TRUE(shown.find<QPushButton>("ManualEnterBtn")->isDefault());
}

TEST(Views, APopupTellsOfEachChoiceOnceAndOfNothingElse) {
    OpenWindow shown;
    auto& popup = *shown.find<QComboBox>("fileFormat");
    std::vector<std::int64_t> changes;
    shown.window.fileFormat.Change = [&](PopupMenu& menu) { changes.push_back(menu.listIndex()); };

    QTest::keyClick(&popup, Qt::Key_Down);
    QTest::keyClick(&popup, 'S');
    EXPECT_EQ(changes, (std::vector<std::int64_t>{1, 2}));
    QWheelEvent wheel({5, 5}, popup.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&popup, &wheel);
    EXPECT_EQ(changes.size(), 2U);

    shown.window.fileFormat.setListIndex(-1);
    shown.window.fileFormat.DeleteAllRows();
    shown.window.fileFormat.AddRow("only");
    EXPECT_EQ(popup.currentIndex(), -1) << "a first row is not selected by being there";
    EXPECT_EQ(changes, (std::vector<std::int64_t>{1, 2, -1}));
}

TEST(Views, TheDateIsShownUnderOtherAndHandedOverOncePerChange) {
    OpenWindow shown;
    auto& date = *shown.find<QDateEdit>("toEpoch/epochDate");
    EXPECT_FALSE(date.isVisible());
    QTest::keyClick(shown.find("toEpoch/epochPopup"), Qt::Key_End);
    EXPECT_TRUE(date.isVisible());

    std::vector<std::string> changes;
    shown.window.toEpoch.ValueChanged = [&](EpochSelector&, const Date& day) {
        changes.push_back(day.SQLDate());
    };
    date.setFocus();
    date.setSelectedSection(QDateEdit::YearSection);
    QTest::keyClicks(&date, "0130");
    EXPECT_TRUE(changes.empty());
    QTest::keyClick(&date, Qt::Key_Return);
    EXPECT_EQ(changes, std::vector<std::string>{"0130-11-16"});

    shown.window.toEpoch.epochDate.setDateValue(Date(12345, 1, 1));
    EXPECT_EQ(date.date(), QDate(9999, 12, 31));
    shown.window.toEpoch.epochDate.setDateValue(Date(50, 3, 1));
    EXPECT_EQ(date.date(), QDate(100, 1, 1));
    QTest::keyClick(&date, Qt::Key_Return);
    shown.find("raManual")->setFocus();
    EXPECT_EQ(shown.window.toEpoch.epochDate.dateValue().SQLDate(), "0050-03-01");
}

TEST(Views, ABoxThatIsMixedStaysSoUnderAClick) {
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

TEST(Views, TheEditMenuActsOnTheFieldThatHasTheFocus) {
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
    EXPECT_TRUE(isOffered("EditUndo"));
    action("EditUndo")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "12 30");
    shown.find("ExportListBtn")->setFocus();
    EXPECT_FALSE(isOffered("EditPaste"));
    shown.addRows(3);
    shown.find("list")->setFocus();
    action("EditSelectAll")->trigger();
    EXPECT_EQ(shown.window.list.selection(), (std::vector<RowRange>{{0, 2}}));
}

} // namespace skyvert::views_test
