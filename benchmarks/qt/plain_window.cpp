// An empty window of the toolkit, as large as the program's: what the start of the program is
// measured against.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QWidget);
    window.resize(893, 550);
    window.show();
    return QApplication::exec();
}
