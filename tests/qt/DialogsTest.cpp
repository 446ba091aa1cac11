#include "qt/QtDialogs.h"
#include "qt/QtText.h"
#include "shell/FileTypes.h"
#include "support/TestDesktop.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace skyvert::dialogs_test {

struct DialogsTest : testing::Test {
    DialogsTest() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           toQString(folder.path().string()));
    }

    /// Acts on the next dialog, once it is open.
    template <typename Dialog>
    static void next(std::function<void(Dialog&)> act) {
        QTimer::singleShot(
            0, [act] { act(dynamic_cast<Dialog&>(*QApplication::activeModalWidget())); });
    }

    TemporaryFolder folder;
    QtDialogs dialogs;
};

TEST_F(DialogsTest, AChosenTypeKeepsTheProposedNameAndAMissingSuffixIsAdded) {
    dialogs.StartIn(folder.path());
    for (const auto& [typed, saved] :
         {std::pair("list.txt", "list.txt"), {"M31", "M31.txt"}, {"M31.tsv", "M31.tsv"}}) {
        std::string types;
        next<QFileDialog>([&](QFileDialog& dialog) {
            auto& types_ = *dialog.findChild<QComboBox*>("fileTypeCombo");
            auto& name = *dialog.findChild<QLineEdit*>();
            for (int type = types_.count() - 1; type >= 0; --type) {
                QTest::keyClick(&types_, type == types_.count() - 1 ? Qt::Key_End : Qt::Key_Up);
                types.insert(0, toUtf8(types_.currentText() + "|"));
                EXPECT_EQ(name.text(), "list.txt");
            }
            QTest::keyClick(&name, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(&name, typed);
            QTest::keyClick(&name, Qt::Key_Return);
        });
        EXPECT_EQ(dialogs.GetSaveFolderItem(FileTypes::Text, "list.txt"), folder / saved);
        EXPECT_EQ(types, "Text files|Text documents and sources|All files|");
    }
}

TEST_F(DialogsTest, DialogsStartInTheFolderOfTheLastSuccess) {
    const auto startOf = [&](const QString& visited) {
        QString start;
        next<QFileDialog>([&](QFileDialog& dialog) {
            start = dialog.directory().absolutePath();
            dialog.setDirectory(visited);
            dialog.reject();
        });
        dialogs.GetOpenFolderItem(FileTypes::Any);
        return start;
    };
    EXPECT_EQ(startOf("/"), QDir::homePath());
    EXPECT_EQ(startOf("/"), QDir::homePath());
    dialogs.StartIn(folder.path());
    EXPECT_EQ(startOf("/"), toQString(folder.path().string()));
    EXPECT_EQ(startOf("/"), toQString(folder.path().string()));
    dialogs.StartIn(folder / "gone");
    EXPECT_EQ(startOf("/"), QDir::homePath());
}

TEST_F(DialogsTest, AMessageHasTheIconOfItsKind) {
    std::vector<QMessageBox::Icon> icons;
    const auto note = [&](QMessageBox& box) {
        icons.push_back(box.icon());
        box.accept();
    };
    next<QMessageBox>(note);
    dialogs.MsgBox("spaces");
    next<QMessageBox>(note);
    dispatch(dialogs, [] { throw std::runtime_error("disk"); });
    EXPECT_EQ(icons, (std::vector{QMessageBox::Warning, QMessageBox::Critical}));
}

} // namespace skyvert::dialogs_test
