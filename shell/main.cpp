// Program entry: the main window captioned "CURVEMILL".
#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("CURVEMILL"));
    window.showMaximized();
    return app.exec();
}
