// What any program of Qt Widgets does at least: a window of the size of ours, with nothing in it.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(680, 520);
    window.show();
    return QApplication::exec();
}
