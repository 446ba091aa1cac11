#include "qt/ShownWindow.h"
#include "support/Table.h"

#include <QAccessible>
#include <QGroupBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QTableView>

namespace skyvert::layout_test {

TEST(Layout, NothingIsCutOffOrCoveredAndTheFontStaysWhereTheWindowFits) {
    const QFont usual = QApplication::font();
    for (const auto& [points, left, top, across, down, letters, window] : table<7>("fonts")) {
        const QRect screen(std::stoi(left), std::stoi(top), std::stoi(across), std::stoi(down));
        const int width = std::stoi(window);
        SCOPED_TRACE(points + " " + across);
        QApplication::setFont(QFont("DejaVu Sans", std::stoi(points)));
        ShownWindow shown({",", "."});
        shown.open(screen);
        EXPECT_TRUE(screen.contains(shown.view.geometry().adjusted(0, 0, 2, 30)));
        EXPECT_TRUE(width == 0 ? shown.view.width() > 1190 : shown.view.width() == width);
        const auto& list = *shown.find<QTableView>("list");
        EXPECT_GE(list.verticalHeader()->defaultSectionSize(), list.fontMetrics().height() + 2);
        for (const char* const selector : {"fromEpoch", "toEpoch"})
            QTest::keyClick(shown.find(QString(selector) + "/epochPopup"), Qt::Key_End);
        QCoreApplication::processEvents();
        QList<QWidget*> members;
        for (const QGroupBox* group : shown.view.findChildren<QGroupBox*>())
            members += group->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_EQ(members.size(), 2 * 4 + 2 * 14 + 2 * 3 + 6);
        for (const QWidget* widget : members) {
            SCOPED_TRACE(toUtf8(widget->parentWidget()->parent()->objectName() + "/" +
                                widget->objectName()));
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width());
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height());
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()));
            for (const QWidget* other : members) {
                EXPECT_TRUE(other == widget || other->parent() != widget->parent() ||
                            !other->geometry().intersects(widget->geometry()))
                    << toUtf8(other->objectName());
            }
        }
        EXPECT_EQ(list.font().pointSizeF(), number(letters));
        const int height = shown.window.height();
        EXPECT_EQ(height == 550, screen.height() > 600 || width < 893);
        shown.view.resize(shown.view.size() + QSize(0, 60));
        EXPECT_EQ(shown.window.height(), height + qRound(60 * 893.0 / shown.view.width()));
    }
    QApplication::setFont(usual);
}

TEST(Layout, ATallerWindowStretchesTheListAndMovesWhatIsBelow) {
    OpenWindow shown;
    const int menuBar = shown.view.menuBar()->height();
    EXPECT_EQ(shown.view.size(), QSize(893, 550 + menuBar));
    EXPECT_EQ(shown.find("list")->geometry(), QRect(20, 244, 853, 222));
    shown.view.resize(893, 650 + menuBar);
    EXPECT_EQ(shown.window.height(), 650);
    EXPECT_EQ(shown.find("list")->geometry(), QRect(20, 244, 853, 322));
    EXPECT_EQ(shown.find("GroupBox2")->geometry(), QRect(20, 571, 562, 59));
    EXPECT_EQ(shown.find("ClearListButton")->geometry().center().y(), 587);
    shown.view.resize(1000, 100);
    EXPECT_EQ(shown.view.size(), QSize(893, 500 + menuBar));
    EXPECT_EQ(shown.find("list")->height(), 172);
}

TEST(Layout, TabVisitsTheControlsInOrderAndEachHasAName) {
    OpenWindow shown;
    shown.addRows(2);
    shown.window.ClearListButton.setEnabled(true);
    shown.window.ManualEnterBtn.setEnabled(true);
    QString order;
    QWidget* at = shown.find("fromEpoch/epochPopup");
    at->setFocus();
    do {
        QWidget* const widget = QApplication::focusWidget();
        order += widget->objectName() + " ";
        const auto& accessible = *QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(accessible.text(QAccessible::Name).isEmpty()) << toUtf8(order);
        QTest::keyClick(widget, Qt::Key_Tab);
    } while (QApplication::focusWidget() != at && order.size() < 1000);
    EXPECT_EQ(toUtf8(order),
              "epochPopup epochPopup RAFormat DecFormat raDecimals decDecimals RAFormat DecFormat "
              "raDecimals decDecimals list fileFormat FileImportBtn raManual decManual "
              "ManualEnterBtn DataEntryMask ClearListButton ListFormat ExportListBtn ");
    EXPECT_EQ(shown.find("toEpoch/epochDate")->accessibleName(), "Output Epoch: Date");
}

TEST(Layout, AFirstStartIsCentredAndALaterOneRestoresThePlace) {
    ShownWindow first;
    first.open();
    EXPECT_NEAR(first.window.left() + 893 / 2, 640, 1);
    EXPECT_EQ(first.view.pos(), QPoint(first.window.left(), first.window.top()));
    first.view.move(40, 60);
    EXPECT_EQ(first.window.left(), 40);
    EXPECT_EQ(first.window.top(), 60);

    ShownWindow later;
    later.app.prefs().setValue("MWin.Left", "-5000");
    later.app.prefs().setValue("MWin.Top", "2147483647");
    later.app.prefs().setValue("MWin.Height", "99999999999999");
    later.open();
    EXPECT_EQ(later.view.x(), -5000);
    EXPECT_EQ(later.window.top(), 2147483647);
    EXPECT_EQ(later.window.height(), 2147483647);
}

} // namespace skyvert::layout_test
