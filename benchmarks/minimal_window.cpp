// The baseline of the start-up measurement: a Qt Widgets window with one label.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QLabel label("minimal");
    label.setWindowTitle("MINIMAL");
    label.show();
    return QApplication::exec();
}
