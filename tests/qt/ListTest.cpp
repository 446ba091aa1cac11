#include "platform/Files.h"
#include "qt/ShownWindow.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
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
    EXPECT_EQ(table.model()->rowCount(), 0) << "removed rows disappear at once";
    shown.addRows(2);
    QTest::keyClick(&table, Qt::Key_Up);
    EXPECT_EQ(table.model()->rowCount(), 2) << "a key must find the present rows";
    EXPECT_EQ(shown.window.list.selection(), (Ranges{{0, 0}}));
}

TEST(ListView, TheUsersSelectionReachesTheListAsRanges) {
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

TEST(ListView, FilesDroppedOnTheWindowAreImportedInTurn) {
    OpenWindow shown;
    QMimeData dragged;
    QList<QUrl> urls{QUrl("https://example.org/1.tsv")};
    for (const char* name : {"first.tsv", "none.tsv", "second.tsv"})
        urls += QUrl::fromLocalFile(toQString((shown.settings / name).string()));
    writeWholeFile(shown.settings / "first.tsv", "1\t2\n");
    writeWholeFile(shown.settings / "second.tsv", "3\t4\n5\t6\n");
    dragged.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                          Qt::NoModifier);
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                    Qt::NoModifier);
    for (const char* dialect : {"Space-separated", "Tab-separated"}) {
        shown.window.fileFormat.setValue(dialect);
        QApplication::sendEvent(shown.find("raManual"), &enter);
        QApplication::sendEvent(&shown.view, &drop);
        shown.advance();
    }
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    EXPECT_EQ(shown.window.list.RowCount(), 3);
    const std::string& messages = shown.machine.dialogs.messages;
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '|'), 2) << messages;
    EXPECT_TRUE(shown.machine.dialogs.start.empty());
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
