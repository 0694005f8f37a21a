#include <QApplication>

#include "examples/inspector/main_window.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Inspector");
    inspector::MainWindow window;
    window.show();
    window.Open(QApplication::arguments().mid(1));
    return QApplication::exec();
}
