#include "qt/ShownWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace skyvert {
namespace {

QColor textColor(const QWidget& widget) {
    return widget.palette().color(QPalette::Text);
}

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
    EXPECT_EQ(textColor(ra), QColor(Qt::black));
    EXPECT_EQ(textColor(dec), QColor(0xFF, 0, 0));
    QTest::keyClick(&ra, Qt::Key_Return);
    EXPECT_EQ(shown.window.list.RowCount(), 0);

    QTest::keyClicks(&dec, "5");
    EXPECT_EQ(dec.text(), "+") << "a handler's own assignment wins over what was typed";
    QTest::keyClicks(&dec, "41 10.0");
    QTest::keyClick(&dec, Qt::Key_Enter);
    ASSERT_EQ(shown.window.list.RowCount(), 1);
    EXPECT_EQ(shown.window.list.Cell(0, 0), "12 30.5");
    EXPECT_EQ(shown.window.list.Cell(0, 1), "+41 10.0");
    EXPECT_EQ(ra.text() + dec.text(), "");
    EXPECT_TRUE(ra.hasFocus());
}

TEST(Views, APopupTellsOfEachChoiceOnceAndOfNothingElse) {
    ShownWindow shown;
    shown.open();
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
    EXPECT_EQ(popup.currentIndex(), -1);
    shown.window.fileFormat.DeleteAllRows();
    shown.window.fileFormat.AddRow("only");
    EXPECT_EQ(popup.count(), 1);
    EXPECT_EQ(popup.currentIndex(), -1) << "a first row is not selected by being there";
    EXPECT_EQ(changes, (std::vector<std::int64_t>{1, 2, -1}));
}

TEST(Views, TheDateIsShownUnderOtherAndHandedOverOncePerChange) {
    ShownWindow shown;
    shown.open();
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

    shown.window.toEpoch.epochDate.setDateValue(Date(50, 3, 1));
    EXPECT_EQ(date.date(), QDate(100, 1, 1));
    QTest::keyClick(&date, Qt::Key_Return);
    shown.find("raManual")->setFocus();
    EXPECT_EQ(shown.window.toEpoch.epochDate.dateValue().SQLDate(), "0050-03-01");
}

TEST(Views, TheBoxOfTheDecimalPointFollowsTheLocale) {
    struct Case {
        Locale locale;
        Qt::CheckState atStart, afterClick;
        const char* caption;
    };

    const Case cases[] = {
        {{".", ","}, Qt::PartiallyChecked, Qt::PartiallyChecked, "Localised decimal point"},
        {{",", "."}, Qt::Checked, Qt::Unchecked, "Localised decimal point (,)"}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.caption);
        ShownWindow shown(row.locale);
        shown.open();
        auto& box = *shown.find<QCheckBox>("inFormat/localised");
        EXPECT_EQ(box.checkState(), row.atStart);
        EXPECT_EQ(box.text(), row.caption);
        QTest::mouseClick(&box, Qt::LeftButton, {}, {10, box.height() / 2});
        EXPECT_EQ(box.checkState(), row.afterClick);
        EXPECT_EQ(shown.window.inFormat.localised.value(), row.afterClick == Qt::Checked);
    }
}

TEST(Views, WhatAHandlerThrowsIsShownAndTheProgramGoesOn) {
    ShownWindow shown;
    shown.open();
    shown.window.FileImportBtn.Action = [](PushButton&) { throw std::runtime_error("torn page"); };
    QTest::mouseClick(shown.find("FileImportBtn"), Qt::LeftButton);
    EXPECT_EQ(shown.machine.dialogs.messages, "torn page|");
}

TEST(Views, TheEditMenuActsOnTheFieldThatHasTheFocus) {
    ShownWindow shown;
    shown.open();
    auto& ra = *shown.find<QLineEdit>("raManual");
    const auto action = [&](const char* name) { return shown.view.findChild<QAction*>(name); };
    const auto isOffered = [&](const char* name) {
        emit shown.view.findChild<QMenu*>("EditMenu")->aboutToShow();
        return action(name)->isEnabled();
    };
    EXPECT_EQ(action("FileQuit")->shortcut(), QKeySequence("Ctrl+Q"));
    EXPECT_EQ(action("FileQuit")->menuRole(), QAction::QuitRole);

    QGuiApplication::clipboard()->setText("12 30");
    ra.setFocus();
    EXPECT_FALSE(isOffered("EditCut"));
    action("EditPaste")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "12 30");
    action("EditSelectAll")->setEnabled(isOffered("EditSelectAll"));
    action("EditSelectAll")->trigger();
    EXPECT_TRUE(isOffered("EditClear"));
    action("EditClear")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "");
    EXPECT_TRUE(isOffered("EditUndo"));
    action("EditUndo")->trigger();
    EXPECT_EQ(shown.window.raManual.text(), "12 30");
    shown.find("ExportListBtn")->setFocus();
    EXPECT_FALSE(isOffered("EditPaste"));
}

} // namespace
} // namespace skyvert
