#include "qt/ShownWindow.h"

#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <gtest/gtest.h>

namespace skyvert::list_test {

using Ranges = std::vector<RowRange>;

void click(QTableView& table, int row, Qt::KeyboardModifiers modifiers = {}) {
    const QRect cell = table.visualRect(table.model()->index(row, 1));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, cell.center());
}

TEST(ListView, ManyRowsAreShownByOneInsertionAndOneSelection) {
    OpenWindow shown;
    auto& table = *shown.find<QTableView>("list");
    const QSignalSpy insertions(table.model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy selections(table.selectionModel(), &QItemSelectionModel::selectionChanged);
    shown.addRows(100000);
    EXPECT_EQ(insertions.size(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(insertions.size(), 1);
    EXPECT_EQ(selections.size(), 1);
    EXPECT_EQ(table.model()->rowCount(), 100000);
    EXPECT_TRUE(table.viewport()->rect().contains(
        table.visualRect(table.model()->index(99999, 0)).center()));

    shown.window.list.DeleteAllRows();
    EXPECT_EQ(table.model()->rowCount(), 0) << "rows that are gone must not wait";
    shown.addRows(2);
    QTest::keyClick(&table, Qt::Key_Up);
    EXPECT_EQ(table.model()->rowCount(), 2) << "a key must not find the list behind";
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{0, 0}}));
}

TEST(ListView, WhatAPersonSelectsReachesTheListAsRanges) {
    OpenWindow shown;
    shown.addRows(200);
    QCoreApplication::processEvents();
    auto& table = *shown.find<QTableView>("list");
    table.scrollToTop();
    table.setFocus();
    click(table, 2);
    click(table, 5, Qt::ShiftModifier);
    click(table, 7, Qt::ControlModifier);
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{2, 5}, {7, 7}}));
    click(table, 4, Qt::ControlModifier);
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{2, 3}, {5, 5}, {7, 7}}));
    QCoreApplication::processEvents();
    EXPECT_EQ(table.selectionModel()->selectedRows().size(), 4);

    click(table, 2);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "12 30\t+10 15\t12 31\t+10 06\n");
    QTest::keyClick(&table, Qt::Key_End);
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{199, 199}}));
    QTest::keyClick(&table, Qt::Key_Home, Qt::ShiftModifier);
    QTest::keyClick(&table, Qt::Key_Home);
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{0, 199}}));
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{0, 199}}));
    EXPECT_EQ(table.verticalScrollBar()->value(), 0);
}

TEST(ListView, EveryOtherRowIsGreyUnlessItIsSelected) {
    OpenWindow shown;
    shown.addRows(5);
    QCoreApplication::processEvents();
    auto& table = *shown.find<QTableView>("list");
    const QImage image = table.viewport()->grab().toImage();
    const QColor grey(0xEF, 0xEF, 0xEF);
    const QColor expected[] = {grey, Qt::white, grey, Qt::white,
                               table.palette().color(QPalette::Highlight)};
    for (int row = 0; row < 5; ++row) {
        const QRect cell = table.visualRect(table.model()->index(row, 2));
        EXPECT_EQ(cell.height(), 20);
        EXPECT_EQ(image.pixelColor(cell.right() - 20, cell.center().y()), expected[row]);
    }
    EXPECT_EQ(table.model()->headerData(2, Qt::Horizontal).toString(), "Output RA (2000.0)");
}

} // namespace skyvert::list_test
